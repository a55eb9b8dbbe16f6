#include "walk/checks.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>
#include <typeinfo>
#include <utility>
#include <vector>

#include "controls/desktop.h"
#include "core/script_model.h"
#include "forms/editor_controls.h"
#include "forms/fault_texts.h"
#include "support/text.h"
#include "tools/listing.h"
#include "walk/act_rules.h"
#include "walk/saved_script.h"
#include "walk/walker.h"

namespace quillmark {
namespace {

constexpr std::string_view kReady = "ready";

std::string Plain(std::int64_t number) { return std::to_string(number); }

std::string UpperHex(std::int32_t number) {
  std::ostringstream text;
  text << std::uppercase << std::hex << static_cast<std::uint32_t>(number);
  return text.str();
}

bool Matches(const std::string& text, const std::string& expression) {
  static std::map<std::string, std::regex> compiled;  // which takes longer than to match
  return std::regex_match(text, compiled.try_emplace(expression, expression).first->second);
}

/// `paths` with the place of that level instead of "@".
std::string WithLevel(std::string_view paths, int level) {
  return Replaced(std::string(paths), "@", "/Levels/" + Plain(level));
}

void RequireBound(const std::string& name, std::int64_t count, std::int64_t most,
                  std::int64_t least = 0) {
  if (count < least || count > most) {
    throw Finding{name + " is out of its bounds", "# " + Plain(count)};
  }
}

/// A list in the listing ends with its array, whatever its count says.
void CheckCounts(const Json& level) {
  for (const auto& [name, count] : level.items()) {
    if (!name.ends_with("Count") || name == "MipCount") continue;
    const std::string list = name.substr(0, name.size() - std::strlen("Count"));
    const Json& entries = level[level.contains(list + "s") ? list + "s" : list];
    RequireBound(name, count, std::ssize(entries));
  }
}

void CheckShown(const Control& control, const std::string& text) {
  if (text.find('\0') != std::string::npos) {
    throw Finding{DriverName(control) + " shows a zero character", "# " + Quoted(text)};
  }
}

void CheckControl(const Control& control) {
  CheckShown(control, control.Caption());
  if (const auto* list = dynamic_cast<const RowsControl*>(&control)) {
    RequireBound("the row of " + DriverName(control), list->Row(), list->Count() - 1, -1);
  } else if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
    CheckShown(control, box->Text());
    const auto size = static_cast<std::int64_t>(box->Text().size());
    RequireBound("a caret", box->SelectionStart(), size);
    RequireBound("a selection", box->SelectionLength(), size - box->SelectionStart());
  }
  if (const auto* texts = dynamic_cast<const TextRows*>(&control)) {
    for (const std::string& row : texts->Rows()) CheckShown(control, row);
  }
}

/// A bit of a level's flags and the check box for it.
struct Flag {
  const Control* box;
  int bit;
  bool shown;    ///< a refresh ticks the box by the bit
  bool flipped;  ///< a press of the box flips the bit
};

std::vector<Flag> Flags() {
  const FrmEditor& form = frmEditor;
  return {{&form.chkY, 0x0001, true, true},       {&form.chkHorizon, 0x0004, true, true},
          {&form.chkLayer1, 0x0008, false, true}, {&form.chkLayer2, 0x0010, false, true},
          {&form.chkStar, 0x0020, true, true},    {&form.chkLight, 0x0040, true, true},
          {&form.chkTrain, 0x0080, true, false},  {&form.chkPulse, 0x0100, true, true},
          {&form.chkCol, 0x0200, true, true},     {&form.check1, 0x0400, false, true},
          {&form.chkLens, 0x0800, false, true},   {&form.chkTimer, 0x1000, true, true},
          {&form.chkHorus, 0x4000, true, true},   {&form.chkNo, 0x8000, true, false}};
}

}  // namespace

void Checks::Before(const std::string& line, const std::string& prompt) {
  if (prompt == kReady) {
    act_ = line;
    boxed_ = false;
    savePath_.clear();
    level_ = frmEditor.lstLevels.Row();
  }
  if (model_.is_null()) {
    HearFaults();
    model_ = ListScript();
  }
  line_ = line;
  if (prompt.starts_with("file save") && line.starts_with("choose ")) {
    std::istringstream path(line.substr(line.find('"')));
    savePath_ = ReadText(path);
  }
}

void Checks::After(const std::string& answer, const std::string& prompt) {
  boxed_ = boxed_ || prompt.starts_with("box");
  refused_ = answer.find("refused\n") != std::string::npos || answer.starts_with("error:");
  CheckFault();
  CheckChanges(prompt == kReady);
  CheckBounds();
  CheckControls(prompt == kReady);
  if (prompt == kReady && !boxed_ && !refused_) CheckPanel();
  if (prompt.starts_with("box information OK") && !savePath_.empty()) {
    CheckSavedScript(std::exchange(savePath_, {}));
  }
}

