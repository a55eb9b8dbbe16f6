#pragma once

#include <optional>
#include <string>

#include "tools/script/script_value.h"

namespace quillmark {

/// The script as text, one fact a line; of one level alone if it is named, which has to be there.
std::string ScriptText(const ScriptValue& value, std::optional<int> level);

}  // namespace quillmark
