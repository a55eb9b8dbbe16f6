#pragma once

#include <string_view>
#include <vector>

namespace quillmark {

/// Starts the process on the attached display: ties all forms to their handlers and shows the
/// splash form, whose timer then brings up the main form. A fault on the way ends the process with
/// the platform's message.
void StartProcess();

/// An operation of the program that no control is bound to.
struct PublicOperation {
  std::string_view name;
  void (*run)();
};

/// All of them. What they throw, their own headers tell.
const std::vector<PublicOperation>& PublicOperations();

}  // namespace quillmark
