#pragma once

#include <string>
#include <string_view>

#include "tools/script/command_line.h"
#include "tools/script/script_value.h"

namespace quillmark {

/// Puts the text into the file that the user named, or on standard output. Throws `Trouble` if that
/// file is one that `source` was read from, and the file fault if it can't be written.
void PutOut(const std::string& text, const Arguments& arguments, const ScriptSource& source);

/// Throws `Trouble` if both paths lead to one file.
void RefuseToReplaceInput(std::string_view path, std::string_view input);

}  // namespace quillmark
