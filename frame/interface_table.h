#pragma once

#include <string>

#include "platform/bounded_array.h"

namespace quillmark {

inline constexpr int kInterfaceEntries = 4097;

/// All captions and messages of the program, by number. Empty until `LoadInterfaceLanguage`.
extern FixedArray<std::string, kInterfaceEntries> InterfaceTable;

/// The names of the entries, as `interface.h` lists them.
extern FixedArray<std::string, kInterfaceEntries> InterfaceNames;

/// Fills `InterfaceTable` from `language.bin` in the program's folder, appending to what the
/// entries hold. False if the file does not begin with the magic number; a missing file is made,
/// empty, and counts as such. Throws the subscript fault for a text past the last place.
bool ReadInterfaceTable();

/// Shows `InterfaceTable[entry]` as an error, under the title of all error boxes.
void ShowErrorEntry(int entry);

/// Asks `text` with Yes and No under the title of all questions; true for Yes.
bool AskQuestion(const std::string& text);

}  // namespace quillmark
