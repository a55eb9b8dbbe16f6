#include <array>

#include "forms/apply_texts.h"
#include "forms/editor_controls.h"
#include "forms/string_forms.h"
#include "strings/language_files.h"
#include "strings/string_editors.h"

namespace quillmark {
namespace {

/// The languages by box; the box's column stands behind the one of the row numbers.
constexpr std::array<Language, kLanguageCount> kLanguages = {
    Language::ITALIAN, Language::ENGLISH, Language::US,   Language::GERMAN,
    Language::FRENCH,  Language::SPANISH, Language::JAPAN};
constexpr int kFirstColumn = 2;
constexpr int kShownWidth = 2200;

/// A letter that a keyboard types and the byte that the game's font draws for it.
struct Letter {
  char typed;
  char stored;
};
constexpr std::array<Letter, 5> kLetters = {
    {{'\xE0', '\x85'}, {'\xE8', '\x8A'}, {'\xEC', '\x8D'}, {'\xF2', '\x95'}, {'\xF9', '\x97'}}};

int ColumnOf(std::size_t box) { return static_cast<int>(box) + kFirstColumn; }

bool IsLoaded(std::size_t box) { return IsOn(Slot(kLanguages[box]).Loaded); }

void ShowLanguages() {
  for (std::size_t box = 0; box < kLanguages.size(); ++box) {
    Form2.ListView1.SetColumnWidth(ColumnOf(box), IsLoaded(box) ? kShownWidth : 0);
    Form2.txtString[box].SetEnabled(IsLoaded(box));
  }
}

void ListStrings() {
  for (int i = 0; i < StringsMod.NumStrings; ++i) {
    std::vector<std::string> cells = {std::to_string(i)};
    for (std::size_t box = 0; box < kLanguages.size(); ++box) {
      cells.push_back(IsLoaded(box) ? ShownText(Slot(kLanguages[box]).Strings[i]) : std::string());
    }
    Form2.ListView1.AddRow(std::move(cells));
  }
}

void LoadTable() {
  ApplyTexts(Form2);
  ShowLanguages();
  ListStrings();
  StringsMod.Copies = StringsMod.Slots;
}

void ShowTableRow() {
  // Kept as it is: the last box, of JAPAN, is passed over and keeps what it holds.
  const int row = Form2.ListView1.SelectedRow();
  for (std::size_t box = 0; box + 1 < kLanguages.size(); ++box) {
    Form2.txtString[box].SetText(Form2.ListView1.Cell(row, ColumnOf(box)));
  }
}

/// Kept as it is: the change of one box stores all seven.
void TakeTexts(std::size_t changedBox) {
  const int row = Form2.ListView1.SelectedRow();
  Form2.ListView1.SetCell(row, ColumnOf(changedBox), Form2.txtString[changedBox].Text());
  for (std::size_t box = 0; box < kLanguages.size(); ++box) {
    if (!IsLoaded(box)) continue;
    Slot(kLanguages[box]).Strings.Set(row, Form2.txtString[box].Text() + '\0');
  }
}

/// On to the next row, in the same box, as one translates: from the top to the bottom.
void GoOn(TextBox& box) {
  ListView& list = Form2.ListView1;
  if (list.Row() < 0 || !list.ClickRow(list.Row() + 1)) return;
  box.TakeFocus();
  box.SelectAll();
}

char StoredLetter(char typed) {
  for (const Letter& letter : kLetters) {
    if (letter.typed == typed) return letter.stored;
  }
  return typed;
}

void Accept(const LevelPanel& panel) {
  for (const Language language :
       {Language::ITALIAN, Language::ENGLISH, Language::SPANISH, Language::US, Language::GERMAN,
        Language::JAPAN, Language::FRENCH}) {
    if (IsOn(Slot(language).Primary)) SetPrimaryLanguage(language);
  }
  panel.refresh();
  Form2.Unload();
}

void Cancel() {
  StringsMod.Slots = StringsMod.Copies;
  Form2.Unload();
}

void OpenFromMainForm() {
  const int level = frmEditor.lstLevels.Row();
  Form2.ShowModal();
  frmEditor.lstLevels.Select(level);
}

}  // namespace

void AttachStringTable(const LevelPanel& panel) {
  Form2.onLoad = LoadTable;
  Form2.ListView1.onItemClick = ShowTableRow;
  for (std::size_t box = 0; box < kLanguages.size(); ++box) {
    Form2.txtString[box].onChange = [box] { TakeTexts(box); };
    Form2.txtString[box].onKeyPress = StoredLetter;
    Form2.txtString[box].onEnter = [box] { GoOn(Form2.txtString[box]); };
  }
  Form2.Command1.onPress = [panel] { Accept(panel); };
  Form2.Command2.onPress = Cancel;
  frmEditor.Command6.onPress = OpenFromMainForm;
  frmEditor.Command22.onPress = [] { Form2.Show(); };
}

}  // namespace quillmark
