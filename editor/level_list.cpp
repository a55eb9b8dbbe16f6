#include <string>

#include "controls/desktop.h"
#include "editor/editor_form.h"
#include "forms/fault_texts.h"
#include "forms/interface_texts.h"
#include "platform/fault.h"
#include "platform/log.h"
#include "platform/number_text.h"

namespace quillmark {
namespace {

// What a copy of a level holds, in this order. Every field that is not listed stays as the target
// has it, and so do the entries behind a count.

using CopyStep = void (*)(const LevelRecord& source, LevelRecord& target);

template <auto... kFields>
void CopyFields(const LevelRecord& source, LevelRecord& target) {
  ((target.*kFields = source.*kFields), ...);
}

template <auto kCount, auto kEntries>
void CopyCounted(const LevelRecord& source, LevelRecord& target) {
  target.*kCount = source.*kCount;
  for (int i = 0; i < source.*kCount; ++i) (target.*kEntries)[i] = (source.*kEntries)[i];
}

// Kept as it is: the first coordinate becomes the third.
void CopyLensFlarePosition(const LevelRecord& source, LevelRecord& target) {
  target.LensFlarePos = source.LensFlarePos;
  target.LensFlarePos[0] = source.LensFlarePos[2];
}

// Kept as it is: the legend becomes the low byte of its own on/off word.
void CopyLegend(const LevelRecord& source, LevelRecord& target) {
  target.LegendOn = source.LegendOn;
  target.Legend = source.LegendOn.value() & 0xFF;
}

using Level = LevelRecord;
constexpr CopyStep kCopySteps[] = {
    CopyFields<&Level::Cut, &Level::Fmv, &Level::AudioTrack, &Level::FileNameIndex,
               &Level::LevelFlags, &Level::NameString>,
    CopyFields<&Level::Layer1On, &Level::Layer2On, &Level::Layer1, &Level::Layer2>,
    CopyFields<&Level::UVRotate, &Level::MirrorRoom, &Level::MirrorValue>,
    CopyFields<&Level::LensFlareOn, &Level::LensFlareColour>,
    CopyLensFlarePosition,
    CopyLegend,
    CopyCounted<&Level::PuzzleCount, &Level::Puzzles>,
    CopyCounted<&Level::KeyCount, &Level::Keys>,
    CopyCounted<&Level::PickupCount, &Level::Pickups>,
    CopyCounted<&Level::PuzzleComboCount, &Level::PuzzleCombos>,
    CopyCounted<&Level::ObjectCount, &Level::Objects>,
    CopyFields<&Level::ResetHub>,
    CopyCounted<&Level::CutCount, &Level::Cuts>,
    CopyFields<&Level::Camera, &Level::CameraRoom>,
};

void CopyListedFields(const LevelRecord& source, LevelRecord& target) {
  for (const CopyStep step : kCopySteps) step(source, target);
}

template <auto... kFields>
void ClearFields(LevelRecord& level) {
  ((level.*kFields = 0), ...);
}

/// What an inserted level starts with; all else is the copy of the level above it.
void ClearInserted(LevelRecord& level) {
  ClearFields<&Level::Fmv, &Level::FogOn, &Level::AudioTrack, &Level::FileNameIndex,
              &Level::LevelFlags, &Level::NameString, &Level::Layer1On, &Level::Layer2On,
              &Level::LegendOn, &Level::LensFlareOn, &Level::MirrorOn, &Level::MipCount,
              &Level::ObjectCount, &Level::ExamineCount, &Level::KeyCount, &Level::KeyComboCount,
              &Level::PickupCount, &Level::PickupComboCount, &Level::PuzzleCount,
              &Level::PuzzleComboCount, &Level::CutCount, &Level::ResetHub, &Level::UVRotate,
              &Level::UVRotateOn>(level);
  level.Camera[3] = 0;
}

void RequireSelection() { SelectedLevel(); }

/// Refuses a list that shows more rows than there are records for, as an insert may leave it.
void RequireRecords(int highest, std::size_t places) {
  if (static_cast<std::size_t>(highest) >= places) {
    throw ToldFault(FaultKind::Subscript,
                    "the list shows rows that no level stands behind; select another level first",
                    Entry::RowWithoutLevel);
  }
}

void Select() {
  Update3();
  EnableObjectButtons(SelectedLevel().ObjectCount != 0);
  DisableCutDeleteWithoutCuts();
}

void AddEmptyLevel() {
  ListBox& list = frmEditor.lstLevels;
  if (TRScript.NumLevels == kMostLevels) {
    ShowErrorEntry(Entry::TooManyLevels);
    return;
  }
  RequireRecords(list.Count(), static_cast<std::size_t>(TRScript.NumLevels) + 2);
  list.AddRow("Level " + DecimalText(TRScript.NumLevels));
  ++TRScript.NumLevels;
  frmEditor.Label8.SetCaption(DecimalText(TRScript.NumLevels));
  // Before the panel shows the new level, so that there is a spare record even if that fails. Kept
  // as it is: the new level is the spare record as it stands, with whatever it held last.
  TRScript.Levels.RedimPreserve(TRScript.NumLevels);
  list.Select(list.Count() - 1);
  frmEditor.Command25.SetEnabled(true);
  frmEditor.Command26.SetEnabled(true);
}

void Insert() {
  ListBox& list = frmEditor.lstLevels;
  RequireSelection();
  const int selected = list.Row();
  if (selected == 0) {
    throw ToldFault(FaultKind::Subscript, "no level can be inserted in front of the title level",
                    Entry::TitleScreenStandsFirst);
  }
  if (TRScript.NumLevels == kMostLevels) {
    throw ToldFault(FaultKind::Overflow,
                    "a script holds at most " + std::to_string(kMostLevels) + " levels",
                    Entry::TooManyLevels);
  }
  const int places = TRScript.NumLevels + 2;
  RequireRecords(list.Count(), static_cast<std::size_t>(places) + 1);

  list.AddRow("Level #" + std::to_string(selected));
  TRScript.Levels.RedimPreserve(places);
  for (int i = list.Count() - 1; i >= selected; --i) {
    CopyListedFields(TRScript.Levels[i - 1], TRScript.Levels[i]);
  }
  ++TRScript.NumLevels;
  // Kept as it is: the names come behind the old rows, until the list is next built anew.
  for (int i = 1; i < TRScript.NumLevels; ++i) list.AddRow(LevelName(i - 1));
  ClearInserted(TRScript.Levels[selected]);
  list.Select(0);
  Update3();
}

enum class DeleteResult { Refused, NotWanted, Done };

DeleteResult DeleteSelected() {
  ListBox& list = frmEditor.lstLevels;
  const int selected = list.Row();
  if (!AskQuestion(TextOf(Entry::DeleteLevelQuestion) + list.Text() + "'?")) {
    return DeleteResult::NotWanted;
  }
  if (selected == 0) {
    ShowErrorEntry(Entry::CannotDeleteTitleLevel);
    return DeleteResult::Refused;
  }
  const int last = list.Count() - 1;
  RequireSelection();
  RequireRecords(last, TRScript.Levels.size());
  for (int i = selected; i < last; ++i) {
    CopyListedFields(TRScript.Levels[i + 1], TRScript.Levels[i]);
  }
  --TRScript.NumLevels;
  RebuildLevelRows();
  list.Select(0);
  TRScript.Levels.RedimPreserve(TRScript.NumLevels);
  return DeleteResult::Done;
}

void KeyPress(Key key) {
  if (key.code != KeyCode::Delete) return;
  if (DeleteSelected() != DeleteResult::Refused) frmEditor.lstLevels.Select(1);
}

void MousePress(MouseButton button) {
  if (TRScript.NumLevels != 0 && button == MouseButton::Right) {
    TheDesktop().OpenPopup(frmEditor.popup1);
  }
}

void EraseAllLevels() {
  if (!TheDesktop().AskYesNo("Eliminazione livelli", "Eliminare tutti i livelli?")) return;
  frmEditor.lstLevels.Clear();
  frmEditor.lstLevels.AddRow(TextOf(Entry::TitleLevelRow));
  TRScript.NumLevels = 1;
}

/// Exchanges the selected level with `other`, through the clipboard.
void ChangePlaces(int other) {
  LevelRecord& level = SelectedLevel();
  LevelRecord& neighbour = TRScript.Levels[other];
  CopyLevel(neighbour, EditorMod.ClipboardLevel);
  CopyLevel(level, neighbour);
  CopyLevel(EditorMod.ClipboardLevel, level);
  Update3();
  frmEditor.lstLevels.Select(other);
}

void MoveUp() {
  const int row = frmEditor.lstLevels.Row();
  if (row == 1) {
    ShowErrorEntry(Entry::CannotMoveLevelUp);
    return;
  }
  if (row == 0) {
    throw ToldFault(FaultKind::Subscript, "the title level stands first and can't move up",
                    Entry::TitleScreenStandsFirst);
  }
  ChangePlaces(row - 1);
}

void MoveDown() {
  const int row = frmEditor.lstLevels.Row();
  if (row == frmEditor.lstLevels.Count() - 1) {
    ShowErrorEntry(Entry::CannotMoveLevelDown);
    return;
  }
  ChangePlaces(row + 1);
}

void CopySelectedLevel() {
  CopyLevel(SelectedLevel(), EditorMod.ClipboardLevel);
  EditorMod.ClipboardFull = kOn;
  Update3();
}

void PasteCopiedLevel() {
  if (!IsOn(EditorMod.ClipboardFull)) {
    ShowErrorEntry(Entry::LevelClipboardEmpty);
    return;
  }
  CopyLevel(EditorMod.ClipboardLevel, SelectedLevel());
  Update3();
}

}  // namespace

void CopyLevel(const LevelRecord& source, LevelRecord& target) {
  LogWrite("COpying level in temporary clipboard");
  CopyListedFields(source, target);
}

void AttachLevelList() {
  frmEditor.lstLevels.onSelect = Select;
  frmEditor.lstLevels.onKeyPress = KeyPress;
  frmEditor.lstLevels.onMousePress = MousePress;
  frmEditor.cmdAddLevel.onPress = AddEmptyLevel;
  frmEditor.Command19.onPress = Insert;
  frmEditor.cmdLevelDelete.onPress = [] { DeleteSelected(); };
  frmEditor.Command20.onPress = MoveUp;
  frmEditor.Command21.onPress = MoveDown;
  frmEditor.Command25.onPress = CopySelectedLevel;
  frmEditor.Command26.onPress = PasteCopiedLevel;
  frmEditor.mnuEraseAll.onChoose = EraseAllLevels;
}

}  // namespace quillmark
