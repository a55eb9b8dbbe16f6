#include "walk/checks.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <span>
#include <sstream>
#include <tuple>
#include <typeinfo>
#include <utility>
#include <vector>

#include "controls/desktop.h"
#include "core/script_model.h"
#include "forms/editor_controls.h"
#include "forms/fault_texts.h"
#include "forms/interface_texts.h"
#include "platform/number_text.h"
#include "strings/language_files.h"
#include "support/text.h"
#include "tools/listing.h"
#include "walk/act_rules.h"
#include "walk/saved_script.h"
#include "walk/walker.h"

namespace quillmark {
namespace {

constexpr std::string_view kReady = "ready";

std::string Plain(std::int64_t number) { return std::to_string(number); }

bool Matches(const std::string& text, const std::string& expression) {
  static std::map<std::string, std::regex> compiled;  // which takes longer than to match
  return std::regex_match(text, compiled.try_emplace(expression, expression).first->second);
}

/// `paths` with the place of that level instead of "@".
std::string WithLevel(std::string_view paths, int level) {
  return Replaced(std::string(paths), "@", "/Levels/" + Plain(level));
}

/// The counted entries, or all that there are if there are less.
template <class Entry>
std::span<const Entry> Held(const DynamicArray<Entry>& entries, int count) {
  return entries.First(std::min(count, static_cast<int>(std::ssize(entries))));
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
    // Where a refresh has failed, objects can be deleted that are on the screen alone.
    RequireBound(name, std::max<int>(0, count), std::ssize(entries));
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
    boxed_ = faulted_ = false;
    replaces_ = Matches(line, R"(\w+ (frmEditor\.Command(7|24)|frmSelScript\.\w+)\b.*)");
    savePath_.clear();
    level_ = frmEditor.lstLevels.Row();
    name_ = frmEditor.cmbName.Row();
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
  if (prompt == kReady) CheckRows();
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
  faulted_ = true;
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
    for (const Json& level : now["Levels"]) CheckCounts(level);
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
  const Json::json_pointer place(WithLevel(count->second, level_));
  const int left = model_.value(place, 0) - 1;
  if (!now.contains(place) || now[place] == left) return;
  throw Finding{act_ + " does not shorten its list",
                "model " + place.to_string() + " " + Plain(left)};
}

void Checks::CheckFlag(const Json& now) const {
  const auto levels = std::min(std::ssize(model_["Levels"]), std::ssize(now["Levels"]));
  if (refused_ || boxed_ || level_ < 0 || level_ >= levels) return;
  const Json::json_pointer place(WithLevel("@/LevelFlags", level_));
  for (const Flag& flag : Flags()) {
    const std::string name = DriverName(*flag.box);
    const bool pressed = line_ == "click " + name || line_ == "mouse " + name + " right";
    const auto flipped = static_cast<std::int16_t>(model_[place].get<int>() ^ flag.bit);
    if (!pressed || !flag.flipped || now[place] == flipped) continue;
    throw Finding{name + " flips another bit", "model " + place.to_string() + " " + Plain(flipped)};
  }
}

void Checks::CheckBounds() {
  bool whole = model_["NumLevels"] == model_["Levels"].size() &&
               model_["NumFileNames"] == model_["FileNames"].size();
  for (const Json& slot : model_["Languages"]) {
    const bool listed =
        slot["Offsets"].size() == slot["Total"] && slot["Strings"].size() == slot["Total"];
    whole = whole && (listed || slot["Loaded"] != kOn);
  }
  // A load or a new script that was broken off leaves the model in pieces.
  if (!whole && !broken_ && !replaces_) throw Finding{"there is less than counted", "# " + act_};
  broken_ = replaces_ || (broken_ && !whole);
}

/// Rows that agree with the model go on doing so, but for faults and for what is told here.
void Checks::CheckRows() {
  const FrmEditor& form = frmEditor;
  // That the widgets show the same is looked at in any case.
  std::vector<std::string> names;
  for (const std::string& name : Held(TRScript.FileNames, TRScript.NumFileNames)) {
    names.push_back(ShownText(name));
  }
  std::vector<std::string> levels;
  for (const LevelRecord& level : Held(TRScript.Levels, TRScript.NumLevels)) {
    const std::string& name = StringsMod.StringPool[level.NameString];
    levels.push_back(levels.empty() ? TextOf(Entry::TitleLevelRow) : ShownText(name));
  }
  // Titles follow where the panel shows another name. Till then an insert leaves too many.
  const std::tuple<const char*, bool, bool> lists[] = {
      {"NumLevels", form.lstLevels.Count() == TRScript.NumLevels,
       act_.find(".Command19") != std::string::npos},
      {"lstLevels", form.lstLevels.Rows() == levels, form.cmbName.Row() == name_},
      {"lstFileNames", form.lstFileNames.Rows() == names, false},
      {"cmbFN", form.cmbFN.Rows() == names, act_ == "menu frmEditor.mnuEraseAllFiles"}};
  const bool loaded = act_ == "click frmSelScript.Command1" && !boxed_ && !refused_;
  for (const auto& [list, agrees, mayPart] : lists) {
    bool& agreed = agreed_[list];
    if (!agrees && (loaded || (agreed && !mayPart && !faulted_ && !replaces_))) {
      throw Finding{std::string(list) + " differs from the model", "# " + act_};
    }
    agreed = agrees && !broken_;
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
      if (hands_.SeeTheSame(*control, logical)) continue;
      throw Finding{"the widget differs: " + DriverName(*control),
                    DriverName(*control) + " " + JsonLine(logical.Describe(*control))};
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
  Want(form.txtMirrorValue, "text",
       mirror ? HexText(static_cast<std::uint32_t>(level.MirrorValue.value())) : "0");
  // Where the legend's row changes, a refresh inside of the refresh lists the cutscenes once more.
  Json cuts = Json::array();
  do {
    for (int i = 0; i < level.CutCount; ++i) {
      cuts.push_back(Json::array({Plain(level.Cuts[i].Type), Plain(level.Cuts[i].Value)}));
    }
  } while (level.CutCount > 0 && std::ssize(cuts) < form.lstCuts.Count());
  Want(form.lstCuts, "rows", cuts);
  bool listed = form.lstObj.Count() == std::max<int>(0, level.ObjectCount);
  for (int i = 0; listed && i < level.ObjectCount; ++i) {
    listed = form.lstObj.Cell(i, 2) == Plain(level.Objects[i].Id) &&
             form.lstObj.Rows()[static_cast<std::size_t>(i)].cells.back() == Plain(i);
  }
  if (!listed) throw Finding{"lstObj differs from the record", "# row " + Plain(row)};
}

}  // namespace quillmark
