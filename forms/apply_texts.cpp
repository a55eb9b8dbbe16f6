#include "forms/apply_texts.h"

#include <string>
#include <variant>
#include <vector>

#include "controls/list_view.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "forms/interface_texts.h"
#include "forms/string_forms.h"

namespace quillmark {
namespace {

// What a text can be written to.

struct TitleBar {
  Form& form;
  void Write(const std::string& text) const { form.SetCaption(text); }
};

struct CaptionOf {
  Control& control;
  void Write(const std::string& text) const { control.SetCaption(text); }
};

struct ToolTipOf {
  Control& control;
  void Write(const std::string& text) const { control.SetToolTip(text); }
};

struct HintOf {
  Control& control;
  void Write(const std::string& text) const { control.SetHint(text); }
};

struct PlaceholderOf {
  ListBox& list;
  void Write(const std::string& text) const { list.SetPlaceholder(text); }
};

struct HeaderOf {
  ListView& list;
  int column;
  void Write(const std::string& text) const { list.SetColumnCaption(column, text); }
};

/// One entry of the table and the place that it is written to.
struct Assignment {
  Entry entry;
  std::variant<TitleBar, CaptionOf, ToolTipOf, HintOf, PlaceholderOf, HeaderOf> place;
};

struct FormTexts {
  Form* form;
  std::vector<Assignment> assignments;
};

Assignment FormCaption(Entry entry, Form& form) { return {entry, TitleBar{form}}; }
Assignment Caption(Entry entry, Control& control) { return {entry, CaptionOf{control}}; }
Assignment ToolTip(Entry entry, Control& control) { return {entry, ToolTipOf{control}}; }
Assignment Hint(Entry entry, Control& control) { return {entry, HintOf{control}}; }
Assignment Placeholder(Entry entry, ListBox& list) { return {entry, PlaceholderOf{list}}; }
Assignment Column(Entry entry, ListView& list, int column) {
  return {entry, HeaderOf{list, column}};
}

FormTexts EditorTexts() {
  FrmEditor& f = frmEditor;
  return {&f,
          {Caption(Entry::FileNameLabel, f.Label1),
           Caption(Entry::AudioTrackLabel, f.Label2),
           Caption(Entry::NameLabel, f.Label3),
           Caption(Entry::LegendLabel, f.Label10),
           Caption(Entry::StartCutsceneLabel, f.Label5[0]),
           Caption(Entry::FmvLabel, f.Label5[1]),
           Caption(Entry::LevelCutsceneLabel, f.Label6),
           Caption(Entry::NoLevel, f.chkNo),
           Caption(Entry::Horizon, f.chkHorizon),
           Caption(Entry::HorizonGlow, f.chkCol),
           Caption(Entry::Train, f.chkTrain),
           Caption(Entry::Timer, f.chkTimer),
           Caption(Entry::YoungLara, f.chkY),
           Caption(Entry::Thunderstorm, f.chkLight),
           Caption(Entry::Starfield, f.chkStar),
           Caption(Entry::RemoveAmulet, f.chkHorus),
           Caption(Entry::Layer1, f.chkLayer1),
           Caption(Entry::Layer2, f.chkLayer2),
           Caption(Entry::LensFlare, f.chkLens),
           Caption(Entry::ResetHub, f.check1),
           Caption(Entry::Mirror, f.chkMirror),
           Caption(Entry::UVRotate, f.chkUV),
           Caption(Entry::Fog, f.chkFog),
           Caption(Entry::Pulse, f.chkPulse),
           Caption(Entry::Weather, f.chkWe),
           Caption(Entry::ObjectsFrame, f.Frame6),
           Caption(Entry::LevelsFrame, f.Frame4),
           Caption(Entry::FileNamesFrame, f.Frame5),
           Caption(Entry::FilmsFrame, f.Frame7),
           Caption(Entry::New, f.Command24),
           Caption(Entry::Load, f.Command7),
           Caption(Entry::Save, f.Command15),
           Caption(Entry::EditStrings, f.Command6),
           Caption(Entry::Extensions, f.Command13),
           Caption(Entry::MainOptions, f.Command11),
           Caption(Entry::LanguageEditor, f.Command28),
           Caption(Entry::Prototype, f.Command27),
           Caption(Entry::Guide, f.Command23),
           Caption(Entry::Exit, f.Command8),
           Caption(Entry::ShowRawData, f.Command29),
           Caption(Entry::CreateBackup, f.Check2),
           Caption(Entry::DeleteAllMenu, f.mnuEraseAll),
           Caption(Entry::DeleteAllMenu, f.mnuEraseAllFiles),
           Column(Entry::ObjectKindColumn, f.lstObj, 1),
           Column(Entry::ObjectNameColumn, f.lstObj, 3),
           Column(Entry::ObjectComboColumn, f.lstObj, 4),
           Column(Entry::ObjectIndexColumn, f.lstObj, 5),
           Caption(Entry::Inventory, f.Command30),
           Caption(Entry::LoadCameraLabel, f.Label4),
           ToolTip(Entry::AddLevelTip, f.cmdAddLevel),
           ToolTip(Entry::InsertLevelTip, f.Command19),
           ToolTip(Entry::DeleteLevelTip, f.cmdLevelDelete),
           ToolTip(Entry::MoveLevelUpTip, f.Command20),
           ToolTip(Entry::MoveLevelDownTip, f.Command21),
           ToolTip(Entry::CopyLevelTip, f.Command25),
           ToolTip(Entry::PasteLevelTip, f.Command26),
           ToolTip(Entry::AddFileNameTip, f.Command1),
           ToolTip(Entry::RemoveFileNameTip, f.Command2),
           ToolTip(Entry::ChangeFileNameTip, f.Command16),
           ToolTip(Entry::AddCutsceneTip, f.Command3),
           ToolTip(Entry::DeleteCutsceneTip, f.Command4),
           ToolTip(Entry::AddObjectTip, f.Command5),
           ToolTip(Entry::ChangeObjectTip, f.Command12),
           ToolTip(Entry::DeleteObjectTip, f.Command14),
           ToolTip(Entry::CopyObjectTip, f.Command17),
           ToolTip(Entry::PasteObjectTip, f.Command18),
           ToolTip(Entry::FindStringTip, f.Command32),
           ToolTip(Entry::MirrorAssistantTip, f.Command10),
           ToolTip(Entry::LevelList, f.lstLevels),
           Placeholder(Entry::LoadHint, f.lstLevels),
           ToolTip(Entry::FileNameList, f.lstFileNames),
           ToolTip(Entry::ObjectList, f.lstObj),
           ToolTip(Entry::CutsceneList, f.lstCuts),
           ToolTip(Entry::ObjectKind, f.cmbType),
           ToolTip(Entry::ObjectNumber, f.cmbID),
           ToolTip(Entry::ComboNumber, f.cmbCombo),
           ToolTip(Entry::ObjectName, f.cmbString),
           ToolTip(Entry::ObjectParameter, f.txtObj[0]),
           ToolTip(Entry::ObjectParameter, f.txtObj[1]),
           ToolTip(Entry::ObjectParameter, f.txtObj[2]),
           ToolTip(Entry::ObjectParameter, f.txtObj[3]),
           ToolTip(Entry::ObjectParameter, f.txtObj[4]),
           ToolTip(Entry::ObjectParameter, f.txtObj[5]),
           ToolTip(Entry::FindByBeginning, f.txtFind),
           Hint(Entry::BackupTip, f.Check2),
           Hint(Entry::LoadTip, f.Command7),
           Hint(Entry::SaveTip, f.Command15),
           Hint(Entry::ExitTip, f.Command8),
           Hint(Entry::NotStoredTip, f.chkWe),
           Hint(Entry::NotStoredTip, f.chkTrain),
           Hint(Entry::NotStoredTip, f.chkNo),
           Hint(Entry::CameraTip, f.txtCamera[0]),
           Hint(Entry::CameraTip, f.txtCamera[1]),
           Hint(Entry::CameraTip, f.txtCamera[2]),
           Hint(Entry::CameraTip, f.txtCamera[3]),
           Hint(Entry::CameraTip, f.txtCamera[4]),
           Hint(Entry::CameraTip, f.txtCamera[5]),
           Hint(Entry::CameraTip, f.txtCamera[6])}};
}

FormTexts StringTableTexts() {
  FrmForm2& f = Form2;
  return {
      &f,
      {Caption(Entry::Ok, f.Command1), Caption(Entry::Cancel, f.Command2),
       Column(Entry::ItalianColumn, f.ListView1, 2), Column(Entry::EnglishColumn, f.ListView1, 3),
       Column(Entry::UsColumn, f.ListView1, 4), Column(Entry::GermanColumn, f.ListView1, 5),
       Column(Entry::FrenchColumn, f.ListView1, 6), Column(Entry::SpanishColumn, f.ListView1, 7),
       Column(Entry::JapaneseColumn, f.ListView1, 8), FormCaption(Entry::StringsCaption, f),
       ToolTip(Entry::ItalianColumn, f.txtString[0]), ToolTip(Entry::EnglishColumn, f.txtString[1]),
       ToolTip(Entry::UsColumn, f.txtString[2]), ToolTip(Entry::GermanColumn, f.txtString[3]),
       ToolTip(Entry::FrenchColumn, f.txtString[4]), ToolTip(Entry::SpanishColumn, f.txtString[5]),
       ToolTip(Entry::JapaneseColumn, f.txtString[6]),
       ToolTip(Entry::StringsOfAllLanguages, f.ListView1)}};
}

FormTexts ExtensionsTexts() {
  FrmEx& f = frmEx;
  return {&f,
          {Caption(Entry::Ok, f.Command1), Caption(Entry::Cancel, f.Command2),
           Caption(Entry::LevelExtensionLabel, f.Label1[0]),
           Caption(Entry::LevelExtensionLabel, f.Label1[1]),
           Caption(Entry::FmvExtensionLabel, f.Label2[0]),
           Caption(Entry::FmvExtensionLabel, f.Label2[1]),
           Caption(Entry::CutsceneExtensionLabel, f.Label3[0]),
           Caption(Entry::CutsceneExtensionLabel, f.Label3[1]),
           FormCaption(Entry::ExtensionsCaption, f)}};
}

FormTexts LanguageEditorTexts() {
  FrmLangEditor& f = frmLangEditor;
  return {
      &f,
      {Caption(Entry::Save, f.Command2), Caption(Entry::Cancel, f.Command3),
       Column(Entry::ItemColumn, f.l, 1), Column(Entry::TranslationColumn, f.l, 2),
       FormCaption(Entry::LanguageEditorCaption, f), ToolTip(Entry::ChooseLanguageFile, f.Command1),
       ToolTip(Entry::InterfaceTexts, f.l), ToolTip(Entry::Translation, f.txtString)}};
}

FormTexts OptionsTexts() {
  FrmOptions& f = frmOptions;
  return {&f,
          {FormCaption(Entry::OptionsCaption, f), Caption(Entry::ChooseLevel, f.chkFlags[0]),
           Caption(Entry::ShowTitle, f.chkFlags[1]), Caption(Entry::EnableLoadSave, f.chkFlags[2]),
           Caption(Entry::EnableDozy, f.chkFlags[3]), Caption(Entry::DemoVersion, f.chkFlags[4]),
           Caption(Entry::Unknown1, f.chkFlags[5]), Caption(Entry::Unknown2, f.chkFlags[6]),
           Caption(Entry::Unknown3, f.chkFlags[7]), Caption(Entry::Ok, f.Command2),
           Caption(Entry::Cancel, f.Command1)}};
}

/// The one list of what stands where. A new text or a new control means a new line in it.
const std::vector<FormTexts>& Texts() {
  static const std::vector<FormTexts> texts = {
      EditorTexts(),
      StringTableTexts(),
      ExtensionsTexts(),
      LanguageEditorTexts(),
      OptionsTexts(),
      {&fss,
       {FormCaption(Entry::FindStringCaption, fss), ToolTip(Entry::Search, fss.txtFind),
        ToolTip(Entry::Strings, fss.l)}},
      {&raw, {ToolTip(Entry::StreamBytes, raw.l)}}};
  return texts;
}

}  // namespace

void ApplyTexts(Form& form) {
  for (const FormTexts& texts : Texts()) {
    if (texts.form != &form) continue;
    for (const Assignment& assignment : texts.assignments) {
      const std::string& text = TextOf(assignment.entry);
      std::visit([&text](const auto& place) { place.Write(text); }, assignment.place);
    }
  }
}

}  // namespace quillmark
