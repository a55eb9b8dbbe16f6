#pragma once

#include <string>

#include "forms/interface_entries.h"
#include "platform/bounded_array.h"

namespace quillmark {

inline constexpr int kInterfaceEntries = 4097;

/// All captions and messages of the program, by number. Empty until the interface's language is
/// loaded.
extern FixedArray<std::string, kInterfaceEntries> InterfaceTable;

/// The names of the entries, as `interface.h` lists them.
extern FixedArray<std::string, kInterfaceEntries> InterfaceNames;

/// The text of `entry` in the interface's language.
const std::string& TextOf(Entry entry);

/// Shows the text of `entry` as an error, under the title of all error boxes.
void ShowErrorEntry(Entry entry);

/// Asks `text` under the title of all questions before something goes for good; true for Yes.
bool AskQuestion(const std::string& text);

}  // namespace quillmark
