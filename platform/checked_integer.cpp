#include "platform/checked_integer.h"

#include "platform/bounded_array.h"

namespace quillmark {

void ThrowOverflow(std::int64_t value, std::int64_t lowest, std::int64_t highest) {
  throw Fault(FaultKind::Overflow, "the number " + std::to_string(value) + " lies outside of " +
                                       std::to_string(lowest) + " to " + std::to_string(highest));
}

void ThrowSubscript(std::int64_t index, std::int64_t highest) {
  const std::string bounds =
      highest < 0 ? std::string("an empty array") : "the bounds 0 to " + std::to_string(highest);
  throw Fault(FaultKind::Subscript,
              "the index " + std::to_string(index) + " lies outside of " + bounds);
}

}  // namespace quillmark
