#pragma once

#include <cstdint>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

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

/// A number beside the bound that it passes, `lowest` or `highest`: "256 > 255".
std::string BesideBound(std::int64_t number, std::int64_t lowest, std::int64_t highest);

/// A fault stops the running operation and passes to the nearest handler that is named for it. It
/// undoes nothing. `what()` is the whole text in English, without the kind's name.
class Fault : public std::runtime_error {
 public:
  Fault(FaultKind kind, const std::string& text, std::string about = {})
      : std::runtime_error(text), kind_(kind), about_(std::move(about)) {}

  FaultKind kind() const { return kind_; }
  /// What the fault is about, in no language: a path, a number beside the bound that it passes, a
  /// text that was refused. Empty if there is nothing of that sort.
  const std::string& about() const { return about_; }

 private:
  FaultKind kind_;
  std::string about_;
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
