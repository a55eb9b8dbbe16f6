#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "editor/editor_form.h"
#include "forms/fault_texts.h"
#include "forms/interface_texts.h"
#include "platform/fault.h"
#include "platform/number_text.h"
#include "strings/language_files.h"

namespace quillmark {
namespace {

enum Column { kKindColumn = 1, kIdColumn, kNameColumn, kComboColumn, kIndexColumn };

struct KindRow {
  std::string_view caption;
  int image;
  int highestId;
  bool hasCombo;
};

/// By the number of the kind, which is the row of `cmbType` too.
constexpr std::array<KindRow, kObjectKindCount> kKinds = {{
    {"Puzzle", 1, 12, false},
    {"Key", 2, 12, false},
    {"Pickup", 3, 4, false},
    {"Puzzle Combo", 1, 8, true},
    {"Key Combo", 2, 8, true},
    {"Pickup Combo", 3, 4, true},
    {"Examine", 3, 3, false},
}};

const KindRow& KindOf(int kind) { return kKinds[CheckedPosition(kind, kKinds.size())]; }

std::string ComboText(const LevelObject& object) {
  if (!KindOf(object.Kind).hasCombo) return {};
  return TextOf(Entry::ComboCell) + " " + DecimalText(object.Combo);
}

Int16 ParamFrom(const TextBox& box) {
  const std::uint64_t bits = HexAtStart(box.Text());
  if (bits > 0xFFFF) {
    throw Fault(FaultKind::Overflow,
                "the parameter " + box.Text() + " has more than four hexadecimal digits",
                box.Text() + " > FFFF");
  }
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(bits));
}

void ReadCommonFields(LevelObject& object) {
  object.Kind = frmEditor.cmbType.Row();
  object.Id = frmEditor.cmbID.Row() + 1;
  object.StringId = frmEditor.cmbString.Row();
  for (int k = 0; k < kParamCount; ++k) object.Params[k] = ParamFrom(frmEditor.txtObj[k]);
}

/// Reads the panel into `object`. Kept as it is: a kind without a second number leaves `Combo`.
void ReadPanel(LevelObject& object) {
  LevelObject read = object;
  ReadCommonFields(read);
  if (KindOf(read.Kind).hasCombo) read.Combo = frmEditor.cmbCombo.Row() + 1;
  object = read;
}

/// The first place behind the objects; refuses a level that is full.
LevelObject& FreePlace(LevelRecord& level) {
  if (level.ObjectCount >= kObjectPlaces) {
    throw ToldFault(FaultKind::Subscript,
                    "a level holds at most " + std::to_string(kObjectPlaces) + " objects",
                    Entry::TooManyObjects);
  }
  return level.Objects[level.ObjectCount];
}

void AddObject() {
  LevelRecord& level = SelectedLevel();
  ReadPanel(FreePlace(level));
  ++level.ObjectCount;
  for (Control* control : std::array<Control*, 4>{&frmEditor.Command17, &frmEditor.Command18,
                                                  &frmEditor.Command32, &frmEditor.txtFind}) {
    control->SetEnabled(true);
  }
  Update3();
}

// Kept as it is: only the row is changed, and the combo text of a kind that has none stays in it.
void ChangeObject() {
  LevelRecord& level = SelectedLevel();
  LevelObject& object = level.Objects[SelectedObject()];
  ReadPanel(object);
  ListView& list = frmEditor.lstObj;
  const int row = list.SelectedRow();
  const KindRow& kind = KindOf(object.Kind);
  list.SetCell(row, kKindColumn, kind.caption);
  list.SetIcon(row, kind.image);
  if (kind.hasCombo) list.SetCell(row, kComboColumn, ComboText(object));
  list.SetCell(row, kIdColumn, DecimalText(object.Id));
  list.SetCell(row, kNameColumn, frmEditor.cmbString.Text());
}

void DeleteObject() {
  const ListView& list = frmEditor.lstObj;
  const int row = list.SelectedRow();
  if (!AskQuestion(TextOf(Entry::DeleteObjectQuestion) + list.Cell(row, kKindColumn) + " #" +
                   list.Cell(row, kIdColumn) + " ''" + list.Cell(row, kNameColumn) + "''?")) {
    return;
  }
  LevelRecord& level = SelectedLevel();
  // With all places in use the last pass has no place to take from, and its fault ends the
  // deletion.
  for (int i = SelectedObject(); i < level.ObjectCount; ++i) {
    const LevelObject& next = level.Objects[i + 1];
    LevelObject& object = level.Objects[i];
    // Kept as it is: `Combo` stays in its place while the objects move under it.
    object.Kind = next.Kind;
    object.Id = next.Id;
    object.StringId = next.StringId;
    object.Params = next.Params;
  }
  --level.ObjectCount;
  Update3();
}

void CopyObject() {
  LevelObject copied;
  ReadCommonFields(copied);
  copied.Combo = frmEditor.cmbCombo.Row() + 1;
  EditorMod.ObjectClip = copied;
}

void PasteObject() {
  LevelRecord& level = SelectedLevel();
  FreePlace(level) = EditorMod.ObjectClip;
  ++level.ObjectCount;
  Update3();
}

void OfferIds() {
  const KindRow& kind = KindOf(frmEditor.cmbType.Row());
  frmEditor.cmbID.Clear();
  for (int id = 1; id <= kind.highestId; ++id) frmEditor.cmbID.AddRow(std::to_string(id));
  frmEditor.cmbCombo.SetEnabled(kind.hasCombo);
}

// Kept as it is: the second number is not loaded, `cmbCombo` keeps its row.
void LoadObjectPanel() {
  const LevelRecord& level = SelectedLevel();
  if (level.ObjectCount == 0) return;
  const LevelObject& object = level.Objects[SelectedObject()];
  const std::string& caption = frmEditor.lstObj.Cell(frmEditor.lstObj.SelectedRow(), kKindColumn);
  const auto kind = std::find_if(kKinds.begin(), kKinds.end(),
                                 [&](const KindRow& row) { return row.caption == caption; });
  frmEditor.cmbType.Select(kind - kKinds.begin());
  frmEditor.cmbID.Select(object.Id - 1);
  frmEditor.cmbString.Select(object.StringId);
  for (int k = 0; k < kParamCount; ++k) {
    frmEditor.txtObj[k].SetText(HexText(static_cast<std::uint16_t>(object.Params[k].value())));
  }
}

void FindString() {
  const std::string& text = frmEditor.txtFind.Text();
  if (text.empty()) {
    const LevelRecord& level = SelectedLevel();
    frmEditor.cmbString.Select(level.Objects[SelectedObject()].StringId);
    return;
  }
  const int found = FindPoolString(text);
  if (found >= 0) frmEditor.cmbString.Select(found);
}

}  // namespace

