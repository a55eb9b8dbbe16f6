#pragma once

#include "controls/controls.h"
#include "controls/form.h"
#include "controls/timer.h"

namespace quillmark {

/// The splash form.
struct FrmForm1 : Form {
  FrmForm1();

  Picture Image1{*this, "Image1", {}};
  Label Label2{*this, "Label2", {.caption = "Quillmark"}};
  Label Label1{*this, "Label1", {}};
  Label Label3{*this, "Label3", {.caption = "Creato da Dorvane"}};
  Timer Timer1{"Start the program", 2000};
};

/// The script's head values.
struct FrmOptions : Form {
  FrmOptions();

  ControlArray<CheckBox, 8> chkFlags{*this,
                                     "chkFlags",
                                     {{.caption = "Scegli livello"},
                                      {.caption = "Mostra titoli di testa"},
                                      {.caption = "Abilita caricamento/salvataggio"},
                                      {.caption = "Abilita DOZY"},
                                      {.caption = "Versione demo"},
                                      {.caption = "Sconosciuto #1"},
                                      {.caption = "Sconosciuto #2"},
                                      {.caption = "Sconosciuto #3"}}};
  Label Label1{*this, "Label1", {.caption = "Framerate:"}};
  TextBox txtFrameRate{*this, "txtFrameRate", {.namedBy = &Label1}};
  Label Label2{*this, "Label2", {.caption = "Security:"}};
  TextBox txtSec{*this, "txtSec", {.namedBy = &Label2}};
  Button Command2{*this, "Command2", {.caption = "OK"}};
  Button Command1{*this, "Command1", {.caption = "Annulla"}};
};

/// The six file extensions.
struct FrmEx : Form {
  FrmEx();

  ControlArray<Frame, 2> Frame1{*this, "Frame1", {{.caption = "PSX"}, {.caption = "PC"}}};
  ControlArray<Label, 2> Label1{*this, "Label1", InBothFrames("Livelli:")};
  ControlArray<Label, 2> Label2{*this, "Label2", InBothFrames("FMV:")};
  ControlArray<Label, 2> Label3{*this, "Label3", InBothFrames("Cutscene:")};
  ControlArray<TextBox, 6> txtExtensions{
      *this,
      "txtExtensions",
      {{.frame = &Frame1[0], .namedBy = &Label1[0], .maxLength = 3},
       {.frame = &Frame1[0], .namedBy = &Label2[0], .maxLength = 3},
       {.frame = &Frame1[0], .namedBy = &Label3[0], .maxLength = 3},
       {.frame = &Frame1[1], .namedBy = &Label1[1], .maxLength = 3},
       {.frame = &Frame1[1], .namedBy = &Label2[1], .maxLength = 3},
       {.frame = &Frame1[1], .namedBy = &Label3[1], .maxLength = 3}}};
  Button Command1{*this, "Command1", {.caption = "OK"}};
  Button Command2{*this, "Command2", {.caption = "Annulla"}};

 private:
  std::vector<Design> InBothFrames(const char* caption);
};

/// The choice of the game, at every load.
struct FrmSelScript : Form {
  FrmSelScript();

  Frame Frame1{*this, "Frame1", {}};
  OptionButton Option1{*this, "Option1", {.frame = &Frame1, .caption = "TR4", .ticked = true}};
  OptionButton Option2{*this, "Option2", {.frame = &Frame1, .caption = "TR5"}};
  Button Command1{*this, "Command1", {.caption = "OK"}};
};

/// The editor of the interface's own texts.
struct FrmLangEditor : Form {
  FrmLangEditor();

  Label Label1{*this, "Label1", {.caption = "File:"}};
  TextBox Text1{*this, "Text1", {.namedBy = &Label1}};
  Button Command1{*this, "Command1", {.caption = "..."}};
  ListView l{*this, "l", {}, {{"Elemento", 3600}, {"Traduzione", 3600}}};
  TextBox txtString{*this, "txtString", {}};
  Button Command2{*this, "Command2", {.caption = "Salva"}};
  Button Command3{*this, "Command3", {.caption = "Annulla"}};
};

/// The stream of one level as a hexadecimal dump.
struct FrmRaw : Form {
  FrmRaw();

  ListBox l{*this, "l", {}};
  Button Command1{*this, "Command1", {.caption = "OK"}};
};

/// The old viewer: the head of the script and what `LevelRaw` holds of each level.
struct FrmOldPrototipe : Form {
  FrmOldPrototipe();

  Label Label1{*this, "Label1", {.caption = "Flags:"}};
  TextBox tFlags{*this, "tFlags", {.namedBy = &Label1}};
  Label Label2{*this, "Label2", {.caption = "Framerate:"}};
  TextBox tFramerate{*this, "tFramerate", {.namedBy = &Label2}};
  Label Label3{*this, "Label3", {.caption = "Security flag:"}};
  TextBox tSec{*this, "tSec", {.namedBy = &Label3}};
  Label Label4{*this, "Label4", {.caption = "Number of levels:"}};
  TextBox tNumL{*this, "tNumL", {.namedBy = &Label4}};
  Label Label5{*this, "Label5", {.caption = "Number of filenames strings:"}};
  TextBox tF{*this, "tF", {.namedBy = &Label5}};
  Label Label6{*this, "Label6", {.caption = "Size of level filenames strings data:"}};
  TextBox tFS{*this, "tFS", {.namedBy = &Label6}};
  Label Label7{*this, "Label7", {.caption = "bytes"}};
  Label Label8{*this, "Label8", {.caption = "Size of level script data:"}};
  TextBox tSS{*this, "tSS", {.namedBy = &Label8}};
  Label Label9{*this, "Label9", {.caption = "bytes"}};
  ListBox lex{*this, "lex", {}};
  ListBox lFN{*this, "lFN", {}};
  ListBox lstLangFiles{*this, "lstLangFiles", {}};
  ListBox lstLevels{*this, "lstLevels", {}};
  ListBox lstScriptData{*this, "lstScriptData", {}};
  ListBox lstStrings{*this, "lstStrings", {}};
  Label lblFN{*this, "lblFN", {}};
  Button Command1{*this, "Command1", {.caption = "Editor"}};
};

/// The start of a view of the TR5 inventory: frames and buttons without a task.
struct FrmInventory : Form {
  FrmInventory();

  Frame Frame1{*this, "Frame1", {.caption = "Frame1"}};
  Frame Frame2{*this, "Frame2", {.caption = "Frame2"}};
  Button Command1{*this, "Command1", {.caption = "Command1"}};
  Button Command2{*this, "Command2", {.caption = "Command2"}};
};

extern FrmForm1 Form1;
extern FrmOptions frmOptions;
extern FrmEx frmEx;
extern FrmSelScript frmSelScript;
extern FrmLangEditor frmLangEditor;
extern FrmRaw raw;
extern FrmOldPrototipe OldPrototipe;
extern FrmInventory frmInventory;

}  // namespace quillmark
