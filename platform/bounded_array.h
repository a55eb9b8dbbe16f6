#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "platform/checked_integer.h"

namespace quillmark {

/// Throws the subscript fault that names `index` and the highest one of the array.
[[noreturn]] void ThrowSubscript(std::int64_t index, std::int64_t highest);

/// What may index a bounded array: any plain or checked whole number, also a negative one.
template <class T>
concept Index = std::integral<T> || requires(T t) {
  { t.value() } -> std::integral;
};

/// `index` as a position below `size`; throws the subscript fault if it is none.
template <Index I>
constexpr std::size_t CheckedPosition(I index, std::size_t size) {
  if constexpr (std::integral<I>) {
    if (!std::in_range<std::size_t>(index) || static_cast<std::size_t>(index) >= size) {
      ThrowSubscript(static_cast<std::int64_t>(index), static_cast<std::int64_t>(size) - 1);
    }
    return static_cast<std::size_t>(index);
  } else {
    return CheckedPosition(index.value(), size);
  }
}

/// The entries of an array with the bounds 0 to `highest`; throws the subscript fault for a
/// negative one.
template <Index I>
constexpr std::size_t PlacesUpTo(I highest) {
  const auto last = static_cast<std::int64_t>(highest);
  if (last < 0) ThrowSubscript(last, -1);
  return static_cast<std::size_t>(last) + 1;
}

/// An array of fixed bounds 0 to N - 1. Any index outside throws the subscript fault.
template <class T, std::size_t N>
class FixedArray {
 public:
  template <Index I>
  constexpr T& operator[](I index) {
    return items_[CheckedPosition(index, N)];
  }
  template <Index I>
  constexpr const T& operator[](I index) const {
    return items_[CheckedPosition(index, N)];
  }

  /// The entries below `count`; throws the subscript fault if there are less.
  template <Index I>
  constexpr std::span<T> First(I count) {
    return std::span<T>(items_).first(CheckedPosition(count, N + 1));
  }
  template <Index I>
  constexpr std::span<const T> First(I count) const {
    return std::span<const T>(items_).first(CheckedPosition(count, N + 1));
  }

  static constexpr std::size_t size() { return N; }
  constexpr auto begin() { return items_.begin(); }
  constexpr auto end() { return items_.end(); }
  constexpr auto begin() const { return items_.begin(); }
  constexpr auto end() const { return items_.end(); }

 private:
  std::array<T, N> items_{};
};

/// An array whose bounds are set at run time, always from 0. Any index outside throws the subscript
/// fault; before the first `Redim` it has no entries at all.
template <class T>
class DynamicArray {
 public:
  /// Sets the bounds to 0 to `highest`, with every entry fresh. Throws the subscript fault for a
  /// negative one.
  template <Index I>
  void Redim(I highest) {
    const std::size_t places = PlacesUpTo(highest);
    items_.clear();
    items_.resize(places);
  }
  /// Sets the bounds to 0 to `highest` and keeps what lies inside of them.
  template <Index I>
  void RedimPreserve(I highest) {
    items_.resize(PlacesUpTo(highest));
  }

  template <Index I>
  T& operator[](I index) {
    return items_[CheckedPosition(index, items_.size())];
  }
  template <Index I>
  const T& operator[](I index) const {
    return items_[CheckedPosition(index, items_.size())];
  }

  /// The entries below `count`; throws the subscript fault if there are less.
  template <Index I>
  std::span<T> First(I count) {
    return std::span<T>(items_).first(CheckedPosition(count, items_.size() + 1));
  }
  template <Index I>
  std::span<const T> First(I count) const {
    return std::span<const T>(items_).first(CheckedPosition(count, items_.size() + 1));
  }

  std::size_t size() const { return items_.size(); }
  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::vector<T> items_;
};

}  // namespace quillmark
