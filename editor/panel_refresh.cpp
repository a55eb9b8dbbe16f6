#include <array>
#include <vector>

#include "editor/editor_form.h"
#include "forms/interface_texts.h"
#include "platform/log.h"
#include "platform/number_text.h"

namespace quillmark {
namespace {

constexpr std::uint8_t kFilmFlag = 0x80;

struct FlagBox {
  CheckBox& box;
  LevelFlag flag;
};

void ShowBasics(const LevelRecord& level) {
  frmEditor.txtTrack.SetText(DecimalText(level.AudioTrack));
  SelectValue(frmEditor.cmbFN, level.FileNameIndex, "the level's file name");
  SelectValue(frmEditor.cmbName, level.NameString, "the string of the level's name");
  for (std::size_t i = 0; i < level.Camera.size(); ++i) {
    frmEditor.txtCamera[i].SetText(DecimalText(level.Camera[i]));
  }
  frmEditor.txtCamera[level.Camera.size()].SetText(DecimalText(level.CameraRoom));
  SelectValue(frmEditor.cmbCut, level.Cut, "the level's cutscene");
}

void ShowFlags(const LevelRecord& level) {
  static const FlagBox kBoxes[] = {
      {frmEditor.chkY, LevelFlag::YoungLara},        {frmEditor.chkLight, LevelFlag::Lightning},
      {frmEditor.chkHorizon, LevelFlag::Horizon},    {frmEditor.chkTrain, LevelFlag::Train},
      {frmEditor.chkPulse, LevelFlag::Pulse},        {frmEditor.chkCol, LevelFlag::ColAddHorizon},
      {frmEditor.chkHorus, LevelFlag::RemoveAmulet}, {frmEditor.chkLens, LevelFlag::LensFlare},
      {frmEditor.chkTimer, LevelFlag::Timer},        {frmEditor.chkStar, LevelFlag::StarField},
      {frmEditor.chkNo, LevelFlag::NoLevel}};
  for (const FlagBox& shown : kBoxes) shown.box.SetTicked(HasFlag(level, shown.flag));
}

/// Kept as it is: the handler of `cmbFMV` takes the flag bit off the level whenever the row
/// changes.
void ShowFilm(const LevelRecord& level) {
  const int film = level.Fmv;
  SelectValue(frmEditor.cmbFMV, film >= kFilmFlag ? film - kFilmFlag : film, "the level's film");
}

void ShowObjects(const LevelRecord& level) {
  RefillObjects();
  const bool some = level.ObjectCount > 0;
  EnableObjectButtons(some);
  frmEditor.Command32.SetEnabled(some);
  frmEditor.txtFind.SetEnabled(some);
}

/// A check box with the boxes of its values, which show "0" while it is off.
template <class Boxes>
void ShowValues(CheckBox& box, bool on, const Boxes& boxes,
                const std::vector<std::string>& values) {
  box.SetTicked(on);
  for (std::size_t i = 0; i < values.size(); ++i) boxes[i]->SetText(on ? values[i] : "0");
}

template <class Values>
void AppendTexts(std::vector<std::string>& texts, const Values& values) {
  for (const auto& value : values) texts.push_back(DecimalText(value));
}

void ShowLayer(CheckBox& box, const ControlArray<TextBox, 4>& boxes, Int16 on,
               const FixedArray<Byte, 4>& values) {
  std::vector<std::string> texts;
  AppendTexts(texts, values);
  ShowValues(box, IsOn(on), boxes.All(), texts);
}

void ShowLensFlare(const LevelRecord& level) {
  std::vector<std::string> texts;
  AppendTexts(texts, level.LensFlarePos);
  AppendTexts(texts, level.LensFlareColour);
  ShowValues(frmEditor.chkLens, IsOn(level.LensFlareOn), frmEditor.txtL.All(), texts);
}

void ShowMirror(const LevelRecord& level) {
  const bool on = IsOn(level.MirrorOn);
  frmEditor.txtMirrorRoom.SetText(on ? DecimalText(level.MirrorRoom) : "0");
  // Kept as it is: the handler of this box stores 0 for a value whose text holds a letter, and for
  // a mirror that is off.
  const auto value = static_cast<std::uint32_t>(level.MirrorValue.value());
  frmEditor.txtMirrorValue.SetText(on ? HexText(value) : "0");
  frmEditor.chkMirror.SetTicked(on);
}

void ShowFog(const LevelRecord& level) {
  frmEditor.chkFog.SetTicked(IsOn(level.FogOn));
  for (std::size_t i = 0; i < level.Fog.size(); ++i) {
    frmEditor.txtFog[i].SetText(DecimalText(level.Fog[i]));
  }
}

void AdaptPanel(bool tr4) {
  LogWrite("Building interface");
  for (const auto& boxes :
       {frmEditor.txtCamera.All(), frmEditor.txtL.All(), frmEditor.txtFog.All()}) {
    for (TextBox* box : boxes) box->SetEnabled(tr4);
  }
  const std::array<Control*, 11> tr4Controls = {
      &frmEditor.chkTimer,  &frmEditor.chkWe,   &frmEditor.chkPulse, &frmEditor.chkStar,
      &frmEditor.chkHorus,  &frmEditor.chkLens, &frmEditor.check1,   &frmEditor.chkFog,
      &frmEditor.chkMirror, &frmEditor.Label10, &frmEditor.cmbLegend};
  for (Control* control : tr4Controls) control->SetEnabled(tr4);
  frmEditor.Command30.SetEnabled(!tr4);
  frmEditor.chkTrain.SetCaption(TextOf(tr4 ? Entry::Train : Entry::TrainTr5));
}

}  // namespace

void Update3() {
  const LevelRecord& level = SelectedLevel();
  ShowBasics(level);
  ShowFlags(level);
  ShowFilm(level);
  ShowObjects(level);
  SelectValue(frmEditor.cmbName, level.NameString, "the string of the level's name");
  frmEditor.lstCuts.Clear();
  ShowValues(frmEditor.check1, level.ResetHub > 0, std::array{&frmEditor.txtResetHUB},
             {DecimalText(level.ResetHub)});
  ShowValues(frmEditor.chkUV, IsOn(level.UVRotateOn), std::array{&frmEditor.txtUV},
             {DecimalText(level.UVRotate)});
  ShowMirror(level);
  SelectValue(frmEditor.cmbLegend, IsOn(level.LegendOn) ? level.Legend.value() + 1 : 0,
              "the row of the level's legend");
  ShowLayer(frmEditor.chkLayer1, frmEditor.txtLayer1, level.Layer1On, level.Layer1);
  ShowLayer(frmEditor.chkLayer2, frmEditor.txtLayer2, level.Layer2On, level.Layer2);
  ShowLensFlare(level);
  ShowFog(level);
  // Kept as it is: the list is not emptied again, so it shows each cutscene twice where the
  // legend's row has changed and filled it from within.
  ShowCuts();
  if (level.CutCount > 0) frmEditor.Command4.SetEnabled(true);
  for (ComboBox* combo : {&frmEditor.cmbType, &frmEditor.cmbID, &frmEditor.cmbCombo}) {
    combo->Select(0);
  }
}

void BuildInterfaceTr4() { AdaptPanel(true); }
void BuildInterfaceTr5() { AdaptPanel(false); }

}  // namespace quillmark