void EnableObjectButtons(bool enabled) {
  for (Button* button :
       {&frmEditor.Command12, &frmEditor.Command14, &frmEditor.Command17, &frmEditor.Command18}) {
    button->SetEnabled(enabled);
  }
}

int SelectedObject() {
  const ListView& list = frmEditor.lstObj;
  return static_cast<int>(WholeNumber(list.Cell(list.SelectedRow(), kIndexColumn)));
}

void RefillObjects() {
  const LevelRecord& level = SelectedLevel();
  frmEditor.lstObj.Clear();
  for (int i = 0; i < level.ObjectCount; ++i) {
    const LevelObject& object = level.Objects[i];
    const KindRow& kind = KindOf(object.Kind);
    // The combo is the table from number to text, and stays on the last object's string.
    SelectValue(frmEditor.cmbString, object.StringId, "the string of an object");
    frmEditor.lstObj.AddRow({std::string(kind.caption), DecimalText(object.Id),
                             frmEditor.cmbString.Text(), ComboText(object), std::to_string(i)},
                            kind.image);
  }
}

void AttachObjectList() {
  frmEditor.cmbType.onSelect = OfferIds;
  frmEditor.cmbType.onChange = [] {
    OfferIds();
    frmEditor.cmbID.Select(1);
    frmEditor.cmbCombo.Select(0);
  };
  frmEditor.lstObj.onItemClick = LoadObjectPanel;
  frmEditor.lstObj.onClick = [] { frmEditor.Command12.SetEnabled(true); };
  frmEditor.Command5.onPress = AddObject;
  frmEditor.Command12.onPress = ChangeObject;
  frmEditor.Command14.onPress = DeleteObject;
  frmEditor.Command17.onPress = CopyObject;
  frmEditor.Command18.onPress = PasteObject;
  frmEditor.txtFind.onChange = FindString;
}

}  // namespace quillmark
