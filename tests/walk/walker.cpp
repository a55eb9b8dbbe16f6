#include "walk/walker.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "controls/desktop.h"
#include "core/script_model.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "support/script_generator.h"
#include "support/text.h"

namespace quillmark {
namespace {

const std::vector<std::string> kTexts = {
    "",      "0",           "1",          "4",          "9",        "12",
    "127",   "128",         "200",        "255",        "256",      "300",
    "32767", "32768",       "2147483647", "2147483648", "-1",       "1.5",
    "12a",   "FFFF",        "8000",       "1F",         "1e3",      "255.4",
    "12G4",  "99999999999", "abc",        " 5",         "Z",        "LEVEL7",
    "DATA",  "DATA\\",      "DATA\\EBB",  "data\\x",    "\xE0\xE8", "Breakwater",
    "t",     "T",           "\x85",       ","};
const std::vector<std::string> kFolders = {"tr4", "tr5", "tr4", "out"};
const std::vector<std::string> kLanguages = {"ENGLISH", "ENGLISH", "ENGLISH", "ENGLISH",
                                             "ENGLISH", "ITALIAN", "FRENCH",  "US"};

const std::vector<std::string> kRareActs = {"enable frmEditor.Command22",
                                            "enable frmEditor.Command24",
                                            "enable frmEditor.Command27",
                                            "enable frmEditor.Command30",
                                            "call ShowAbout",
                                            "show frmStrings"};

/// Controls whose acts take the walk further than others', each as often as it should come.
std::vector<const Control*> Favourites() {
  const FrmEditor& form = frmEditor;
  return {&form.lstLevels,   &form.lstLevels, &form.lstLevels,      &form.lstObj,
          &form.cmdAddLevel, &form.Command19, &form.cmdLevelDelete, &form.Command20,
          &form.Command21,   &form.Command25, &form.Command26,      &form.Command5,
          &form.Command12,   &form.Command18, &form.Command3,       &form.Command15,
          &form.cmbName,     &form.Command6,  &form.Command29,      &form.lstFileNames,
          &form.Command15,   &form.Command15, &form.Command15,      &form.chkFog,
          &form.chkLens,     &form.chkMirror, &form.chkLayer1,      &form.cmbType};
}

/// What ends or empties everything comes less often.
int PercentTaken(const Control& control) {
  if (&control == &frmEditor.Command8) return 2;
  if (&control == &frmEditor.Command7) return 20;
  if (&control == &frmEditor.mnuEraseAll) return 30;
  return 100;
}

bool IsPlain(const Control& control) {
  return control.Kind() == ControlKind::Label || control.Kind() == ControlKind::Picture ||
         control.Kind() == ControlKind::Frame || control.Kind() == ControlKind::PopupMenu;
}

}  // namespace

std::string DriverName(const Control& control) {
  return control.Owner().Name() + "." + control.FullName();
}

int Walker::Below(int bound) {
  return static_cast<int>(engine_() % static_cast<std::uint32_t>(bound));
}

std::vector<std::string> Walker::Preparation() {
  std::vector<std::string> lines = {"@ fold $WORK/out", "@ text $WORK/out/SCRIPT.DAT \"\""};
  constexpr int kLevelBlock = 400;  // of both samples: behind it stand offsets and streams
  constexpr int kReach = 650;
  if (Chance(33)) {
    ScriptGenerator generator(static_cast<unsigned>(Below(10000)), true);
    for (const bool tr5 : {false, true}) {
      const std::string write = tr5 ? "@ write $WORK/tr5/" : "@ write $WORK/tr4/";
      lines.push_back(write + "SCRIPT.DAT " + HexOf(generator.Script(tr5 ? kTr5 : kTr4)));
      if (Chance(15)) lines.push_back(write + "ENGLISH.DAT " + HexOf(generator.LanguageFile()));
    }
    return lines;
  }
  const int patches = Chance(50) ? 0 : Below(6) + 1;
  for (int i = 0; i < patches; ++i) {
    const std::string patch = Chance(50) ? "@ patch $WORK/tr4/" : "@ patch $WORK/tr5/";
    lines.push_back(patch + "SCRIPT.DAT " + std::to_string(kLevelBlock + Below(kReach)) + " " +
                    HexOf(std::string(1, static_cast<char>(Below(256)))));
  }
  return lines;
}

std::string Walker::NextLine(const std::string& prompt) {
  if (prompt.starts_with("box ")) return AnswerBox(prompt);
  if (prompt.starts_with("input ")) return AnswerInput();
  if (prompt.starts_with("file ")) return AnswerFile(prompt);
  if (TheDesktop().RunningTimer() != nullptr) return "timer";
  if (frmSelScript.Shown() && Chance(80)) return ChooseGame();
  if (frmEditor.Command7.Reachable() && Chance(50)) {
    const ListBox& levels = frmEditor.lstLevels;
    if (!frmEditor.Command15.Enabled() || levels.Count() == 0) return "click frmEditor.Command7";
    if (levels.Row() < 0)
      return "select frmEditor.lstLevels " + std::to_string(Below(levels.Count()));
  }
  if (frmEditor.lstObj.Row() >= 0 && frmEditor.Command14.Reachable() && Chance(15)) {
    return "click frmEditor.Command14";
  }
  const Form& front = *TheDesktop().ShownForms().back();
  if (&front != &frmEditor && &front != &frmSelScript && Chance(8)) return "close " + front.Name();
  if (Chance(3)) return RareAct();
  const Control* const control = AnyReachable();
  return control == nullptr ? "forms" : ActOn(*control);
}

std::string Walker::Text() { return Quoted(Chance(40) ? std::to_string(Below(300)) : Any(kTexts)); }

std::string Walker::AnyKey() {
  static const std::vector<std::string> keys = {
      "Up",    "Down",  "Left",  "Right", "Up",    "Down",  "Tab",   "Backspace", "Delete",
      "Enter", "\"1\"", "\"b\"", "\"F\"", "\" \"", "\"7\"", "\"-\"", "Escape"};
  return Any(keys);
}

std::string Walker::AnswerBox(const std::string& prompt) {
  std::istringstream words(prompt);
  std::string word;
  std::string buttons;
  words >> word >> word >> buttons;
  if (buttons == "End,Continue") return Below(400) == 0 ? "press End" : "press Continue";
  std::replace(buttons.begin(), buttons.end(), ',', ' ');
  std::istringstream names(buttons);
  const std::vector<std::string> all{std::istream_iterator<std::string>(names), {}};
  return "press " + (Chance(50) ? all.front() : Any(all));
}

std::string Walker::AnswerInput() { return Chance(12) ? "cancel" : "reply " + Text(); }

std::string Walker::AnswerFile(const std::string& prompt) {
  if (Chance(6)) return "cancel";
  if (Chance(3)) return "choose \"\"";
  const bool save = prompt.starts_with("file save");
  const auto path = [](const std::string& place) { return "choose \"$" + place + "\""; };
  if (prompt.find(".bin") != std::string::npos) {
    return path(Any<std::string>({"PROGRAM/ENGLISH.BIN", "PROGRAM/GERMAN.BIN", "WORK/none.bin"}));
  }
  if (prompt.find("SCRIPT.DAT") != std::string::npos) {
    const std::string folder = Any(kFolders);
    if (!save) game_ = folder;
    return path("WORK/" + folder + (Chance(4) ? "/none.dat" : "/SCRIPT.DAT"));
  }
  const std::string name = Chance(4) ? "SCRIPT" : Any(kLanguages);
  return path("WORK/" + game_ + "/" + name + ".DAT");
}

/// Most often the game that the script is for.
std::string Walker::ChooseGame() {
  const bool tr5 = game_ == "tr5";
  if (frmSelScript.Option2.On() == tr5) return "click frmSelScript.Command1";
  return tr5 ? "click frmSelScript.Option2" : "click frmSelScript.Option1";
}

std::string Walker::RareAct() {
  if (Chance(12)) {
    return "resize frmEditor " + std::to_string(600 + Below(500)) + " " +
           std::to_string(500 + Below(200));
  }
  if (Chance(85)) {
    const std::string act = Any(kRareActs);
    return act.starts_with("show ") && TheDesktop().ModalForm() != nullptr ? "forms" : act;
  }
  // Most likely one that can't be reached now.
  const Form& form = *Any(TheDesktop().Forms());
  if (form.Controls().empty()) return "forms";
  const Control& any = *Any(form.Controls());
  return IsPlain(any) || PercentTaken(any) < 100 ? "forms" : ActOn(any);
}

const Control* Walker::AnyReachable() {
  std::vector<const Control*> reachable;
  const auto add = [&](const Control* control) {
    if (!IsPlain(*control) && control->Reachable()) reachable.push_back(control);
  };
  if (Chance(32)) {
    for (const Control* control : Favourites()) add(control);
  }
  if (reachable.empty()) {
    for (const Form* form : TheDesktop().ShownForms()) {
      for (const Control* control : form->Controls()) add(control);
    }
  }
  if (reachable.empty()) return nullptr;
  const Control* const control = Any(reachable);
  return Chance(PercentTaken(*control)) ? control : nullptr;
}

std::string Walker::ActOn(const Control& control) {
  const std::string name = DriverName(control);
  switch (control.Kind()) {
    case ControlKind::MenuEntry:
      return "menu " + name;
    case ControlKind::TextBox:
      return ActOnText(name);
    case ControlKind::ListBox:
    case ControlKind::ComboBox:
    case ControlKind::ListView:
      return ActOnRows(name, static_cast<const RowsControl&>(control).Count());
    case ControlKind::CheckBox:
      if (Chance(20)) return "mouse " + name + " right";
      [[fallthrough]];
    default:
      if (Chance(8)) return "space " + name;
      if (Chance(5)) return "key " + name + " " + AnyKey();
      return "click " + name;
  }
}

std::string Walker::ActOnRows(const std::string& name, int rows) {
  if (rows == 0 || Chance(12)) return "key " + name + " " + AnyKey();
  if (Chance(12)) return "mouse " + name + (Chance(70) ? " right" : " left");
  return "select " + name + " " + std::to_string(Below(rows));
}

std::string Walker::ActOnText(const std::string& name) {
  if (Chance(20)) return "key " + name + " " + AnyKey();
  const std::string act = Chance(70) ? "type " : Chance(60) ? "append " : "paste ";
  return act + name + " " + Text();
}

}  // namespace quillmark
