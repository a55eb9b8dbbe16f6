#include "editor/editor_form.h"

#include <string>

#include "platform/fault.h"

namespace quillmark {

EditorModule EditorMod;

void SelectValue(ComboBox& combo, int row, const char* value) {
  if (row >= combo.Count()) {
    throw Fault(FaultKind::InvalidValue,
                std::string(value) + " is number " + std::to_string(row) + ", but the list " +
                    combo.FullName() + " offers only " + std::to_string(combo.Count()) +
                    ", counted from 0",
                BesideBound(row, 0, combo.Count() - 1));
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
