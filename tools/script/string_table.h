#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/script/finding.h"
#include "tools/script/script_value.h"
#include "tools/script/whole_files.h"

namespace quillmark {

/// The strings of all languages side by side as a table for spreadsheets.
std::string StringTable(const ScriptValue& value);

/// The language files with the cells of the table that differ, under their names; none of a
/// language without a changed cell. Whatever can't be stored goes to `findings`, and then no file
/// is given.
std::vector<NewFile> TakeTable(ScriptValue value, std::string_view text, Findings& findings);

}  // namespace quillmark
