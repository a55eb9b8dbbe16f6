#include <limits>
#include <string>

#include "controls/desktop.h"
#include "editor/editor_form.h"
#include "forms/interface_texts.h"
#include "platform/number_text.h"

namespace quillmark {
namespace {

constexpr int kUnitsPerSector = 1024;

/// The answer to one question; empty if there is none.
std::string AskNumber(Entry prompt, Entry title) {
  const InputBox box = {TextOf(prompt), TextOf(title), "0"};
  return TheDesktop().AskText(box).value_or("");
}

void WorkOutMirror() {
  const std::string answer = AskNumber(Entry::MirrorPositionPrompt, Entry::MirrorPositionTitle);
  if (answer.empty()) return;
  if (!IsAllDigits(answer)) {
    ShowErrorEntry(Entry::MirrorPositionNotNumber);
    return;
  }
  const std::string roomAnswer = AskNumber(Entry::MirrorRoomPrompt, Entry::MirrorRoomTitle);
  if (roomAnswer.empty()) return;
  constexpr int kHighestRoom = std::numeric_limits<std::uint8_t>::max();
  if (RequireNumber(roomAnswer) > kHighestRoom) {
    ShowErrorEntry(Entry::MirrorRoomTooLarge);
    frmEditor.txtMirrorRoom.SetText(std::to_string(kHighestRoom));
    return;
  }
  if (!IsAllDigits(roomAnswer)) {
    ShowErrorEntry(Entry::MirrorRoomNotNumber);
    return;
  }

  const Int32 value = (NumberAtStart(answer) + 1) * kUnitsPerSector;
  frmEditor.txtMirrorValue.SetText(HexText(static_cast<std::uint32_t>(value.value())));
  LevelRecord& level = SelectedLevel();
  level.MirrorOn = kOn;
  level.MirrorRoom = NumberAtStart(roomAnswer);
  frmEditor.txtMirrorRoom.SetText(DecimalText(level.MirrorRoom));
  Update3();
}

}  // namespace

void AttachMirrorAssistant() { frmEditor.Command10.onPress = WorkOutMirror; }

}  // namespace quillmark
