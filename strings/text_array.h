#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/bounded_array.h"

namespace quillmark {

/// Texts whose bounds are set at run time, always from 0. They stand one behind the other in one
/// block of memory, as they do in a language file, so that thousands of them are read and written
/// as one. Any index outside throws the subscript fault; before the first `Redim` there is no text
/// at all.
class TextArray {
 public:
  /// Zeros that texts may take from behind the end of their block: damaged offsets reach for many
  /// times less, a table that was made to fill the memory for many times more.
  static constexpr std::size_t kMostZeros = 1U << 20U;

  /// Sets the bounds to 0 to `highest`, with every text empty. Throws the subscript fault for a
  /// negative one.
  template <Index I>
  void Redim(I highest) {
    places_ = PlacesUpTo(highest);
    Clear({});
  }

  /// Empties every text, then cuts the first `count` of them off the front of `block`, one after
  /// the other: text i takes `lengthOf(i)` bytes, at least 0. Zeros stand behind the block's end;
  /// throws the overflow fault for a text that takes more than `kMostZeros` of them, and the
  /// subscript fault for more texts than places. A fault leaves the texts in front of the one that
  /// it met.
  template <class LengthOf>
  void Cut(std::string block, int count, LengthOf lengthOf) {
    Clear(std::move(block));
    CheckedPosition(count, places_ + 1);
    const std::size_t most = block_.size() + kMostZeros;
    std::size_t end = 0;
    for (int i = 0; i < count; ++i) {
      end += static_cast<std::size_t>(lengthOf(i));
      if (end > most) ThrowTooManyZeros();
      if (end > block_.size()) block_.resize(end, '\0');
      ends_.push_back(end);
    }
  }

  /// The text. It stays valid until the next change of any.
  template <Index I>
  std::string_view operator[](I index) const {
    const std::size_t place = CheckedPosition(index, places_);
    return Block(StartOf(place), StartOf(place + 1));
  }

  template <Index I>
  void Set(I index, std::string_view text) {
    Replace(CheckedPosition(index, places_), text);
  }

  /// The texts below `count`, one behind the other. They stay valid until the next change of any.
  /// Throws the subscript fault if there are less.
  template <Index I>
  std::string_view First(I count) const {
    return Block(0, StartOf(CheckedPosition(count, places_ + 1)));
  }

  std::size_t size() const { return places_; }

 private:
  [[noreturn]] static void ThrowTooManyZeros();
  void Clear(std::string block);
  std::string_view Block(std::size_t from, std::size_t to) const {
    return {block_.data() + from, to - from};
  }
  /// Where the text of that place begins, and the one in front of it ends.
  std::size_t StartOf(std::size_t place) const {
    const std::size_t ended = std::min(place, ends_.size());
    return ended == 0 ? 0 : ends_[ended - 1];
  }
  void Replace(std::size_t place, std::string_view text);

  std::size_t places_ = 0;
  std::string block_;
  /// Where the texts end, up to the last one that was cut or set; those behind it are empty.
  std::vector<std::size_t> ends_;
};

}  // namespace quillmark
