// Which control gets which text of the interface, for all of them: by their numbers, since a
// language file is a table by position. And how that table is read.

#include <set>
#include <sstream>
#include <tuple>

#include "controls/controls.h"
#include "controls/desktop.h"
#include "controls/form.h"
#include "forms/apply_texts.h"
#include "forms/editor_controls.h"
#include "forms/fault_texts.h"
#include "forms/interface_texts.h"
#include "frame/interface_table.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

/// Entries one after the other and the places that they go to. A place behind "=" gets the text of
/// the one before; a column stands behind its list's name, and the caption of a form is "title".
struct Run {
  const char* form;
  const char* kind;
  int first;
  const char* places;
};
const Run kRuns[] = {
    {"frmEditor", "caption", 68,
     "Label1 Label2 Label3 Label10 Label5(0) Label5(1) Label6 chkNo chkHorizon chkCol chkTrain "
     "chkTimer chkY chkLight chkStar chkHorus chkLayer1 chkLayer2 chkLens check1 chkMirror chkUV "
     "chkFog chkPulse chkWe Frame6 Frame4 Frame5 Frame7 Command24 Command7 Command15 Command6 "
     "Command13 Command11 Command28 Command27 Command23 Command8 Command29 Check2"},
    {"frmEditor", "caption", 126, "mnuEraseAll =mnuEraseAllFiles"},
    {"frmEditor", "caption", 142, "Command30"},
    {"frmEditor", "caption", 146, "Label4"},
    {"frmEditor", "column", 130, "lstObj/1 lstObj/3 lstObj/4 lstObj/5"},
    {"frmEditor", "tip", 150,
     "cmdAddLevel Command19 cmdLevelDelete Command20 Command21 Command25 Command26 Command1 "
     "Command2 Command16 Command3 Command4 Command5 Command12 Command14 Command17 Command18 "
     "Command32 Command10 lstLevels lstFileNames lstObj lstCuts cmbType cmbID cmbCombo cmbString "
     "txtObj(0) =txtObj(1) =txtObj(2) =txtObj(3) =txtObj(4) =txtObj(5) txtFind"},
    {"frmEditor", "placeholder", 187, "lstLevels"},
    {"frmEditor", "hint", 188,
     "Check2 Command7 Command15 Command8 chkWe =chkTrain =chkNo txtCamera(0) =txtCamera(1) "
     "=txtCamera(2) =txtCamera(3) =txtCamera(4) =txtCamera(5) =txtCamera(6)"},
    {"Form2", "caption", 109, "Command1 Command2 title"},
    {"Form2", "column", 134,
     "ListView1/2 ListView1/3 ListView1/4 ListView1/5 ListView1/6 ListView1/7 ListView1/8"},
    {"Form2", "tip", 134,
     "txtString(0) txtString(1) txtString(2) txtString(3) txtString(4) txtString(5) txtString(6)"},
    {"Form2", "tip", 184, "ListView1"},
    {"frmEx", "caption", 109, "Command1 Command2"},
    {"frmEx", "caption", 112,
     "title Label1(0) =Label1(1) Label2(0) =Label2(1) Label3(0) =Label3(1)"},
    {"frmLangEditor", "caption", 99, "Command2"},
    {"frmLangEditor", "caption", 110, "Command3"},
    {"frmLangEditor", "caption", 116, "title"},
    {"frmLangEditor", "column", 127, "l/1 l/2"},
    {"frmLangEditor", "tip", 179, "Command1 l txtString"},
    {"frmOptions", "caption", 109, "Command2 Command1"},
    {"frmOptions", "caption", 117,
     "title chkFlags(0) chkFlags(1) chkFlags(2) chkFlags(3) chkFlags(4) chkFlags(5) chkFlags(6) "
     "chkFlags(7)"},
    {"fss", "tip", 182, "txtFind l"},
    {"fss", "caption", 186, "title"},
    {"raw", "tip", 185, "l"}};

std::string Line(const std::string& form, const std::string& place, const std::string& kind,
                 const std::string& text) {
  return form + "." + place + " " + kind + " " + text;
}

std::set<std::string> ExpectedTexts() {
  std::set<std::string> lines;
  for (const Run& run : kRuns) {
    int entry = run.first - 1;
    std::istringstream places(run.places);
    for (std::string place; places >> place;) {
      const bool same = place.front() == '=';
      if (!same) ++entry;
      lines.insert(Line(run.form, place.substr(same ? 1 : 0), run.kind, std::to_string(entry)));
    }
  }
  return lines;
}

