#include "platform/fault.h"

namespace quillmark {

std::string_view FaultName(FaultKind kind) {
  switch (kind) {
    case FaultKind::Subscript:
      return "subscript fault";
    case FaultKind::Overflow:
      return "overflow fault";
    case FaultKind::Type:
      return "type fault";
    case FaultKind::InvalidValue:
      return "invalid value fault";
    case FaultKind::InvalidArgument:
      return "invalid argument fault";
    case FaultKind::NoSelection:
      return "missing selection fault";
    case FaultKind::File:
      return "file fault";
    case FaultKind::Memory:
      return "memory fault";
    case FaultKind::Cancelled:
      return "cancelled dialog";
  }
  return "fault";
}

bool IsOfSystem(FaultKind kind) { return kind == FaultKind::File || kind == FaultKind::Memory; }

void ThrowMemoryFault() { throw Fault(FaultKind::Memory, "there is not enough memory"); }

std::string BesideBound(std::int64_t number, std::int64_t lowest, std::int64_t highest) {
  return number < lowest ? std::to_string(number) + " < " + std::to_string(lowest)
                         : std::to_string(number) + " > " + std::to_string(highest);
}

}  // namespace quillmark
