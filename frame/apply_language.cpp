#include "frame/apply_language.h"

#include <initializer_list>

#include "controls/desktop.h"
#include "forms/apply_texts.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "forms/string_forms.h"
#include "frame/interface_table.h"
#include "platform/log.h"

namespace quillmark {

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

}  // namespace quillmark
