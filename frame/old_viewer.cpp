#include "core/script_model.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "frame/dialogs.h"
#include "platform/number_text.h"

namespace quillmark {
namespace {

void ListLevels() {
  for (int level = 0; level < TRScript.NumLevels; ++level) {
    OldPrototipe.lstLevels.AddRow("Level # " + std::to_string(level));
  }
}

void ShowLevelBytes() {
  OldPrototipe.lstScriptData.Clear();
  const LevelRawEntry& level = TRScript.LevelRaw[OldPrototipe.lstLevels.Row()];
  for (int i = 0; i < level.Length; ++i) {
    const Byte byte = level.Bytes[i];
    OldPrototipe.lstScriptData.AddRow(HexText(byte.value()) + " (" + DecimalText(byte) + ")");
  }
}

}  // namespace

void AttachOldViewer() {
  OldPrototipe.onLoad = ListLevels;
  OldPrototipe.lstLevels.onSelect = ShowLevelBytes;
  frmEditor.Command27.onPress = [] { OldPrototipe.ShowModal(); };
}

}  // namespace quillmark
