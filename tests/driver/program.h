#pragma once

#include <string>

#include "driver/driver_text.h"

namespace quillmark {

/// Runs a public operation that no control is bound to; throws `CommandError` for an unknown one.
bool CallOperation(const std::string& name);

/// What the program holds besides script and controls.
Json ProgramState();

}  // namespace quillmark
