#include <limits>
#include <string>

#include "controls/desktop.h"
#include "editor/editor_form.h"
#include "forms/interface_texts.h"
#include "platform/number_text.h"

namespace quillmark {
namespace {

constexpr int kMostCuts = 4;
constexpr int kFilmImage = 1;

void ShowCut(const CutEntry& cut) {
  frmEditor.lstCuts.AddRow({DecimalText(cut.Type), DecimalText(cut.Value)}, kFilmImage);
}

void AddFilm() {
  if (SelectedLevel().CutCount == kMostCuts) {
    ShowErrorEntry(Entry::CutsceneListFull);
    return;
  }
  const InputBox box = {TextOf(Entry::AddCutscenePrompt), TextOf(Entry::AddCutsceneTitle), "0"};
  const std::string answer = TheDesktop().AskText(box).value_or("");
  if (!IsAllDigits(answer)) {
    ShowErrorEntry(Entry::NotANumber);
    return;
  }
  const std::int64_t number = NumberAtStart(answer);
  if (number > std::numeric_limits<std::uint8_t>::max()) {
    ShowErrorEntry(Entry::NumberTooLarge);
    return;
  }
  LevelRecord& level = SelectedLevel();
  CutEntry& cut = level.Cuts[level.CutCount];
  cut.Type = frmEditor.lstCuts.Count() + 1;
  cut.Value = number;
  ShowCut(cut);
  ++level.CutCount;
  frmEditor.Command4.SetEnabled(true);
}

void DeleteFilm() {
  ListView& list = frmEditor.lstCuts;
  const int row = list.SelectedRow();
  if (!AskQuestion(TextOf(Entry::DeleteCutsceneQuestion) + list.Cell(row, 1) + "?")) return;
  LevelRecord& level = SelectedLevel();
  // The last pass takes the place behind the last entry, and so clears it.
  for (int i = row; i < list.Count(); ++i) {
    const CutEntry& next = level.Cuts[i + 1];
    CutEntry& cut = level.Cuts[i];
    cut.Value = next.Value;
    cut.Type = next.Type != 0 ? next.Type.value() - 1 : 0;
  }
  --level.CutCount;
  list.Clear();
  ShowCuts();
  DisableCutDeleteWithoutCuts();
}

}  // namespace

void ShowCuts() {
  const LevelRecord& level = SelectedLevel();
  for (int i = 0; i < level.CutCount; ++i) ShowCut(level.Cuts[i]);
}

void DisableCutDeleteWithoutCuts() {
  if (SelectedLevel().CutCount == 0) frmEditor.Command4.SetEnabled(false);
}

void AttachFilmList() {
  frmEditor.Command3.onPress = AddFilm;
  frmEditor.Command4.onPress = DeleteFilm;
}

}  // namespace quillmark
