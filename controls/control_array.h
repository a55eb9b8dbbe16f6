#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "platform/bounded_array.h"

namespace quillmark {

/// Controls of one name, told apart by an index from 0. An index outside throws the subscript
/// fault.
template <class ControlType, std::size_t N>
class ControlArray {
 public:
  /// All with the same design.
  ControlArray(Form& form, std::string_view name, const Design& design)
      : ControlArray(form, name, std::vector<Design>(N, design)) {}
  /// One design for each.
  ControlArray(Form& form, std::string_view name, const std::vector<Design>& designs) {
    for (std::size_t i = 0; i < N; ++i) {
      items_[i] = std::make_unique<ControlType>(form, name, designs.at(i), static_cast<int>(i));
    }
  }

  template <class I>
  ControlType& operator[](I index) const {
    return *items_[index];
  }
  std::vector<ControlType*> All() const {
    std::vector<ControlType*> all;
    for (const auto& item : items_) all.push_back(item.get());
    return all;
  }
  static constexpr std::size_t size() { return N; }

 private:
  FixedArray<std::unique_ptr<ControlType>, N> items_;
};

}  // namespace quillmark
