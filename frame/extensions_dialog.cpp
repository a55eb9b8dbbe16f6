#include "core/script_model.h"
#include "forms/apply_texts.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "frame/dialogs.h"

namespace quillmark {
namespace {

constexpr std::size_t kExtensionLetters = 3;

/// `text` cut to the length of an extension field, or filled with blanks to it.
std::string ExtensionField(std::string text) {
  text.resize(kExtensionLength, ' ');
  return text;
}

void LoadExtensions() {
  ApplyTexts(frmEx);
  const auto fields = ShownExtensions(TRScript);
  for (std::size_t box = 0; box < fields.size(); ++box) {
    const std::string letters = fields[box]->substr(1, kExtensionLetters);
    // Kept as it is: the field loses its dot here, and only OK or the next load brings it back.
    *fields[box] = ExtensionField(letters);
    frmEx.txtExtensions[box].SetText(letters);
  }
}

void AcceptExtensions() {
  const auto fields = ShownExtensions(TRScript);
  for (std::size_t box = 0; box < fields.size(); ++box) {
    *fields[box] = ExtensionField("." + frmEx.txtExtensions[box].Text() + '\0');
  }
  frmEx.Unload();
}

}  // namespace

void AttachExtensionsDialog() {
  frmEx.onLoad = LoadExtensions;
  frmEx.Command1.onPress = AcceptExtensions;
  frmEx.Command2.onPress = [] { frmEx.Unload(); };
  frmEditor.Command13.onPress = [] { frmEx.ShowModal(); };
}

}  // namespace quillmark
