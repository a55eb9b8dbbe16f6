#include "editor/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>

#include "platform/fault.h"

namespace quillmark {
namespace {

/// Far outside of every field, and still a whole number that fits.
constexpr double kHuge = 1e15;

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

/// Takes the number in front off `text`; nothing if there is none.
std::optional<std::int64_t> TakeNumber(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const bool negative = text.starts_with('-');
  std::string_view digits = text;
  if (negative || digits.starts_with('+')) digits.remove_prefix(1);
  if (digits.empty() || !(IsDigit(digits.front()) || digits.front() == '.')) return std::nullopt;

  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value,
                                            std::chars_format::fixed);
  if (error == std::errc::invalid_argument) return std::nullopt;
  if (error == std::errc::result_out_of_range) value = kHuge;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  const double whole = std::nearbyint(std::min(value, kHuge));
  return static_cast<std::int64_t>(negative ? -whole : whole);
}

}  // namespace

bool IsAllDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

std::int64_t NumberAtStart(std::string_view text) { return TakeNumber(text).value_or(0); }

std::int64_t WholeNumber(std::string_view text) {
  std::string_view rest = text;
  const std::optional<std::int64_t> number = TakeNumber(rest);
  if (!number || rest.find_first_not_of(' ') != std::string_view::npos) {
    throw Fault(FaultKind::Type, "\"" + std::string(text) + "\" is not a number");
  }
  return *number;
}

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
