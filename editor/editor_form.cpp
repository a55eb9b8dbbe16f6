#include "editor/editor_form.h"

#include <string>

#include "platform/fault.h"

namespace quillmark {

EditorModule EditorMod;

LevelRecord& SelectedLevel() {
  const int row = frmEditor.lstLevels.Row();
  if (row < 0) throw Fault(FaultKind::NoSelection, "no level is selected in the list of levels");
  if (static_cast<std::size_t>(row) >= TRScript.Levels.size()) {
    throw Fault(FaultKind::Subscript,
                "no level stands behind row " + std::to_string(row) + " of the list of levels");
  }
  return TRScript.Levels[row];
}

void SelectValue(ComboBox& combo, int row, const char* value) {
  if (row >= combo.Count()) {
    throw Fault(FaultKind::InvalidValue, std::string(value) + " is number " + std::to_string(row) +
                                             ", but the list " + combo.FullName() +
                                             " offers only " + std::to_string(combo.Count()) +
                                             ", counted from 0");
  }
  combo.Select(row);
}

void AttachEditor() {
  AttachLevelList();
  AttachLevelFields();
  AttachMirrorAssistant();
  AttachObjectList();
  AttachFilmList();
  AttachFileNames();
  AttachScriptCommands();
}

}  // namespace quillmark
