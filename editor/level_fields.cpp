#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "controls/desktop.h"
#include "editor/editor_form.h"
#include "platform/fault.h"
#include "platform/number_text.h"

namespace quillmark {
namespace {

constexpr int kHighestByte = std::numeric_limits<std::uint8_t>::max();

// Check boxes. A press runs before the box changes; a bit is flipped and not set from the box, a
// word follows the old state of the box.

struct FieldCheckBox {
  CheckBox& box;
  std::optional<LevelFlag> flag;
  Int16 LevelRecord::*word = nullptr;
};

void PressCheckBox(const FieldCheckBox& field) {
  LevelRecord& level = SelectedLevel();
  if (field.flag) FlipFlag(level, *field.flag);
  if (field.word != nullptr) level.*field.word = OnOff(!field.box.Ticked());
}

void AttachCheckBoxes() {
  // Kept as it is: chkTrain, chkNo and chkWe change on the screen only.
  const std::vector<FieldCheckBox> fields = {
      {frmEditor.chkY, LevelFlag::YoungLara},
      {frmEditor.chkHorizon, LevelFlag::Horizon},
      {frmEditor.chkStar, LevelFlag::StarField},
      {frmEditor.chkLight, LevelFlag::Lightning},
      {frmEditor.chkPulse, LevelFlag::Pulse},
      {frmEditor.chkCol, LevelFlag::ColAddHorizon},
      {frmEditor.check1, LevelFlag::ResetHUB},
      {frmEditor.chkTimer, LevelFlag::Timer},
      {frmEditor.chkHorus, LevelFlag::RemoveAmulet},
      {frmEditor.chkLayer1, LevelFlag::Layer1, &LevelRecord::Layer1On},
      {frmEditor.chkLayer2, LevelFlag::Layer2, &LevelRecord::Layer2On},
      {frmEditor.chkLens, LevelFlag::LensFlare, &LevelRecord::LensFlareOn},
      {frmEditor.chkFog, std::nullopt, &LevelRecord::FogOn},
      {frmEditor.chkMirror, std::nullopt, &LevelRecord::MirrorOn},
      {frmEditor.chkUV, std::nullopt, &LevelRecord::UVRotateOn},
  };
  for (const FieldCheckBox& field : fields) {
    field.box.onMousePress = [field] { PressCheckBox(field); };
  }
}

// Combos.

void ChooseName() {
  const int row = frmEditor.cmbName.Row();
  if (row > kHighestByte) return;
  SelectedLevel().NameString = row;
  const int selected = frmEditor.lstLevels.Row();
  RebuildLevelRows();
  frmEditor.lstLevels.Select(selected);
}

/// Runs one statement and passes over a fault of it.
template <class Statement>
void PassingOver(const Statement& statement) {
  try {
    WithMemoryFaults(statement);
  } catch (const Fault&) {
    return;
  }
}

// Kept as it is: a fault of this handler is passed over, and the statement behind it runs.
void ChooseLegend() {
  const int row = frmEditor.cmbLegend.Row();
  if (row == 0) {
    PassingOver([] { SelectedLevel().LegendOn = kOff; });
    return;
  }
  if (row <= kHighestByte) {
    PassingOver([] { SelectedLevel().LegendOn = kOn; });
    PassingOver([row] { SelectedLevel().Legend = row - 1; });
  }
  PassingOver(Update3);
}

void AttachCombos() {
  frmEditor.cmbCut.onSelect = [] { SelectedLevel().Cut = frmEditor.cmbCut.Row(); };
  frmEditor.cmbFMV.onSelect = [] { SelectedLevel().Fmv = frmEditor.cmbFMV.Row(); };
  frmEditor.cmbFN.onSelect = [] { SelectedLevel().FileNameIndex = frmEditor.cmbFN.Row(); };
  frmEditor.cmbName.onSelect = ChooseName;
  frmEditor.cmbLegend.onSelect = ChooseLegend;
}

void ShowAtMostHighestByte(TextBox& box) {
  if (ValueAtStart(box.Text()) > kHighestByte) box.SetText(std::to_string(kHighestByte));
}

// Arrays of numeric boxes: a key in one of them stores all of them.

struct BoxArray {
  std::vector<TextBox*> boxes;
  std::int64_t (*read)(std::string_view text);
  void (*store)(LevelRecord& level, std::size_t place, std::int64_t value);
};

template <auto kField>
void StoreEntry(LevelRecord& level, std::size_t place, std::int64_t value) {
  (level.*kField)[place] = value;
}

void StoreLensFlare(LevelRecord& level, std::size_t place, std::int64_t value) {
  const std::size_t colours = level.LensFlarePos.size();
  if (place < colours) {
    level.LensFlarePos[place] = value;
  } else {
    level.LensFlareColour[place - colours] = value;
  }
}

void StoreArray(const BoxArray& array, TextBox& typedIn) {
  if (!IsAllDigits(typedIn.Text())) {
    typedIn.SetText("0");
    return;
  }
  ShowAtMostHighestByte(typedIn);
  LevelRecord& level = SelectedLevel();
  for (std::size_t i = 0; i < array.boxes.size(); ++i) {
    array.store(level, i, array.read(array.boxes[i]->Text()));
  }
}

void AttachArrays() {
  const std::vector<BoxArray> arrays = {
      {frmEditor.txtFog.All(), NumberAtStart, StoreEntry<&LevelRecord::Fog>},
      {frmEditor.txtLayer1.All(), NumberAtStart, StoreEntry<&LevelRecord::Layer1>},
      // Kept as it is: this one array takes no box that holds anything but a number.
      {frmEditor.txtLayer2.All(), WholeNumber, StoreEntry<&LevelRecord::Layer2>},
      {frmEditor.txtL.All(), NumberAtStart, StoreLensFlare},
  };
  for (const BoxArray& array : arrays) {
    for (TextBox* box : array.boxes) {
      box->onKeyRelease = [array, box](Key) { StoreArray(array, *box); };
    }
  }
}

// The load camera: no limit stands in front of its numbers, the fields refuse what does not fit.

void StoreCameraNumber(LevelRecord& level, std::size_t place, std::int64_t value) {
  if (place < level.Camera.size()) {
    level.Camera[place] = value;
  } else {
    level.CameraRoom = value;
  }
}

void StoreCamera(TextBox& typedIn) {
  if (!IsAllDigits(typedIn.Text())) {
    typedIn.SetText("0");
    return;
  }
  LevelRecord& level = SelectedLevel();
  bool overflowed = false;
  for (std::size_t i = 0; i < frmEditor.txtCamera.size(); ++i) {
    TextBox& box = frmEditor.txtCamera[i];
    try {
      StoreCameraNumber(level, i, NumberAtStart(box.Text()));
    } catch (const Fault&) {
      overflowed = true;
    }
    // Kept as it is: behind a number that did not fit all boxes show "0", stored or not.
    if (overflowed) box.SetText("0");
  }
}

void CameraKeyRelease(TextBox& typedIn) {
  try {
    WithMemoryFaults([&] { StoreCamera(typedIn); });
  } catch (const Fault&) {
    TheDesktop().ShowError("Fatal", "Unknown error");
  }
}

// Single boxes of one byte. They differ in what a text without a number and one above the highest
// byte do.

struct ByteBox {
  TextBox& box;
  Byte LevelRecord::*field;
  void (*rule)(TextBox& box, Byte LevelRecord::*field);
};

void TrackRule(TextBox& box, Byte LevelRecord::*field) {
  if (!IsAllDigits(box.Text())) {
    box.SetText(DecimalText(SelectedLevel().*field));
    return;
  }
  ShowAtMostHighestByte(box);
  SelectedLevel().*field = NumberAtStart(box.Text());
}

void MirrorRoomRule(TextBox& box, Byte LevelRecord::*field) {
  if (!IsAllDigits(box.Text()) || NumberAtStart(box.Text()) > kHighestByte) {
    box.SetText("0");
    return;
  }
  SelectedLevel().*field = NumberAtStart(box.Text());
}

// Kept as it is: a 0 is shown but never stored.
void ResetHubRule(TextBox& box, Byte LevelRecord::*field) {
  ShowAtMostHighestByte(box);
  const bool stored = IsAllDigits(box.Text()) && NumberAtStart(box.Text()) != 0;
  frmEditor.check1.SetTicked(stored);
  if (stored) SelectedLevel().*field = NumberAtStart(box.Text());
}

// Kept as it is: the tick follows on the screen only, and a 0 leaves it.
void UVRotateRule(TextBox& box, Byte LevelRecord::*field) {
  if (!IsAllDigits(box.Text())) {
    box.SetText("0");
    return;
  }
  ShowAtMostHighestByte(box);
  const std::int64_t number = NumberAtStart(box.Text());
  SelectedLevel().*field = number;
  if (number > 0) frmEditor.chkUV.SetTicked(true);
}

void AttachByteBoxes() {
  const std::vector<ByteBox> boxes = {
      {frmEditor.txtTrack, &LevelRecord::AudioTrack, TrackRule},
      {frmEditor.txtMirrorRoom, &LevelRecord::MirrorRoom, MirrorRoomRule},
      {frmEditor.txtResetHUB, &LevelRecord::ResetHub, ResetHubRule},
      {frmEditor.txtUV, &LevelRecord::UVRotate, UVRotateRule},
  };
  for (const ByteBox& entry : boxes) {
    entry.box.onKeyRelease = [entry](Key) { entry.rule(entry.box, entry.field); };
  }
}

// The mirror's value: shown in hexadecimal, and tested as if it were decimal.

void StoreMirrorValue() {
  const std::uint64_t value = HexAtStart(frmEditor.txtMirrorValue.Text());
  SelectedLevel().MirrorValue = static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

void MirrorValueChanged() {
  TextBox& box = frmEditor.txtMirrorValue;
  if (!IsAllDigits(box.Text())) {
    box.SetText("0");
    return;
  }
  // This keeps out what is too large for the field in decimal, too: that has more digits.
  if (HexAtStart(box.Text()) > std::numeric_limits<std::uint32_t>::max()) box.SetText("0");
  StoreMirrorValue();
}

}  // namespace

void AttachLevelFields() {
  AttachCheckBoxes();
  AttachCombos();
  AttachArrays();
  for (TextBox* box : frmEditor.txtCamera.All()) {
    box->onKeyRelease = [box](Key) { CameraKeyRelease(*box); };
  }
  AttachByteBoxes();
  frmEditor.txtMirrorValue.onChange = MirrorValueChanged;
  frmEditor.txtMirrorValue.onKeyRelease = [](Key) { StoreMirrorValue(); };
}

}  // namespace quillmark