void Checks::HearFaults() {
  TheDesktop().TellFaultsBy([this](std::string_view operation, const Fault& fault, bool canGoOn) {
    fault_ = fault;
    return TellFault(operation, fault, canGoOn);
  });
}

void Checks::CheckFault() {
  const std::optional<Fault> fault = std::exchange(fault_, {});
  if (!fault) return;
  const std::string name(FaultName(fault->kind()));
  const std::string kind = Replaced(name, " fault", "");
  if (!Matches(kind, std::string(RuleOf(act_).faults))) {
    throw Finding{"a fault of " + act_ + ": " + name, "ready"};
  }
  const bool selected = frmEditor.lstLevels.Row() >= 0;
  if (selected && std::string_view(fault->what()).find("no level is selected") == 0) {
    throw Finding{"no level is selected, and one is: " + act_, "ready"};
  }
}

void Checks::CheckChanges(bool ready) {
  Json now = ListScript();
  if (now != model_) {
    const std::string_view paths = refused_ ? std::string_view() : RuleOf(act_).paths;
    const std::string before = WithLevel(paths, level_);
    const std::string after = WithLevel(paths, frmEditor.lstLevels.Row());
    for (const Json& change : Json::diff(model_, now)) {
      const std::string path = change["path"];
      if (Matches(path, before) || Matches(path, after)) continue;
      const Json::json_pointer place(path);
      const std::string old = model_.contains(place) ? JsonLine(model_[place]) : "null";
      throw Finding{std::regex_replace(path, std::regex("[0-9]+"), "#") + " changed by " + act_,
                    "model " + path + " " + old};
    }
  }
  CheckFlag(now);
  if (ready && line_ == "press Yes") CheckDelete(now);
  model_ = std::move(now);
}

/// A delete that was confirmed, and met nothing, leaves one less.
void Checks::CheckDelete(const Json& now) const {
  static const std::map<std::string, std::string> counts = {
      {"click frmEditor.cmdLevelDelete", "/NumLevels"},
      {"click frmEditor.Command2", "/NumFileNames"},
      {"click frmEditor.Command4", "@/CutCount"},
      {"click frmEditor.Command14", "@/ObjectCount"}};
  const auto count = counts.find(act_);
  if (count == counts.end()) return;
  const std::string place = WithLevel(count->second, level_);
  const int left = model_[Json::json_pointer(place)].get<int>() - 1;
  if (now[Json::json_pointer(place)] != left) {
    throw Finding{act_ + " does not shorten its list", "model " + place + " " + Plain(left)};
  }
}

void Checks::CheckFlag(const Json& now) const {
  const auto levels = std::min(std::ssize(model_["Levels"]), std::ssize(now["Levels"]));
  if (refused_ || boxed_ || level_ < 0 || level_ >= levels) return;
  const std::string place = "/Levels/" + Plain(level_) + "/LevelFlags";
  const int before = model_[Json::json_pointer(place)];
  const int after = now[Json::json_pointer(place)];
  for (const Flag& flag : Flags()) {
    const std::string name = DriverName(*flag.box);
    if (!flag.flipped || (line_ != "click " + name && line_ != "mouse " + name + " right"))
      continue;
    const auto flipped = static_cast<std::int16_t>(before ^ flag.bit);
    if (after != flipped) {
      throw Finding{name + " flips another bit", "model " + place + " " + Plain(flipped)};
    }
  }
}

void Checks::CheckBounds() {
  const auto levels = std::ssize(TRScript.Levels);
  for (const Json& level : model_["Levels"]) CheckCounts(level);
  // A load or a new script that was broken off leaves the model in pieces.
  const bool whole = TRScript.NumLevels <= levels;
  if (Matches(act_, R"(\w+ (frmEditor\.(Command7|Command24)|frmSelScript\.\w+)\b.*)")) {
    broken_ = true;
  } else if (!whole && !broken_) {
    throw Finding{"there are less levels than counted", "# " + Plain(levels)};
  } else {
    broken_ = broken_ && !whole;
  }
}

void Checks::CheckControls(bool ready) {
  for (const Form* form : TheDesktop().Forms()) {
    for (const Control* control : form->Controls()) CheckControl(*control);
  }
  if (!ready || typeid(hands_) == typeid(Hands)) return;
  Hands logical;
  for (const Form* form : TheDesktop().ShownForms()) {
    for (const Control* control : form->Controls()) {
      const Json shown = hands_.Describe(*control);
      const Json meant = logical.Describe(*control);
      if (shown == meant) continue;
      throw Finding{"the widget differs: " + DriverName(*control),
                    DriverName(*control) + " " + JsonLine(meant)};
    }
  }
}

