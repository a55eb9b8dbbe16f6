#include "strings/level_rows.h"

#include "forms/editor_controls.h"
#include "forms/fault_texts.h"
#include "forms/interface_texts.h"
#include "platform/fault.h"
#include "strings/language_files.h"

namespace quillmark {

LevelRecord& SelectedLevel() {
  const int row = frmEditor.lstLevels.Row();
  if (row < 0) throw Fault(FaultKind::NoSelection, "no level is selected in the list of levels");
  if (static_cast<std::size_t>(row) >= TRScript.Levels.size()) {
    throw ToldFault(FaultKind::Subscript,
                    "no level stands behind row " + std::to_string(row) + " of the list of levels",
                    Entry::RowWithoutLevel);
  }
  return TRScript.Levels[row];
}

void RebuildLevelRows() {
  ListBox& list = frmEditor.lstLevels;
  list.Clear();
  list.AddRow(TextOf(Entry::TitleLevelRow));
  for (int i = 1; i < TRScript.NumLevels; ++i) list.AddRow(LevelName(i));
}

const std::string& LevelName(int level) {
  return StringsMod.StringPool[TRScript.Levels[level].NameString];
}

}  // namespace quillmark
