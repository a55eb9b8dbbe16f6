#pragma once

#include "controls/controls.h"
#include "controls/form.h"

namespace quillmark {

/// The main form: the level list, the panel of the selected level, and the script's commands. The
/// selected level has no variable of its own: it is the selected row of `lstLevels`.
struct FrmEditor : Form {
  FrmEditor();

  Frame Frame1{*this, "Frame1", {}};
  Button Command24{*this, "Command24", {.caption = "Nuovo", .enabled = false}};
  Button Command7{*this, "Command7", {.caption = "Carica"}};
  Button Command15{*this, "Command15", {.caption = "Salva", .enabled = false}};
  Button Command6{*this, "Command6", {.caption = "Modifica stringhe", .enabled = false}};
  Button Command13{*this, "Command13", {.caption = "Estensioni", .enabled = false}};
  Button Command11{*this, "Command11", {.caption = "Opzioni principali", .enabled = false}};
  Button Command28{*this, "Command28", {.caption = "Editor di lingue"}};
  Button Command27{*this, "Command27", {.caption = "Prototipo", .visible = false}};
  CheckBox Check2{*this, "Check2", {.caption = "Crea backup"}};
  Button Command23{*this, "Command23", {.caption = "Guida"}};
  Button Command8{*this, "Command8", {.caption = "Esci"}};

  Frame Frame4{*this, "Frame4", {.caption = "Livelli"}};
  ListBox lstLevels{*this, "lstLevels", {.frame = &Frame4}};
  Button cmdAddLevel{*this, "cmdAddLevel", {.frame = &Frame4, .enabled = false}};
  Button Command19{*this, "Command19", {.frame = &Frame4, .enabled = false}};
  Button cmdLevelDelete{*this, "cmdLevelDelete", {.frame = &Frame4, .enabled = false}};
  Button Command20{*this, "Command20", {.frame = &Frame4, .enabled = false}};
  Button Command21{*this, "Command21", {.frame = &Frame4, .enabled = false}};
  Button Command25{*this, "Command25", {.frame = &Frame4, .enabled = false}};
  Button Command26{*this, "Command26", {.frame = &Frame4, .enabled = false}};
  Label Label8{*this, "Label8", {.frame = &Frame4}};
  MenuEntry mnuEraseAll{*this, "mnuEraseAll", {.caption = "&Cancella tutti"}};
  PopupMenu popup1{*this, "popup1", {&mnuEraseAll}};

  Frame Frame5{*this, "Frame5", {.caption = "Nomi file"}};
  ListBox lstFileNames{*this, "lstFileNames", {.frame = &Frame5}};
  Button Command1{*this, "Command1", {.frame = &Frame5, .enabled = false}};
  Button Command2{*this, "Command2", {.frame = &Frame5, .enabled = false}};
  Button Command16{*this, "Command16", {.frame = &Frame5, .enabled = false}};
  MenuEntry mnuEraseAllFiles{*this, "mnuEraseAllFiles", {.caption = "&Cancella tutti"}};
  PopupMenu popu2{*this, "popu2", {&mnuEraseAllFiles}};

  Frame Frame3{*this, "Frame3", {.enabled = false}};
  Label Label3{*this, "Label3", {.frame = &Frame3, .caption = "Nome:"}};
  ComboBox cmbName{*this, "cmbName", {.frame = &Frame3, .namedBy = &Label3}};
  Label Label2{*this, "Label2", {.frame = &Frame3, .caption = "Traccia audio:"}};
  TextBox txtTrack{*this, "txtTrack", {.frame = &Frame3, .namedBy = &Label2, .text = "000"}};
  Label Label1{*this, "Label1", {.frame = &Frame3, .caption = "Nome file:"}};
  ComboBox cmbFN{*this, "cmbFN", {.frame = &Frame3, .namedBy = &Label1}};
  Label Label10{*this, "Label10", {.frame = &Frame3, .caption = "Legenda:"}};
  ComboBox cmbLegend{
      *this, "cmbLegend", {.frame = &Frame3, .namedBy = &Label10, .rows = {"Nessuna"}}};
  Label Label4{*this, "Label4", {.frame = &Frame3, .caption = "Telecamera di caricamento:"}};
  ControlArray<TextBox, 7> txtCamera{*this, "txtCamera", {.frame = &Frame3, .namedBy = &Label4}};
  CheckBox chkHorizon{*this, "chkHorizon", {.frame = &Frame3, .caption = "Orizzonte"}};
  CheckBox chkCol{
      *this, "chkCol", {.frame = &Frame3, .caption = "Alone biancastro sull'orizzonte"}};
  CheckBox chkLight{*this, "chkLight", {.frame = &Frame3, .caption = "Temporale"}};
  CheckBox chkStar{*this, "chkStar", {.frame = &Frame3, .caption = "Starfield"}};
  CheckBox chkWe{*this, "chkWe", {.frame = &Frame3, .caption = "Weather"}};
  CheckBox chkPulse{*this, "chkPulse", {.frame = &Frame3, .caption = "Pulse"}};
  CheckBox chkTimer{*this, "chkTimer", {.frame = &Frame3, .caption = "Timer"}};
  CheckBox chkTrain{*this, "chkTrain", {.frame = &Frame3, .caption = "Treno"}};
  CheckBox chkNo{*this, "chkNo", {.frame = &Frame3, .caption = "Nessun livello"}};
  CheckBox chkY{*this, "chkY", {.frame = &Frame3, .caption = "Lara giovane"}};
  CheckBox chkHorus{
      *this, "chkHorus", {.frame = &Frame3, .caption = "Rimuovi amuleto di Horus dall'inventario"}};
  Label Label11{*this, "Label11", {.frame = &Frame3, .caption = "Cielo 1: "}};
  CheckBox chkLayer1{*this, "chkLayer1", {.frame = &Frame3, .caption = "Layer1:"}};
  ControlArray<TextBox, 4> txtLayer1{*this, "txtLayer1", {.frame = &Frame3, .namedBy = &chkLayer1}};
  CheckBox chkLayer2{*this, "chkLayer2", {.frame = &Frame3, .caption = "Layer2:"}};
  ControlArray<TextBox, 4> txtLayer2{*this, "txtLayer2", {.frame = &Frame3, .namedBy = &chkLayer2}};
  CheckBox chkLens{*this, "chkLens", {.frame = &Frame3, .caption = "LensFlare:"}};
  ControlArray<TextBox, 6> txtL{*this, "txtL", {.frame = &Frame3, .namedBy = &chkLens}};
  CheckBox chkFog{*this, "chkFog", {.frame = &Frame3, .caption = "Nebbia:"}};
  ControlArray<TextBox, 3> txtFog{*this, "txtFog", {.frame = &Frame3, .namedBy = &chkFog}};
  CheckBox chkUV{*this, "chkUV", {.frame = &Frame3, .caption = "UVRotate:"}};
  TextBox txtUV{*this, "txtUV", {.frame = &Frame3, .namedBy = &chkUV}};
  CheckBox chkMirror{*this, "chkMirror", {.frame = &Frame3, .caption = "Specchio:"}};
  TextBox txtMirrorRoom{*this, "txtMirrorRoom", {.frame = &Frame3, .namedBy = &chkMirror}};
  TextBox txtMirrorValue{*this, "txtMirrorValue", {.frame = &Frame3, .namedBy = &chkMirror}};
  Button Command10{*this, "Command10", {.frame = &Frame3, .caption = "...", .enabled = false}};
  CheckBox check1{*this, "check1", {.frame = &Frame3, .caption = "ResetHUB:"}};
  TextBox txtResetHUB{*this, "txtResetHUB", {.frame = &Frame3, .namedBy = &check1}};
  Label Label7{*this, "Label7", {.frame = &Frame3}};
  Button Command22{
      *this, "Command22", {.frame = &Frame3, .caption = "Animating MIPs...", .visible = false}};
  Button Command29{*this, "Command29", {.frame = &Frame3, .caption = "Visualizza dati RAW"}};
  Button Command30{
      *this, "Command30", {.frame = &Frame3, .caption = "Command30", .visible = false}};
  Button cmdS{
      *this, "cmdS", {.frame = &Frame3, .caption = "Salva", .enabled = false, .visible = false}};

