#include "editor/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

#include "platform/number_text.h"

namespace quillmark {
namespace {

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

}  // namespace

bool IsAllDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

std::int64_t NumberAtStart(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  // The conversion would take words such as "inf" too.
  if (text.empty() || !(IsDigit(text.front()) || text.front() == '.')) return 0;
  double value = 0;
  const auto result =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (result.ec == std::errc::result_out_of_range) {
    const bool tooGreat = text.find_first_of("123456789") < text.find('.');
    value = tooGreat ? std::numeric_limits<double>::max() : 0;
  }
  const std::int64_t whole = RoundedNumber(value);
  return negative ? -whole : whole;
}

std::int64_t WholeNumber(std::string_view text) { return RoundedNumber(RequireNumber(text)); }

std::uint64_t HexAtStart(std::string_view text) {
  std::uint64_t value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint64_t>::max()
                                                     : value;
}

std::string HexText(std::uint32_t value) {
  std::array<char, 8> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16);
  std::string text(digits.data(), result.ptr);
  std::transform(text.begin(), text.end(), text.begin(), [](char digit) {
    return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
  });
  return text;
}

}  // namespace quillmark
