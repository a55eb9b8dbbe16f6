#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "platform/fault.h"

namespace quillmark {
namespace {

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

}  // namespace

std::optional<double> NumberOf(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  if (text.starts_with("+-")) return std::nullopt;
  if (text.starts_with('+')) text.remove_prefix(1);

  std::string plain(text);
  std::replace(plain.begin(), plain.end(), 'D', 'e');
  std::replace(plain.begin(), plain.end(), 'd', 'e');
  // The conversion would take words such as "inf" too.
  if (plain.find_first_not_of("0123456789.+-eE") != std::string::npos) return std::nullopt;
  double number = 0;
  const char* const last = plain.data() + plain.size();
  const auto [end, error] = std::from_chars(plain.data(), last, number);
  if (error != std::errc() || end != last) return std::nullopt;
  return number;
}

double RequireNumber(std::string_view text) {
  const auto number = NumberOf(text);
  if (!number) {
    const std::string quoted = "'" + std::string(text) + "'";
    throw Fault(FaultKind::Type, quoted + " is not a number", quoted);
  }
  return *number;
}

std::int64_t RoundedNumber(double number) {
  constexpr double kHuge = 1e15;
  return static_cast<std::int64_t>(std::nearbyint(std::clamp(number, -kHuge, kHuge)));
}

bool IsAllDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

double ValueAtStart(std::string_view text) {
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
  return negative ? -value : value;
}

std::int64_t NumberAtStart(std::string_view text) { return RoundedNumber(ValueAtStart(text)); }

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

int DigitsAtStart(std::string_view text) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + end, number);
  return result.ec == std::errc::result_out_of_range ? std::numeric_limits<int>::max() : number;
}

}  // namespace quillmark
