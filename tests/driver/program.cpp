#include "driver/program.h"

#include "core/script_model.h"
#include "editor/editor_form.h"
#include "frame/dialog_forms.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "strings/string_forms.h"

namespace quillmark {

namespace {

/// "FORM.MENU" of the popup menu that is open; null if none is.
Json OpenPopupName() {
  const PopupMenu* const popup = TheDesktop().Popup();
  if (popup == nullptr) return nullptr;
  return popup->Owner().Name() + "." + popup->FullName();
}

}  // namespace

void StartProgram() {
  TheDesktop().RunAct("start", [] { Form1.Show(); });
}

bool CallOperation(const std::string& name) { throw CommandError("unknown operation: " + name); }

Json ScriptListing() { throw CommandError("there is no listing yet"); }

Json ProgramState() {
  const auto [width, height] = TheDesktop().TheScreen().Size();
  return {{"ScriptPath", TRScript.ScriptPath},
          {"ScriptSaved", TRScript.ScriptSaved.value()},
          {"pointer", static_cast<int>(TheDesktop().ThePointer())},
          {"screen", {width, height}},
          {"popup", OpenPopupName()}};
}

}  // namespace quillmark
