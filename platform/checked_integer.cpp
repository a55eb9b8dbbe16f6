#include "platform/checked_integer.h"

#include <string>

#include "platform/fault.h"

namespace quillmark {

void ThrowOverflow(std::int64_t value, std::int64_t lowest, std::int64_t highest) {
  throw Fault(FaultKind::Overflow,
              "the number " + std::to_string(value) + " lies outside of " + std::to_string(lowest) +
                  " to " + std::to_string(highest),
              BesideBound(value, lowest, highest));
}

}  // namespace quillmark
