#pragma once

#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/control.h"

namespace quillmark {

class MenuEntry : public Control {
 public:
  MenuEntry(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::MenuEntry, name, index, design) {}

  std::function<void()> onChoose;

  bool Choose();
  bool Reachable() const override;
  bool TakesFocus() const override { return false; }
};

/// A menu that opens at the pointer.
class PopupMenu : public Control {
 public:
  PopupMenu(Form& form, std::string_view name, std::vector<MenuEntry*> entries)
      : Control(form, ControlKind::PopupMenu, name, -1, {}), entries_(std::move(entries)) {}

  const std::vector<MenuEntry*>& Entries() const { return entries_; }
  /// While it is open.
  bool Reachable() const override;
  bool TakesFocus() const override { return false; }

 private:
  std::vector<MenuEntry*> entries_;
};

}  // namespace quillmark
