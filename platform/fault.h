#pragma once

#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmark {

/// What went wrong below the level of a message to the user.
enum class FaultKind {
  Subscript,        ///< an index outside the bounds of an array
  Overflow,         ///< a result that does not fit its integer type
  Type,             ///< a text that is no number where a number is needed
  InvalidValue,     ///< a row that a control does not have
  InvalidArgument,  ///< a text too short for what is cut from it
  NoSelection,      ///< an operation on the selected row while none is selected
  File,             ///< a file that cannot be opened, read, written or deleted
  Memory,           ///< the system has no memory left to give
  Cancelled         ///< a file dialog that was cancelled
};

/// The error number that a cancelled file dialog raises.
inline constexpr int kCancelledNumber = 32755;

/// The kind in plain words, such as "subscript fault".
std::string_view FaultName(FaultKind kind);

/// A fault stops the running operation and passes to the nearest handler that is named for it. It
/// undoes nothing. `what()` is the text for people, without the kind's name.
class Fault : public std::runtime_error {
 public:
  Fault(FaultKind kind, const std::string& text) : std::runtime_error(text), kind_(kind) {}

  FaultKind kind() const { return kind_; }

 private:
  FaultKind kind_;
};

/// Whether the fault says that the system failed and not that the data was wrong.
bool IsOfSystem(FaultKind kind);

[[noreturn]] void ThrowMemoryFault();

/// Runs `steps` and gives what they give. Memory that they don't get is a fault like any other, so
/// that the handlers that are named for faults report it too.
template <class Steps>
decltype(auto) WithMemoryFaults(Steps&& steps) {
  try {
    return steps();
  } catch (const std::bad_alloc&) {
    ThrowMemoryFault();
  } catch (const std::length_error&) {  // more than any memory could hold
    ThrowMemoryFault();
  }
}

/// Thrown where the whole process has to end. It is no `Fault`, so that no handler can hold it up;
/// it is caught where the program's loop stands.
struct ProcessEnd {};

}  // namespace quillmark