void Checks::Want(const Control& control, const char* member, const Json& value) {
  if (hands_.Describe(control)[member] == value) return;
  throw Finding{"the panel differs from the record: " + DriverName(control),
                DriverName(control) + " " + JsonLine(Json::object({{member, value}}))};
}

/// Behind an act that ends in a refresh the panel shows the record, and nothing else.
void Checks::CheckPanel() {
  const FrmEditor& form = frmEditor;
  if (act_ == "click frmSelScript.Command1" && form.lstLevels.Count() != TRScript.NumLevels) {
    throw Finding{"a load shows other levels", "# " + Plain(form.lstLevels.Count())};
  }
  const int row = form.lstLevels.Row();
  const bool selects = Matches(act_, R"((select|key) frmEditor\.lstLevels .*)") && row != level_;
  const bool copies = Matches(act_, R"(click frmEditor\.(cmdAddLevel|Command2[0156]))");
  if ((!selects && !copies) || row < 0 || row >= std::ssize(TRScript.Levels)) return;

  const LevelRecord& level = TRScript.Levels[row];
  const auto wantText = [&](const Control& box, std::int64_t number, bool on = true) {
    Want(box, "text", on ? Plain(number) : "0");
  };
  const auto wantRow = [&](const Control& combo, int number) { Want(combo, "row", number); };
  const auto wantTick = [&](const Control& box, bool on) { Want(box, "value", on ? 1 : 0); };
  wantText(form.txtTrack, level.AudioTrack);
  for (int i = 0; i < 6; ++i) wantText(form.txtCamera[i], level.Camera[i]);
  wantText(form.txtCamera[6], level.CameraRoom);
  wantRow(form.cmbFN, level.FileNameIndex);
  wantRow(form.cmbName, level.NameString);
  wantRow(form.cmbCut, level.Cut);
  wantRow(form.cmbFMV, level.Fmv & 0x7F);
  wantRow(form.cmbLegend, IsOn(level.LegendOn) ? level.Legend.value() + 1 : 0);
  for (const Flag& flag : Flags()) {
    if (flag.shown) wantTick(*flag.box, (level.LevelFlags & flag.bit) != 0);
  }
  const bool flare = IsOn(level.LensFlareOn);
  const bool mirror = IsOn(level.MirrorOn);
  wantTick(form.chkLens, flare);
  wantTick(form.chkMirror, mirror);
  wantTick(form.chkLayer1, IsOn(level.Layer1On));
  wantTick(form.chkLayer2, IsOn(level.Layer2On));
  wantTick(form.chkFog, IsOn(level.FogOn));
  wantTick(form.chkUV, IsOn(level.UVRotateOn));
  wantTick(form.check1, level.ResetHub > 0);
  for (int i = 0; i < 4; ++i) {
    wantText(form.txtLayer1[i], level.Layer1[i], IsOn(level.Layer1On));
    wantText(form.txtLayer2[i], level.Layer2[i], IsOn(level.Layer2On));
  }
  for (int i = 0; i < 3; ++i) {
    wantText(form.txtL[i], level.LensFlarePos[i], flare);
    wantText(form.txtL[i + 3], level.LensFlareColour[i], flare);
    wantText(form.txtFog[i], level.Fog[i]);
  }
  wantText(form.txtUV, level.UVRotate, IsOn(level.UVRotateOn));
  wantText(form.txtResetHUB, level.ResetHub);
  wantText(form.txtMirrorRoom, level.MirrorRoom, mirror);
  Want(form.txtMirrorValue, "text", mirror ? UpperHex(level.MirrorValue) : "0");
  Json objects = Json::array();
  for (int i = 0; i < level.ObjectCount; ++i) objects.push_back(Plain(i));
  // Where the legend's row changes, a refresh inside of the refresh lists the cutscenes once more.
  Json cuts = Json::array();
  do {
    for (int i = 0; i < level.CutCount; ++i) {
      cuts.push_back(Json::array({Plain(level.Cuts[i].Type), Plain(level.Cuts[i].Value)}));
    }
  } while (level.CutCount > 0 && std::ssize(cuts) < form.lstCuts.Count());
  Want(form.lstCuts, "rows", cuts);
  Json indices = Json::array();
  for (const ListViewRow& shown : form.lstObj.Rows()) indices.push_back(shown.cells.back());
  if (indices != objects) throw Finding{"lstObj differs from the record", "# " + JsonLine(indices)};
  for (int i = 0; i < level.ObjectCount; ++i) {
    if (form.lstObj.Cell(i, 2) != Plain(level.Objects[i].Id)) {
      throw Finding{"an Id in lstObj differs from the record", "# row " + Plain(i)};
    }
  }
}

}  // namespace quillmark
