#pragma once

#include <vector>

#include "core/script_copy.h"

namespace quillmark {

/// Puts the files into a new folder of `recovered` in the program's own folder, named by date and
/// time, together with a note that says what they are. The folder gets its name when it is whole.
/// Then the oldest folders go until ten are left, but for those in which anything is not as it was
/// made. Throws the file fault and the faults of the standard library's file system.
void PutIntoRecoveryFolder(const std::vector<FileCopy>& files);

}  // namespace quillmark
