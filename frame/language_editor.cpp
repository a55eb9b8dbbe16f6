#include <algorithm>

#include "controls/desktop.h"
#include "forms/apply_texts.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "forms/interface_texts.h"
#include "frame/apply_language.h"
#include "frame/dialogs.h"
#include "frame/settings.h"
#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {
namespace {

constexpr int kNamesNumber = 5;
constexpr int kTableNumber = 6;
constexpr int kListWidth = 7200;
constexpr int kEntryColumn = 1;
constexpr int kTextColumn = 2;

void ListEntries() {
  Files.OpenInput(kNamesNumber, ProgramPath("interface.h"));
  for (int entry = 0; !Files.EndOfFile(kNamesNumber); ++entry) {
    InterfaceNames[entry] = Files.ReadField(kNamesNumber);
    frmLangEditor.l.AddRow({InterfaceNames[entry], InterfaceTable[entry]});
  }
  Files.Close(kNamesNumber);
}

void LoadLanguageEditor() {
  frmLangEditor.Text1.SetText(Settings.InterfaceFile);
  // So that the name is in sight and not the blanks behind it.
  frmLangEditor.Text1.SelectText(0, 0);
  ApplyTexts(frmLangEditor);
  ListEntries();
  for (const int column : {kEntryColumn, kTextColumn}) {
    frmLangEditor.l.SetColumnWidth(column, kListWidth / 2);
  }
}

void ShowTranslation() {
  const std::string text = frmLangEditor.l.Cell(frmLangEditor.l.SelectedRow(), kTextColumn);
  frmLangEditor.txtString.SetText(text);
  frmLangEditor.txtString.TakeFocus();
  frmLangEditor.txtString.SelectAll();
}

void TakeTranslation() {
  frmLangEditor.l.SetCell(frmLangEditor.l.SelectedRow(), kTextColumn,
                          frmLangEditor.txtString.Text());
}

void ReloadInterface() {
  std::fill(InterfaceTable.begin(), InterfaceTable.end(), std::string());
  LoadInterfaceLanguage();
  ApplyInterfaceLanguage();
}

void Save() {
  Files.Close(kTableNumber);  // kept as it is: the log gives up its number
  Files.OpenBinary(kTableNumber, ProgramPath(InterfaceFileName()));
  Files.WriteText(kTableNumber, kTableMagic);
  for (int row = 0; row < frmLangEditor.l.Count(); ++row) {
    Files.WriteText(kTableNumber, frmLangEditor.l.Cell(row, kTextColumn));
    Files.WriteByte(kTableNumber, 0);
  }
  Files.Close(kTableNumber);
  ReloadInterface();
}

void ChooseFile() {
  StoreInterfaceFile(TheDesktop().AskFile(
      {.title = "Select language file", .filter = "Language files (*.bin)|*.bin"}));
  ReloadInterface();
  frmLangEditor.Load();
}

}  // namespace

void AttachLanguageEditor() {
  frmLangEditor.onLoad = LoadLanguageEditor;
  frmLangEditor.l.onItemClick = ShowTranslation;
  frmLangEditor.txtString.onChange = TakeTranslation;
  frmLangEditor.Command1.onPress = [] { UnlessCancelled(ChooseFile); };
  frmLangEditor.Command2.onPress = Save;
  frmLangEditor.Command3.onPress = [] { frmLangEditor.Unload(); };
  frmEditor.Command28.onPress = [] { frmLangEditor.ShowModal(); };
}

}  // namespace quillmark
