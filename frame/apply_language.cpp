#include "frame/apply_language.h"

#include <vector>

#include "controls/desktop.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "forms/string_forms.h"
#include "frame/interface_table.h"
#include "platform/log.h"

namespace quillmark {
namespace {

/// One entry of the table and the place that it is written to.
struct Assignment {
  enum class Place { FormCaption, Caption, Column, ToolTip };

  int entry;
  Place place;
  Control* control = nullptr;
  int column = 0;
};

struct FormTexts {
  Form* form;
  std::vector<Assignment> assignments;
};

Assignment FormCaption(int entry) { return {entry, Assignment::Place::FormCaption}; }
Assignment Caption(int entry, Control& control) {
  return {entry, Assignment::Place::Caption, &control};
}
Assignment Column(int entry, ListView& list, int column) {
  return {entry, Assignment::Place::Column, &list, column};
}
Assignment ToolTip(int entry, Control& control) {
  return {entry, Assignment::Place::ToolTip, &control};
}

FormTexts EditorTexts() {
  FrmEditor& f = frmEditor;
  return {&f,
          {Caption(68, f.Label1),
           Caption(69, f.Label2),
           Caption(70, f.Label3),
           Caption(71, f.Label10),
           Caption(72, f.Label5[0]),
           Caption(73, f.Label5[1]),
           Caption(74, f.Label6),
           Caption(75, f.chkNo),
           Caption(76, f.chkHorizon),
           Caption(77, f.chkCol),
           Caption(78, f.chkTrain),
           Caption(79, f.chkTimer),
           Caption(80, f.chkY),
           Caption(81, f.chkLight),
           Caption(82, f.chkStar),
           Caption(83, f.chkHorus),
           Caption(84, f.chkLayer1),
           Caption(85, f.chkLayer2),
           Caption(86, f.chkLens),
           Caption(87, f.check1),
           Caption(88, f.chkMirror),
           Caption(89, f.chkUV),
           Caption(90, f.chkFog),
           Caption(91, f.chkPulse),
           Caption(92, f.chkWe),
           Caption(93, f.Frame6),
           Caption(94, f.Frame4),
           Caption(95, f.Frame5),
           Caption(96, f.Frame7),
           Caption(97, f.Command24),
           Caption(98, f.Command7),
           Caption(99, f.Command15),
           Caption(100, f.Command6),
           Caption(101, f.Command13),
           Caption(102, f.Command11),
           Caption(103, f.Command28),
           Caption(104, f.Command27),
           Caption(105, f.Command23),
           Caption(106, f.Command8),
           Caption(107, f.Command29),
           Caption(108, f.Check2),
           Caption(126, f.mnuEraseAll),
           Caption(126, f.mnuEraseAllFiles),
           Column(130, f.lstObj, 1),
           Column(131, f.lstObj, 3),
           Column(132, f.lstObj, 4),
           Column(133, f.lstObj, 5),
           Caption(142, f.Command30),
           Caption(146, f.Label4),
           ToolTip(150, f.cmdAddLevel),
           ToolTip(151, f.Command19),
           ToolTip(152, f.cmdLevelDelete),
           ToolTip(153, f.Command20),
           ToolTip(154, f.Command21),
           ToolTip(155, f.Command25),
           ToolTip(156, f.Command26),
           ToolTip(157, f.Command1),
           ToolTip(158, f.Command2),
           ToolTip(159, f.Command16),
           ToolTip(160, f.Command3),
           ToolTip(161, f.Command4),
           ToolTip(162, f.Command5),
           ToolTip(163, f.Command12),
           ToolTip(164, f.Command14),
           ToolTip(165, f.Command17),
           ToolTip(166, f.Command18),
           ToolTip(167, f.Command32),
           ToolTip(168, f.Command10),
           ToolTip(169, f.lstLevels),
           ToolTip(170, f.lstFileNames),
           ToolTip(171, f.lstObj),
           ToolTip(172, f.lstCuts),
           ToolTip(173, f.cmbType),
           ToolTip(174, f.cmbID),
           ToolTip(175, f.cmbCombo),
           ToolTip(176, f.cmbString),
           ToolTip(177, f.txtObj[0]),
           ToolTip(177, f.txtObj[1]),
           ToolTip(177, f.txtObj[2]),
           ToolTip(177, f.txtObj[3]),
           ToolTip(177, f.txtObj[4]),
           ToolTip(177, f.txtObj[5]),
           ToolTip(178, f.txtFind)}};
}

FormTexts StringTableTexts() {
  FrmForm2& f = Form2;
  return {&f,
          {Caption(109, f.Command1), Caption(110, f.Command2), Column(134, f.ListView1, 2),
           Column(135, f.ListView1, 3), Column(136, f.ListView1, 4), Column(137, f.ListView1, 5),
           Column(138, f.ListView1, 6), Column(139, f.ListView1, 7), Column(140, f.ListView1, 8),
           FormCaption(111), ToolTip(134, f.txtString[0]), ToolTip(135, f.txtString[1]),
           ToolTip(136, f.txtString[2]), ToolTip(137, f.txtString[3]), ToolTip(138, f.txtString[4]),
           ToolTip(139, f.txtString[5]), ToolTip(140, f.txtString[6]), ToolTip(184, f.ListView1)}};
}

FormTexts ExtensionsTexts() {
  FrmEx& f = frmEx;
  return {&f,
          {Caption(109, f.Command1), Caption(110, f.Command2), Caption(113, f.Label1[0]),
           Caption(113, f.Label1[1]), Caption(114, f.Label2[0]), Caption(114, f.Label2[1]),
           Caption(115, f.Label3[0]), Caption(115, f.Label3[1]), FormCaption(112)}};
}

FormTexts LanguageEditorTexts() {
  FrmLangEditor& f = frmLangEditor;
  return {
      &f,
      {Caption(99, f.Command2), Caption(110, f.Command3), Column(127, f.l, 1), Column(128, f.l, 2),
       FormCaption(116), ToolTip(179, f.Command1), ToolTip(180, f.l), ToolTip(181, f.txtString)}};
}

FormTexts OptionsTexts() {
  FrmOptions& f = frmOptions;
  return {&f,
          {FormCaption(117), Caption(118, f.chkFlags[0]), Caption(119, f.chkFlags[1]),
           Caption(120, f.chkFlags[2]), Caption(121, f.chkFlags[3]), Caption(122, f.chkFlags[4]),
           Caption(123, f.chkFlags[5]), Caption(124, f.chkFlags[6]), Caption(125, f.chkFlags[7]),
           Caption(109, f.Command2), Caption(110, f.Command1)}};
}

/// The one list of what stands where. A new text or a new control means a new line in it.
const std::vector<FormTexts>& Texts() {
  static const std::vector<FormTexts> texts = {
      EditorTexts(),
      StringTableTexts(),
      ExtensionsTexts(),
      LanguageEditorTexts(),
      OptionsTexts(),
      {&fss, {FormCaption(186), ToolTip(182, fss.txtFind), ToolTip(183, fss.l)}},
      {&raw, {ToolTip(185, raw.l)}}};
  return texts;
}

void Assign(Form& form, const Assignment& assignment) {
  const std::string& text = InterfaceTable[assignment.entry];
  switch (assignment.place) {
    case Assignment::Place::FormCaption:
      form.SetCaption(text);
      break;
    case Assignment::Place::Caption:
      assignment.control->SetCaption(text);
      break;
    case Assignment::Place::Column:
      static_cast<ListView*>(assignment.control)->SetColumnCaption(assignment.column, text);
      break;
    case Assignment::Place::ToolTip:
      assignment.control->SetToolTip(text);
      break;
  }
}

}  // namespace

void LoadInterfaceLanguage() {
  LogWrite("Loading external interface language file");
  if (ReadInterfaceTable()) return;
  TheDesktop().ShowError("Error", "Error during loading LANGUAGE.BIN . File may be corrupted");
  throw ProcessEnd{};
}

void ApplyInterfaceLanguage() {
  LogWrite("Building interface");
  ApplyTexts(frmEditor);
  for (Form* dialog : std::initializer_list<Form*>{&Form2, &frmEx, &frmLangEditor, &frmOptions}) {
    dialog->Load();
    ApplyTexts(*dialog);
    dialog->Unload();
  }
}

void ApplyTexts(Form& form) {
  for (const FormTexts& texts : Texts()) {
    if (texts.form != &form) continue;
    for (const Assignment& assignment : texts.assignments) Assign(form, assignment);
  }
}

}  // namespace quillmark
