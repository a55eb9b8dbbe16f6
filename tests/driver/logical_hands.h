#pragma once

#include "driver/hands.h"

namespace quillmark {

/// Acts on the logical controls directly, and reads what they hold.
class LogicalHands : public Hands {
 public:
  bool Reach(const Control& control) override { return control.Reachable(); }
  bool Click(Control& control) override;
  bool PressMouse(Control& control, MouseButton button) override;
  bool PressKey(Control& control, Key key) override;
  void PlaceCaret(TextBox& box, bool markAll) override;
  bool Paste(TextBox& box, std::string_view text) override;
  bool Select(Control& control, int row) override;
  bool ChooseEntry(MenuEntry& entry) override { return entry.Choose(); }
  bool Close(Form& form) override { return form.Close(); }
  bool Resize(Form& form, int width, int height) override { return form.DragTo(width, height); }
  Json Describe(const Control& control) override;
  Json DescribeForm(const Form& form) override;
};

}  // namespace quillmark
