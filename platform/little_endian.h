#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/checked_integer.h"

namespace quillmark {

/// Puts a number behind `bytes`, lowest byte first.
inline void AppendNumber(std::string& bytes, Byte value) {
  bytes += static_cast<char>(value.value());
}

inline void AppendNumber(std::string& bytes, Int16 value) {
  const auto bits = static_cast<std::uint16_t>(value.value());
  bytes += static_cast<char>(bits & 0xFFU);
  bytes += static_cast<char>(bits >> 8U);
}

inline void AppendNumber(std::string& bytes, Int32 value) {
  const auto bits = static_cast<std::uint32_t>(value.value());
  AppendNumber(bytes, Int16(static_cast<std::int16_t>(bits & 0xFFFFU)));
  AppendNumber(bytes, Int16(static_cast<std::int16_t>(bits >> 16U)));
}

/// The number whose two bytes begin at `position`.
inline Int16 Int16At(std::string_view bytes, std::size_t position) {
  const auto low = static_cast<unsigned char>(bytes[position]);
  const auto high = static_cast<unsigned char>(bytes[position + 1]);
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(low | high << 8U));
}

}  // namespace quillmark
