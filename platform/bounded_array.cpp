#include "platform/bounded_array.h"

#include <string>

#include "platform/fault.h"

namespace quillmark {

void ThrowSubscript(std::int64_t index, std::int64_t highest) {
  const std::string bounds =
      highest < 0 ? std::string("an empty array") : "the bounds 0 to " + std::to_string(highest);
  throw Fault(FaultKind::Subscript,
              "the index " + std::to_string(index) + " lies outside of " + bounds,
              BesideBound(index, 0, highest));
}

}  // namespace quillmark
