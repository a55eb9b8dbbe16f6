#pragma once

#include "driver/logical_hands.h"
#include "driver/widget_screen.h"

namespace quillmark {

/// Acts on the widgets of the real windows by events, and reads what the widgets show. Menus, which
/// have no widget while they are closed, are read off their controls.
class WidgetHands : public Hands {
 public:
  void Use(QtScreen& screen) { screen_ = &screen; }

  bool Reach(const Control& control) override;
  bool Click(Control& control) override;
  bool PressMouse(Control& control, MouseButton button) override;
  bool PressKey(Control& control, Key key) override;
  void PlaceCaret(TextBox& box, bool markAll) override;
  bool Paste(TextBox& box, std::string_view text) override;
  bool Select(Control& control, int row) override;
  bool ChooseEntry(MenuEntry& entry) override;
  bool Close(Form& form) override;
  bool Resize(Form& form, int width, int height) override;
  Json Describe(const Control& control) override;
  Json DescribeForm(const Form& form) override;
  void Settle() override;

 private:
  /// The control's widget; throws `CommandError` if it has none.
  QWidget& WidgetOf(const Control& control);
  template <class Widget>
  Widget& WidgetAs(const Control& control);
  /// Brings the control's window to the front, as a window manager would, and closes an open
  /// menu; false out of reach.
  bool Approach(const Control& control);
  bool InFront(const QWidget& widget) const;
  bool HasFocus(const QWidget& widget) const;
  QAction* OpenEntry(const MenuEntry& entry) const;

  QtScreen* screen_ = nullptr;
};

}  // namespace quillmark
