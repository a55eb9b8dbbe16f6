#include <string>
#include <string_view>
#include <vector>

#include "controls/desktop.h"
#include "editor/editor_form.h"
#include "forms/interface_texts.h"
#include "platform/fault.h"
#include "platform/files.h"

namespace quillmark {
namespace {

constexpr std::string_view kFolder = "DATA\\";

bool StandsInFolder(const std::string& name) { return UpperCased(name).starts_with(kFolder); }

/// Fills the lists anew, name by name in turn, and shows the selected level's file name again.
void Refill(const std::vector<TextRows*>& lists) {
  for (TextRows* list : lists) list->Clear();
  for (int i = 0; i < TRScript.NumFileNames; ++i) {
    for (TextRows* list : lists) list->AddRow(TRScript.FileNames[i]);
  }
  SelectValue(frmEditor.cmbFN, SelectedLevel().FileNameIndex, "the selected level's file name");
}

/// Kept as it is: the test looks at the number of levels, not at that of the names.
bool RefuseForLevels() {
  if (TRScript.NumLevels != kMostLevels) return false;
  ShowErrorEntry(Entry::TooManyLevels);
  return true;
}

void AddFileName() {
  if (RefuseForLevels()) return;
  const std::string answer =
      TheDesktop()
          .AskText({TextOf(Entry::AddFileNamePrompt), TextOf(Entry::AddFileNameTitle), ""})
          .value_or("");
  if (answer.empty()) return;
  if (StandsInFolder(answer)) {
    ShowErrorEntry(Entry::FileNameRefused);
    return;
  }
  const std::string name = std::string(kFolder) + answer;
  frmEditor.lstFileNames.AddRow(name);
  // Kept as it is: the list has taken the row by then.
  if (TRScript.NumFileNames == kMostFileNames) {
    throw Fault(FaultKind::Overflow,
                "a script holds at most " + std::to_string(kMostFileNames) + " file names",
                BesideBound(kMostFileNames + 1, 0, kMostFileNames));
  }
  ++TRScript.NumFileNames;
  TRScript.FileNames.RedimPreserve(TRScript.NumFileNames);
  TRScript.FileNames[frmEditor.lstFileNames.Count() - 1] = name + '\0';
  TheDesktop().TheScreen().RevealRow(frmEditor.lstFileNames, frmEditor.lstFileNames.Count() - 1);
  Refill({&frmEditor.cmbFN});
}

void RefuseName(const std::string& explanation) {
  TheDesktop().ShowError(TextOf(Entry::Error), "Nome file non valido" + explanation);
}

void ChangeFileName() {
  const int row = frmEditor.lstFileNames.Row();
  if (row < 0) {
    ShowErrorEntry(Entry::NoFileNameSelected);
    return;
  }
  const std::string answer =
      TheDesktop()
          .AskText({"Inserire nome:", "Aggiungi nome file", TRScript.FileNames[row]})
          .value_or("");
  if (answer.empty()) return;
  if (UpperCased(answer) == kFolder) {
    RefuseName("");
    return;
  }
  if (!StandsInFolder(answer)) {
    RefuseName("\n\nDevi usare il seguente formato: DATA\\<nome file>");
    return;
  }
  TRScript.FileNames[row] = answer + '\0';
  Refill({&frmEditor.cmbFN, &frmEditor.lstFileNames});
}

void Remove() {
  ListBox& list = frmEditor.lstFileNames;
  const int row = list.Row();
  if (row < 0) {
    ShowErrorEntry(Entry::NoFileNameSelected);
    return;
  }
  if (!AskQuestion(TextOf(Entry::RemoveFileNameQuestion) + list.Text() + "'?")) return;
  if (TRScript.NumFileNames == TRScript.NumLevels) {
    ShowErrorEntry(Entry::AsManyFileNamesAsLevels);
    return;
  }
  if (row == 0) {
    ShowErrorEntry(Entry::CannotRemoveFirstFileName);
    return;
  }
  // Kept as it is: the levels are not renumbered.
  for (int i = row; i < list.Count(); ++i) {
    TRScript.FileNames[i] = TRScript.FileNames[i + 1];
  }
  --TRScript.NumFileNames;
  Refill({&list, &frmEditor.cmbFN});
}

void EraseAllFileNames() {
  if (!TheDesktop().AskYesNo("Eliminazione nomi file", "Eliminare tutti i nomi file?")) return;
  frmEditor.lstFileNames.Clear();
  frmEditor.lstFileNames.AddRow(TRScript.FileNames[0]);
  TRScript.NumFileNames = 1;
}

}  // namespace

void AttachFileNames() {
  frmEditor.Command1.onPress = AddFileName;
  frmEditor.Command16.onPress = ChangeFileName;
  frmEditor.Command2.onPress = Remove;
  frmEditor.lstFileNames.onKeyPress = [](Key key) {
    if (key.code == KeyCode::Delete) Remove();
  };
  frmEditor.lstFileNames.onMouseRelease = [](MouseButton button) {
    if (button == MouseButton::Right && TRScript.NumFileNames != 0) {
      TheDesktop().OpenPopup(frmEditor.popu2);
    }
  };
  frmEditor.mnuEraseAllFiles.onChoose = EraseAllFileNames;
}

}  // namespace quillmark
