#include "controls/menus.h"

#include <algorithm>

#include "controls/desktop.h"

namespace quillmark {

bool MenuEntry::Choose() {
  return ActBesidePopup([this] {
    TheDesktop().ClosePopup();
    if (onChoose) onChoose();
  });
}

bool MenuEntry::Reachable() const {
  const PopupMenu* popup = TheDesktop().Popup();
  if (popup == nullptr || !Enabled() || !Visible()) return false;
  return std::find(popup->Entries().begin(), popup->Entries().end(), this) !=
         popup->Entries().end();
}

bool PopupMenu::Reachable() const { return TheDesktop().Popup() == this; }

}  // namespace quillmark
