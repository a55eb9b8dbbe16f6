#pragma once

namespace quillmark {

/// Fills `InterfaceTable` from `language.bin` in the program's folder, appending to what the
/// entries hold. False if the file does not begin with the magic number; a missing file is made,
/// empty, and counts as such. Throws the subscript fault for a text past the last place.
bool ReadInterfaceTable();

}  // namespace quillmark
