#pragma once

#include <optional>
#include <string_view>

#include "platform/checked_integer.h"

namespace quillmark {

/// The number that a text stands for; nothing if it is not numeric. A numeric text has, in this
/// order: any blanks; at most one sign, + or -; digits with at most one decimal point among them,
/// at least one digit; at most one exponent, which is E or D in either case, at most one sign and
/// at least one digit; any blanks. So " 25 ", "+25", "25.", ".5", "-1" and "2e1" are numeric; "",
/// ".", "1,5", "1 5", "0x19", "25 fps" are not, and neither is a number too great for a 64-bit
/// float.
std::optional<double> NumberOf(std::string_view text);

/// The same; throws the type fault for a text that is not numeric.
double RequireNumber(std::string_view text);

/// `number` as the nearest whole one, a half going to the even neighbour. Throws the overflow fault
/// for a result outside of 32 bits.
Int32 RoundedNumber(double number);

}  // namespace quillmark
