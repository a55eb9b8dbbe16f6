#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/checked_integer.h"

namespace quillmark {

/// The number that a text stands for; nothing if it is not numeric. A numeric text has, in this
/// order: any blanks; at most one sign, + or -; digits with at most one decimal point among them,
/// at least one digit; at most one exponent, which is E or D in either case, at most one sign and
/// at least one digit; any blanks. So " 25 ", "+25", "25.", ".5", "-1" and "2e1" are numeric; "",
/// ".", "1,5", "1 5", "0x19", "25 fps" are not, and neither is a number beyond the range of a
/// 64-bit float, be it too great or too near to zero.
std::optional<double> NumberOf(std::string_view text);

/// The same; throws the type fault for a text that is not numeric.
double RequireNumber(std::string_view text);

/// `number` as the nearest whole one, a half going to the even neighbour. What lies beyond 1e15,
/// far outside of every field, comes back as that.
std::int64_t RoundedNumber(double number);

/// The digit test of all numeric boxes: whether every character is "0" to "9". An empty text fails.
bool IsAllDigits(std::string_view text);

/// The number that `text` begins with, behind blanks and with a sign and a fraction if there are
/// any; 0 if it begins with none. One beyond the range of a 64-bit float comes back as its
/// greatest.
double ValueAtStart(std::string_view text);

/// The same, rounded to the nearest whole one. A number that no field of the model can hold comes
/// back as one that no field can hold either.
std::int64_t NumberAtStart(std::string_view text);

/// The number that the whole of `text` is, rounded alike. Throws the type fault if it is none.
std::int64_t WholeNumber(std::string_view text);

/// The number of the hexadecimal digits that `text` begins with, 0 without any; too many of them
/// give the largest number.
std::uint64_t HexAtStart(std::string_view text);

/// `value` in capital hexadecimal, without leading zeros.
std::string HexText(std::uint32_t value);

template <std::integral Raw>
std::string DecimalText(CheckedInteger<Raw> value) {
  return std::to_string(value.value());
}

/// The number of the decimal digits that `text` begins with, 0 without any; too many of them give
/// the largest number.
int DigitsAtStart(std::string_view text);

}  // namespace quillmark
