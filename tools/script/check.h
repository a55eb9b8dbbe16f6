#pragma once

#include <cstdint>
#include <optional>

#include "tools/script/finding.h"
#include "tools/script/script_value.h"

namespace quillmark {

/// What is wrong with a script of that game or at a limit, and what a save in the editor would
/// change; also of one that can't be loaded.
Findings CheckScript(const ScriptSource& source, std::uint8_t game);

}  // namespace quillmark
