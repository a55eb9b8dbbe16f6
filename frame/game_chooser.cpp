#include "core/script_model.h"
#include "forms/dialog_forms.h"
#include "frame/dialogs.h"

namespace quillmark {
namespace {

void Choose() {
  TRScript.ScriptKind = frmSelScript.Option1.On() ? kTr4 : kTr5;
  frmSelScript.Unload();
}

void ChooseByEnter(Key key) {
  if (key.code == KeyCode::Enter) Choose();
}

}  // namespace

void AttachGameChooser() {
  frmSelScript.onLoad = [] { CenterForm(frmSelScript); };
  frmSelScript.Command1.onPress = Choose;
  frmSelScript.Option1.onKeyPress = ChooseByEnter;
  frmSelScript.Option2.onKeyPress = ChooseByEnter;
}

}  // namespace quillmark
