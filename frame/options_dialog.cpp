#include <array>

#include "controls/desktop.h"
#include "core/script_model.h"
#include "forms/apply_texts.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "forms/interface_texts.h"
#include "frame/dialogs.h"
#include "platform/number_text.h"

namespace quillmark {
namespace {

constexpr double kSecurityValues = 256;

/// The bits of `ScriptFlags` by box; the boxes behind these four have none.
constexpr std::array<std::uint16_t, 4> kBits = {0x0008, 0x0004, 0x0002, 0x0001};

void ShowRefusal(Entry entry) {
  // Kept as it is: the title is the name of the entry, not its text.
  TheDesktop().ShowError(InterfaceNames[0], TextOf(entry));
}

void LoadOptions() {
  CenterForm(frmOptions);
  ApplyTexts(frmOptions);
  const auto flags = static_cast<std::uint16_t>(TRScript.ScriptFlags.value());
  for (std::size_t box = 0; box < kBits.size(); ++box) {
    frmOptions.chkFlags[box].SetTicked((flags & kBits[box]) != 0);
  }
  frmOptions.txtFrameRate.SetText(std::to_string(TRScript.ScriptFrameRate.value()));
  frmOptions.txtSec.SetText(std::to_string(TRScript.ScriptSecurity.value()));
}

void AcceptOptions() {
  const auto frameRate = NumberOf(frmOptions.txtFrameRate.Text());
  if (!frameRate) {
    ShowRefusal(Entry::BadFramerate);
    return;
  }
  TRScript.ScriptFrameRate = RoundedNumber(*frameRate);

  const double security = RequireNumber(frmOptions.txtSec.Text());
  if (security >= kSecurityValues) {
    ShowRefusal(Entry::BadSecurity);
    return;
  }
  TRScript.ScriptSecurity = RoundedNumber(security);

  std::uint16_t flags = 0;
  for (std::size_t box = 0; box < kBits.size(); ++box) {
    if (frmOptions.chkFlags[box].Ticked()) flags = static_cast<std::uint16_t>(flags | kBits[box]);
  }
  TRScript.ScriptFlags = flags;
  frmOptions.Unload();
}

}  // namespace

void AttachOptionsDialog() {
  frmOptions.onLoad = LoadOptions;
  frmOptions.Command2.onPress = AcceptOptions;
  frmOptions.Command1.onPress = [] { frmOptions.Unload(); };
  frmEditor.Command11.onPress = [] { frmOptions.ShowModal(); };
}

}  // namespace quillmark