/// All texts of the form that are numbers, as the entries are here.
void AddTexts(const Form& form, std::set<std::string>& lines) {
  const auto add = [&](const std::string& place, const char* kind, const std::string& text) {
    const bool isEntry = text.starts_with("entry ");
    if (isEntry) lines.insert(Line(form.Name(), place, kind, text.substr(6)));
  };
  add("title", "caption", form.Caption());
  for (const Control* control : form.Controls()) {
    const std::string name = control->FullName();
    add(name, "caption", control->Caption());
    add(name, "tip", control->ToolTip());
    add(name, "hint", control->Hint());
    if (const auto* list = dynamic_cast<const ListBox*>(control)) {
      add(name, "placeholder", list->Placeholder());
    } else if (const auto* view = dynamic_cast<const ListView*>(control)) {
      for (std::size_t i = 0; i < view->Columns().size(); ++i) {
        add(name + "/" + std::to_string(i + 1), "column", view->Columns()[i].caption);
      }
    }
  }
}

TEST(FormTextsTest, EachEntryGoesToItsPlacesAndNoOther) {
  TheDesktop().Reset();
  for (int i = 0; i < kInterfaceEntries; ++i) InterfaceTable[i] = "entry " + std::to_string(i);
  std::set<std::string> shown;
  for (Form* form : TheDesktop().Forms()) {
    ApplyTexts(*form);
    AddTexts(*form, shown);
  }
  EXPECT_EQ(shown, ExpectedTexts());
  InterfaceTable = {};
  TheDesktop().Reset();
}

TEST(FormTextsTest, AFaultIsToldInTheInterfacesLanguage) {
  const Fault fault(FaultKind::File, "", "/\u00E8");
  EXPECT_TRUE(TellFault("", fault, false).text.ends_with("/\xE8"));
  InterfaceTable[196] = "closing";
  InterfaceTable[212] = "no memory";
  const Fault memory(FaultKind::Memory, "");
  EXPECT_TRUE(TellFault("Close the window", memory, false).text.starts_with("\"closing"));
  EXPECT_TRUE(TellFault("Resize the window", memory, false).text.ends_with("\n\nno memory"));
  InterfaceTable[213] = "not whole";
  InterfaceTable[214] = "kept";
  EXPECT_EQ(TellKeptContent({"/\u00E8", "/b"}), "not whole\n/\xE8\n\nkept\n/b");
  InterfaceTable = {};
}

TEST(FormTextsTest, WhatIsDisabledOrHiddenAtFirst) {
  TheDesktop().Reset();
  std::string names;
  for (const Control* control : frmEditor.Controls()) {
    if (!control->Enabled()) names += control->Name() + " ";
    if (!control->Visible()) names += "(" + control->Name() + ") ";
  }
  EXPECT_EQ(names,
            "Command24 Command15 Command6 Command13 Command11 (Command27) cmdAddLevel Command19 "
            "cmdLevelDelete Command20 Command21 Command25 Command26 Command1 Command2 Command16 "
            "Frame3 Command10 (Command22) (Command30) cmdS (cmdS) (lstObj2) cmbCombo Command5 "
            "Command12 Command14 Command17 Command18 Command9 (Command9) Command3 Command4 ");
}

TEST_F(CoreTest, ReadsTheInterfaceTable) {
  const std::string magic = Hex("cd00cdcd");
  using Case = std::tuple<std::string, std::string, int, const char*>;
  for (const auto& [bytes, outcome, last, text] : std::initializer_list<Case>{
           {magic + std::string("one\0\0two\0three", 14), "true", 3, "three"},
           {magic + Zeros(4096) + std::string("end\0", 4), "true", 4096, "end"},
           {magic + Zeros(4097) + "x", "subscript fault", 4096, ""},
           {magic, "true", 0, ""},
           {Hex("cd00cdcc") + "x", "false", 0, ""},
           {"", "false", 0, ""}}) {
    InterfaceTable = {};
    MakeFile(Path("language.bin"), bytes);
    EXPECT_EQ(Outcome(ReadInterfaceTable), outcome);
    EXPECT_EQ(InterfaceTable[last], text);
    Files.CloseAll();
  }
  InterfaceTable[0] = "kept ";
  MakeFile(Path("language.bin"), magic + "more");
  EXPECT_TRUE(ReadInterfaceTable());
  EXPECT_EQ(InterfaceTable[0], "kept more");
  InterfaceTable = {};
}

}  // namespace
}  // namespace quillmark