  Frame Frame6{*this, "Frame6", {.frame = &Frame3, .caption = "Oggetti"}};
  ListView lstObj{*this,
                  "lstObj",
                  {.frame = &Frame6},
                  {{"", 1440}, {"ID", 400}, {"", 1400}, {"", 760}, {"", 460}},
                  {"puzzle", "key", "pickup"}};
  ListBox lstObj2{*this, "lstObj2", {.frame = &Frame6, .visible = false}};
  ComboBox cmbType{
      *this,
      "cmbType",
      {.frame = &Frame6,
       .rows = {"Puzzle", "Key", "Pickup", "PuzzleCombo", "KeyCombo", "PickupCombo", "Examine"}}};
  ComboBox cmbID{*this, "cmbID", {.frame = &Frame6}};
  ComboBox cmbCombo{*this, "cmbCombo", {.frame = &Frame6, .enabled = false, .rows = {"1", "2"}}};
  ComboBox cmbString{*this, "cmbString", {.frame = &Frame6}};
  Button Command32{*this, "Command32", {.frame = &Frame6, .caption = "..."}};
  ControlArray<TextBox, 6> txtObj{
      *this, "txtObj", {.frame = &Frame6, .text = "0000", .maxLength = 4}};
  TextBox txtFind{*this, "txtFind", {.frame = &Frame6}};
  Button Command5{*this, "Command5", {.frame = &Frame6, .enabled = false}};
  Button Command12{*this, "Command12", {.frame = &Frame6, .enabled = false}};
  Button Command14{*this, "Command14", {.frame = &Frame6, .enabled = false}};
  Button Command17{*this, "Command17", {.frame = &Frame6, .enabled = false}};
  Button Command18{*this, "Command18", {.frame = &Frame6, .enabled = false}};
  Button Command9{*this,
                  "Command9",
                  {.frame = &Frame6, .caption = "Modifica", .enabled = false, .visible = false}};

  Frame Frame7{*this, "Frame7", {.frame = &Frame3, .caption = "Filmati"}};
  ControlArray<Label, 2> Label5{*this,
                                "Label5",
                                {{.frame = &Frame7, .caption = "Cutscene all'inizio del livello:"},
                                 {.frame = &Frame7, .caption = "FMV:"}}};
  ComboBox cmbFMV{
      *this, "cmbFMV", {.frame = &Frame7, .namedBy = &Label5[1], .rows = Numbers(0, 30)}};
  ComboBox cmbCut{*this, "cmbCut", {.frame = &Frame3, .namedBy = &Label6, .rows = Numbers(0, 35)}};
  ListView lstCuts{
      *this, "lstCuts", {.frame = &Frame7}, {{"n\xB0", 500}, {"ID Cutscene", 1200}}, {"film"}};
  Label Label6{*this, "Label6", {.frame = &Frame7, .caption = "Cutscene all'interno del livello:"}};
  Button Command3{*this, "Command3", {.frame = &Frame7, .enabled = false}};
  Button Command4{*this, "Command4", {.frame = &Frame7, .enabled = false}};

  /// The texts of the whole numbers from `first` to `last`.
  static std::vector<std::string> Numbers(int first, int last);
};

extern FrmEditor frmEditor;

}  // namespace quillmark
