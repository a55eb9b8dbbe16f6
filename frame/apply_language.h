#pragma once

namespace quillmark {

/// Fills the empty `InterfaceTable` from `language.bin`. A file with a bad head ends the process
/// after the box that says so. Throws the subscript fault for a text past the last place.
void LoadInterfaceLanguage();

/// Writes the table into the main form and the four dialogs. Those are loaded for it and unloaded
/// again, with all effects of their loads; one that is open is closed. Throws what their loads
/// throw: the file fault without `interface.h`, the subscript fault for a language with fewer
/// strings than the primary one.
void ApplyInterfaceLanguage();

}  // namespace quillmark
