#pragma once

#include "core/script_model.h"

namespace quillmark {

/// The list of levels of the main form, whose rows are strings of the pool. The selected level has
/// no variable of its own: it is the selected row.

/// The record of the selected row of `lstLevels`. Throws the missing selection fault, and the
/// subscript fault for a row that no record stands behind.
LevelRecord& SelectedLevel();

/// Fills `lstLevels` anew with the names of all levels, with none selected. Throws the subscript
/// fault for a name that the string pool has no place for.
void RebuildLevelRows();

/// The name of that level, as the pool has it. Throws the subscript fault for a level or a name
/// that is not there.
const std::string& LevelName(int level);

}  // namespace quillmark
