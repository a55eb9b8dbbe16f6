#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/checked_integer.h"

namespace quillmark {

/// The digit test of all numeric boxes: whether every character is "0" to "9". An empty text fails.
bool IsAllDigits(std::string_view text);

/// The number that `text` begins with, behind blanks and with a sign and a fraction if there are
/// any, rounded to the nearest whole one; 0 if it begins with none. A number that no field of the
/// model can hold comes back as one that no field can hold either.
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

}  // namespace quillmark
