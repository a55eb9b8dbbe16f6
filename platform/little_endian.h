#pragma once

#include <string>

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

}  // namespace quillmark
