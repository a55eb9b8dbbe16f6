#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

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

}  // namespace quillmark
