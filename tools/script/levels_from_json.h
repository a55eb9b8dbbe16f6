#pragma once

#include "core/script_model.h"
#include "tools/script/json_reader.h"

namespace quillmark {

/// Makes the levels of the list `member`, which may be null, with their objects, cuts and lists
/// those of `script`. What is wrong goes to `reader`, whose game they are read as: too many or
/// unknown entries, and objects that the game has no opcode for. What can't be read stays zero.
void ReadLevels(JsonReader& reader, const Json* member, ScriptModel& script);

}  // namespace quillmark
