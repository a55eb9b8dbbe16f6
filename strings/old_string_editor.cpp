#include "forms/editor_controls.h"
#include "forms/fault_texts.h"
#include "forms/interface_texts.h"
#include "forms/string_forms.h"
#include "platform/fault.h"
#include "strings/language_files.h"
#include "strings/level_rows.h"
#include "strings/string_editors.h"

namespace quillmark {
namespace {

/// Appends the first `NumStrings` of the pool to each of the controls.
void AddStrings(std::initializer_list<TextRows*> controls) {
  for (int i = 0; i < StringsMod.NumStrings; ++i) {
    for (TextRows* control : controls) control->AddRow(StringsMod.StringPool[i]);
  }
}

void LoadOldEditor() {
  CenterForm(frmStrings);
  frmStrings.lstStringsText.clear();
}

void ShowOldRow() {
  frmStrings.txtString.SetText(frmStrings.lstStrings.Text());
  frmStrings.lstStringsText = std::to_string(frmStrings.lstStrings.Row());
}

void Apply() {
  if (frmStrings.lstStringsText.empty()) {
    throw ToldFault(FaultKind::Type, "no row of lstStrings has been clicked yet",
                    Entry::FaultNoSelection);
  }
  const int row = std::stoi(frmStrings.lstStringsText);
  StringsMod.StringPool[row] = frmStrings.txtString.Text() + '\0';
  frmStrings.lstStrings.Clear();
  AddStrings({&frmStrings.lstStrings});
}

void RefillLegends() {
  frmEditor.cmbLegend.Clear();
  frmEditor.cmbName.Clear();
  frmEditor.cmbLegend.AddRow(TextOf(Entry::NoLegendRow));
  AddStrings({&frmEditor.cmbLegend, &frmEditor.cmbName});
  const LevelRecord& level = SelectedLevel();
  frmEditor.cmbLegend.Select(IsOn(level.LegendOn) ? level.Legend.value() + 1 : 0);
}

void Accept() {
  RefillLegends();
  RebuildLevelRows();
  frmEditor.cmbString.Clear();
  AddStrings({&frmEditor.cmbString});
  frmStrings.Unload();
}

void AttachLetter(Button& button, char letter) {
  button.onPress = [letter] { frmStrings.txtString.SetText(frmStrings.txtString.Text() + letter); };
}

}  // namespace

void AttachOldStringEditor() {
  frmStrings.onLoad = LoadOldEditor;
  frmStrings.onShow = [] { frmStrings.lstStrings.Select(0); };
  frmStrings.lstStrings.onSelect = ShowOldRow;
  frmStrings.Command1.onPress = Apply;
  frmStrings.Command2.onPress = Accept;
  frmStrings.Command3.onPress = [] { frmStrings.Unload(); };
  AttachLetter(frmStrings.Command4, '\x85');
  AttachLetter(frmStrings.Command5, '\x8A');
  AttachLetter(frmStrings.Command6, '\x8D');
  AttachLetter(frmStrings.Command7, '\x95');
  AttachLetter(frmStrings.Command8, '\x97');
}

}  // namespace quillmark
