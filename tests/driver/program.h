#pragma once

#include <string>

#include "driver/driver_text.h"

namespace quillmark {

/// Starts the whole program on the display that is attached.
void StartProgram();

/// Runs a public operation that no control is bound to; throws `CommandError` for an unknown one.
bool CallOperation(const std::string& name);

/// The script in memory, with every field.
Json ScriptListing();

/// What the program holds besides script and controls.
Json ProgramState();

}  // namespace quillmark
