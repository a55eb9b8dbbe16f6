#pragma once

#include <string>

#include "tools/script/json_reader.h"

namespace quillmark {

/// Reads the fields of the reader's game that `object` has, which stands at `place`; those that it
/// lacks or that can't be read stay as they are. What is wrong goes to `reader`, and so does what
/// is said of a reference's text. The names of all members that there may be go to `known`. For a
/// `ScriptModel`, `LevelRecord`, `LevelObject` or `CutEntry`. False if it is no object at all; then
/// all fields have failed.
template <class Record>
bool ReadFields(JsonReader& reader, const Json& object, const std::string& place, Record& record,
                JsonReader::Names& known);

}  // namespace quillmark
