#pragma once

#include "controls/controls.h"
#include "controls/form.h"

namespace quillmark {

/// The editor of all strings, with a column and a box for each language.
struct FrmForm2 : Form {
  FrmForm2();

  ListView ListView1{*this,
                     "ListView1",
                     {},
                     {{"#", 700},
                      {"Italiano", 2200},
                      {"Inglese (Regno Unito)", 2200},
                      {"Inglese (Stati Uniti)", 2200},
                      {"Tedesco", 2200},
                      {"Francese", 2200},
                      {"Spagnolo", 2200},
                      {"Giapponese", 2200}}};
  Picture Image1{*this, "Image1", {}};
  ControlArray<TextBox, 7> txtString{*this, "txtString", Design{}};
  ControlArray<Button, 7> cmdOpen{*this,
                                  "cmdOpen",
                                  {{.namedBy = &txtString[0]},
                                   {.namedBy = &txtString[1]},
                                   {.namedBy = &txtString[2]},
                                   {.namedBy = &txtString[3]},
                                   {.namedBy = &txtString[4]},
                                   {.namedBy = &txtString[5]},
                                   {.namedBy = &txtString[6]}}};
  TextBox Text1{*this, "Text1", {}};
  Button Command1{*this, "Command1", {.caption = "OK"}};
  Button Command2{*this, "Command2", {.caption = "Annulla"}};
};

/// The window that searches a string for the object panel.
struct FrmFss : Form {
  FrmFss();

  TextBox txtFind{*this, "txtFind", {}};
  ListBox l{*this, "l", {}};
};

/// The older editor of the strings of one language. No command opens it.
struct FrmStrings : Form {
  FrmStrings();

  ListBox lstStrings{*this, "lstStrings", {}};
  TextBox txtString{*this, "txtString", {}};
  Button Command4{*this, "Command4", {.caption = "\xE0"}};
  Button Command5{*this, "Command5", {.caption = "\xE8"}};
  Button Command6{*this, "Command6", {.caption = "\xEC"}};
  Button Command7{*this, "Command7", {.caption = "\xF2"}};
  Button Command8{*this, "Command8", {.caption = "\xF9"}};
  Button Command1{*this, "Command1", {.caption = "Applica"}};
  Button Command2{*this, "Command2", {.caption = "OK"}};
  Button Command3{*this, "Command3", {.caption = "Annulla"}};
  /// The number of the row that was clicked last, in decimal.
  std::string lstStringsText;
};

extern FrmForm2 Form2;
extern FrmFss fss;
extern FrmStrings frmStrings;

}  // namespace quillmark
