#include "platform/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "platform/fault.h"

namespace quillmark {

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
  if (!number) throw Fault(FaultKind::Type, "'" + std::string(text) + "' is not a number");
  return *number;
}

std::int64_t RoundedNumber(double number) {
  constexpr double kHuge = 1e15;
  return static_cast<std::int64_t>(std::nearbyint(std::clamp(number, -kHuge, kHuge)));
}

}  // namespace quillmark
