#pragma once

#include <concepts>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/checked_integer.h"

namespace quillmark {

/// Fills `values` from the front of `bytes`, which has enough for them, the lowest byte of each
/// first.
template <std::integral Raw>
void TakeNumbers(std::string_view bytes, std::span<CheckedInteger<Raw>> values) {
  using Bits = std::make_unsigned_t<Raw>;
  for (std::size_t v = 0; v < values.size(); ++v) {
    Bits bits = 0;
    for (std::size_t i = 0; i < sizeof(Raw); ++i) {
      const Bits byte = static_cast<unsigned char>(bytes[v * sizeof(Raw) + i]);
      bits = static_cast<Bits>(bits | byte << 8 * i);
    }
    values[v] = static_cast<Raw>(bits);
  }
}

/// Puts numbers behind `bytes`, the lowest byte of each first.
template <class Number>
void AppendNumbers(std::string& bytes, std::span<Number> values) {
  using Raw = typename Number::RawType;
  const std::size_t size = bytes.size();
  bytes.resize(size + sizeof(Raw) * values.size());
  const std::span<char> places = std::span<char>(bytes).subspan(size);
  for (std::size_t v = 0; v < values.size(); ++v) {
    const auto bits = static_cast<std::make_unsigned_t<Raw>>(values[v].value());
    for (std::size_t i = 0; i < sizeof(Raw); ++i) {
      places[v * sizeof(Raw) + i] = static_cast<char>(bits >> 8 * i);
    }
  }
}

template <std::integral Raw>
void AppendNumber(std::string& bytes, CheckedInteger<Raw> value) {
  AppendNumbers(bytes, std::span(&value, 1));
}

}  // namespace quillmark
