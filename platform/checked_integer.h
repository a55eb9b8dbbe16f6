#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

namespace quillmark {

/// Throws the overflow fault that names `value` and the range that it misses.
[[noreturn]] void ThrowOverflow(std::int64_t value, std::int64_t lowest, std::int64_t highest);

/// A whole number of fixed width that never leaves its range: a store of a value outside of it
/// throws the overflow fault, and so does arithmetic whose result would not fit.
///
///     Int16 offset = 32767;
///     offset + 1;            // overflow fault
///     Byte count = 0;
///     count - 1;             // -1: a byte computes with plain numbers as an Int16
template <std::integral Raw>
class CheckedInteger {
 public:
  using RawType = Raw;

  constexpr CheckedInteger() = default;

  template <std::integral From>
  requires(!std::same_as<From, bool>) constexpr CheckedInteger(From value)
      : value_(Narrow(value)) {}

  template <std::integral From>
  constexpr CheckedInteger(CheckedInteger<From> other) : value_(Narrow(other.value())) {}

  constexpr Raw value() const { return value_; }
  constexpr operator Raw() const { return value_; }

  constexpr CheckedInteger& operator+=(std::int64_t amount) { return *this = Wide() + amount; }
  constexpr CheckedInteger& operator-=(std::int64_t amount) { return *this = Wide() - amount; }
  constexpr CheckedInteger& operator++() { return *this += 1; }
  constexpr CheckedInteger& operator--() { return *this -= 1; }

 private:
  constexpr std::int64_t Wide() const { return value_; }

  template <std::integral From>
  static constexpr Raw Narrow(From value) {
    if (!std::in_range<Raw>(value)) {
      ThrowOverflow(static_cast<std::int64_t>(value), std::numeric_limits<Raw>::min(),
                    std::numeric_limits<Raw>::max());
    }
    return static_cast<Raw>(value);
  }

  Raw value_ = 0;
};

using Byte = CheckedInteger<std::uint8_t>;
using Int16 = CheckedInteger<std::int16_t>;
using Int32 = CheckedInteger<std::int32_t>;

/// The type that checked arithmetic is done in: the wider operand's, and at least 16 bits.
template <std::integral A, std::integral B>
using ArithmeticType =
    std::conditional_t<(sizeof(A) > 2 || sizeof(B) > 2), std::int32_t, std::int16_t>;

template <std::integral A, std::integral B>
constexpr auto operator+(CheckedInteger<A> a, CheckedInteger<B> b) {
  return CheckedInteger<ArithmeticType<A, B>>(std::int64_t{a.value()} + b.value());
}
template <std::integral A, std::integral B>
constexpr auto operator-(CheckedInteger<A> a, CheckedInteger<B> b) {
  return CheckedInteger<ArithmeticType<A, B>>(std::int64_t{a.value()} - b.value());
}

// A plain number takes part as a value of the checked operand's own arithmetic type.
template <std::integral A, std::integral B>
constexpr auto operator+(CheckedInteger<A> a, B b) {
  return a + CheckedInteger<ArithmeticType<A, A>>(b);
}
template <std::integral A, std::integral B>
constexpr auto operator-(CheckedInteger<A> a, B b) {
  return a - CheckedInteger<ArithmeticType<A, A>>(b);
}

/// The on/off words of the model: only -1 counts as on.
inline constexpr std::int16_t kOn = -1;
inline constexpr std::int16_t kOff = 0;
constexpr bool IsOn(Int16 word) { return word.value() == kOn; }
constexpr Int16 OnOff(bool on) { return on ? kOn : kOff; }

}  // namespace quillmark
