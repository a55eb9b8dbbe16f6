#pragma once

#include <functional>
#include <string>

#include "core/script_model.h"
#include "forms/editor_controls.h"
#include "strings/level_rows.h"

namespace quillmark {

/// What the main form keeps besides its controls, for the life of the process.
struct EditorModule {
  LevelRecord ClipboardLevel;  ///< also the swap space of the moves
  Int16 ClipboardFull;
  LevelObject ObjectClip;
  std::string LastScript;  ///< the path that was loaded or saved last
};
extern EditorModule EditorMod;

// The panel.

/// Refills the whole panel from the selected level. Runs without a guard: what it writes raises the
/// controls' events, and their handlers' effects are part of the refresh. Throws the missing
/// selection fault, and the invalid value fault for a value that its combo has no row for.
void Update3();

/// Adapt the panel to the game, once at the end of a load.
void BuildInterfaceTr4();
void BuildInterfaceTr5();

/// Selects `row` in `combo`; throws the invalid value fault, in words about `value`, if the combo
/// does not offer it.
void SelectValue(ComboBox& combo, int row, const char* value);

// The level list.

/// Copies one record into another, field by field and not as a whole: see the list in
/// level_list.cpp for what a copy holds.
void CopyLevel(const LevelRecord& source, LevelRecord& target);

// The object and film lists.

/// Fills `lstObj` anew from the selected level. Throws the missing selection fault, and the invalid
/// value fault for an object whose string `cmbString` does not offer.
void RefillObjects();

/// Adds a row to `lstCuts` for each cutscene of the selected level. Throws the missing selection
/// fault.
void ShowCuts();

/// Disables the button that deletes a cutscene if the selected level has none; nothing is enabled.
/// Throws the missing selection fault.
void DisableCutDeleteWithoutCuts();

/// The place in `Objects` of the object in the selected row of `lstObj`, as its last cell says.
/// Throws the missing selection fault.
int SelectedObject();

/// The four buttons that need objects: change, delete, copy and paste.
void EnableObjectButtons(bool enabled);

// Public operations of the form.

/// Asks for a folder of language files and starts an empty script beside them. Tells of a language
/// that can't be read and goes on. Throws the invalid value fault where none becomes the primary
/// one.
void New();

/// Asks for the script's path and writes it and all loaded languages; a failure ends in an error
/// box. Throws nothing but the faults of its dialogs.
void SaveScriptProc();

/// Shows the box about the program. No control is bound to it.
void ShowAbout();

/// Who is told of what happens to the script as a whole, and must not throw. Routines that are left
/// empty are passed over.
struct ScriptListeners {
  std::function<void()> replacing;  ///< Load or New begins, and all is still as it was
  std::function<void()> replaced;   ///< it is over, whatever came of it
  std::function<void()> saved;      ///< the script and its languages are on disk
};
/// Names who is told from now on.
void SetScriptListeners(ScriptListeners listeners);

// Each attaches the handlers of its subject; together once, before the main form is loaded.

void AttachLevelList();
void AttachLevelFields();
void AttachMirrorAssistant();
void AttachObjectList();
void AttachFilmList();
void AttachFileNames();
void AttachScriptCommands();
/// All of the above.
void AttachEditor();

}  // namespace quillmark
