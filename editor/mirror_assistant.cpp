#include <limits>
#include <string>

#include "controls/desktop.h"
#include "editor/editor_form.h"
#include "editor/numbers.h"
#include "frame/interface_table.h"
#include "platform/number_text.h"

namespace quillmark {
namespace {

constexpr int kUnitsPerSector = 1024;

constexpr int kValueEntry = 25;
constexpr int kValueTitleEntry = 26;
constexpr int kBadValueEntry = 27;
constexpr int kRoomEntry = 28;
constexpr int kRoomTitleEntry = 29;
constexpr int kBadRoomEntry = 30;
constexpr int kRoomTooHighEntry = 31;

/// The answer to one question; empty if there is none.
std::string AskNumber(int promptEntry, int titleEntry) {
  const InputBox box = {InterfaceTable[promptEntry], InterfaceTable[titleEntry], "0"};
  return TheDesktop().AskText(box).value_or("");
}

void WorkOutMirror() {
  const std::string answer = AskNumber(kValueEntry, kValueTitleEntry);
  if (answer.empty()) return;
  if (!IsAllDigits(answer)) {
    ShowErrorEntry(kBadValueEntry);
    return;
  }
  const std::string roomAnswer = AskNumber(kRoomEntry, kRoomTitleEntry);
  if (roomAnswer.empty()) return;
  constexpr int kHighestRoom = std::numeric_limits<std::uint8_t>::max();
  if (RequireNumber(roomAnswer) > kHighestRoom) {
    ShowErrorEntry(kRoomTooHighEntry);
    frmEditor.txtMirrorRoom.SetText(std::to_string(kHighestRoom));
    return;
  }
  if (!IsAllDigits(roomAnswer)) {
    ShowErrorEntry(kBadRoomEntry);
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
