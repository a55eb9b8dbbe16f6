#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/bounded_array.h"
#include "platform/checked_integer.h"
#include "platform/little_endian.h"

namespace quillmark {

/// Walks over bytes that outlive it. Behind their end stand zeros: no read fails, and the position
/// goes on. Numbers are little-endian.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

  /// Position of the next read, from 0.
  std::size_t Position() const { return position_; }
  /// What is left to read.
  std::string_view Rest() const { return bytes_.substr(std::min(position_, bytes_.size())); }

  /// As many numbers as `values` has places for.
  template <std::integral Raw>
  void ReadNumbers(std::span<CheckedInteger<Raw>> values) {
    static_assert(sizeof(CheckedInteger<Raw>) == sizeof(Raw));
    const std::size_t count = values.size_bytes();
    if (Rest().size() < count) {
      return TakeNumbers(ReadText(static_cast<std::int64_t>(count)), values);
    }
    TakeNumbers(Rest(), values);
    position_ += count;
  }
  template <std::integral Raw>
  void ReadInto(CheckedInteger<Raw>& value) {
    ReadNumbers(std::span(&value, 1));
  }
  template <class Number, std::size_t Count>
  void ReadInto(FixedArray<Number, Count>& values) {
    ReadNumbers(values.First(Count));
  }
  Byte ReadByte() {
    Byte value;
    ReadInto(value);
    return value;
  }
  /// `count` bytes; none for a negative count.
  std::string ReadText(std::int64_t count) {
    const auto wanted = static_cast<std::size_t>(std::max<std::int64_t>(count, 0));
    std::string text(Rest().substr(0, wanted));
    text.resize(wanted, '\0');
    position_ += wanted;
    return text;
  }

 private:
  std::string_view bytes_;
  std::size_t position_ = 0;
};

}  // namespace quillmark
