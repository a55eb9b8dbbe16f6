#pragma once

#include <string>
#include <vector>

#include "tools/script/script_value.h"
#include "tools/script/whole_files.h"

namespace quillmark {

/// The files of a script under their names: `SCRIPT.DAT` and each language that is loaded, as a
/// save in the editor writes them anew. Throws the fault of such a save.
std::vector<NewFile> ScriptFiles(const ScriptValue& value);

/// The bytes of one language file. Throws the file fault if the slot can't be written.
std::string LanguageFile(Language language, const LanguageSlot& slot);

}  // namespace quillmark
