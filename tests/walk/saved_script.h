#pragma once

#include <string>

namespace quillmark {

/// Loads the script that was just saved at `path`, and compares what a save keeps with the model;
/// then brings the model back. Throws a `Finding`. Nothing is compared of a script that holds what
/// no reader understands, such as an object whose number has no opcode.
void CheckSavedScript(const std::string& path);

}  // namespace quillmark
