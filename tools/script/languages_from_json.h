#pragma once

#include "tools/script/json_reader.h"
#include "tools/script/script_value.h"

namespace quillmark {

/// The place of the languages. If it is marked as failed, nobody knows which strings there are.
inline constexpr const char* kLanguagesPlace = "/Languages";

/// Loads each language of the object `languages`, which may be null, into its slot of `value`. What
/// is wrong goes to `reader`: unknown languages, counts that don't agree with the strings, and
/// strings that no language file can hold.
void ReadLanguages(JsonReader& reader, const Json* languages, ScriptValue& value);

}  // namespace quillmark
