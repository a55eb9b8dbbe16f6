#include "forms/apply_texts.h"
#include "forms/editor_controls.h"
#include "forms/string_forms.h"
#include "strings/language_files.h"
#include "strings/string_editors.h"

namespace quillmark {
namespace {

void LoadSearch() {
  ApplyTexts(fss);
  for (int i = 0; i < StringsMod.NumStrings; ++i) fss.l.AddRow(StringsMod.StringPool[i]);
}

void Open() {
  fss.Show();
  StringsMod.FindIndex = frmEditor.cmbString.Row();
  fss.l.Select(StringsMod.FindIndex);
  fss.KeepOnTop();
}

void TakeRow() {
  frmEditor.cmbString.Select(fss.l.Row());
  StringsMod.FindIndex = fss.l.Row();
}

void ReturnToObject(const LevelPanel& panel) {
  frmEditor.cmbString.Select(panel.selectedString());
  fss.l.Select(StringsMod.FindIndex);
}

void Find(const LevelPanel& panel) {
  const std::string& text = fss.txtFind.Text();
  if (text.empty()) {
    ReturnToObject(panel);
    return;
  }
  const int found = FindPoolString(text);
  if (found < 0) return;
  fss.l.Select(found);
  frmEditor.cmbString.Select(found);
}

}  // namespace

void AttachStringSearch(const LevelPanel& panel) {
  fss.onLoad = LoadSearch;
  fss.l.onSelect = TakeRow;
  fss.txtFind.onChange = [panel] { Find(panel); };
  frmEditor.Command32.onPress = Open;
}

}  // namespace quillmark
