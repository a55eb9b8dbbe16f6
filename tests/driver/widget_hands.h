#pragma once

#include <QPoint>
#include <QWidget>

#include "driver/hands.h"
#include "ui/qt_screen.h"

namespace quillmark {

/// Acts on the widgets of the real windows by events, and reads what the widgets show. Menus, which
/// have no widget while they are closed, are read off their controls.
class WidgetHands : public Hands {
 public:
  explicit WidgetHands(QtScreen& screen) : screen_(screen) {}

  bool Reach(const Control& control) override;
  bool PressMouse(Control& control, MouseButton button) override;
  bool PressKey(Control& control, Key key) override;
  bool Paste(TextBox& box, const std::string& text) override;
  bool Select(Control& control, int row) override;
  bool ChooseEntry(MenuEntry& entry) override;
  bool Close(Form& form) override;
  bool Resize(Form& form, int width, int height) override;
  Json DescribeForm(const Form& form) override;
  void Settle() override;

 protected:
  Sight See(const Control& control) override;
  void PlaceCaret(TextBox& box, bool markAll) override;

 private:
  QWidget& WidgetOf(const Control& control);
  /// Brings the control's window to the front, as a window manager would, and closes an open
  /// menu; false out of reach.
  bool Approach(const Control& control);
  bool HasFocus(const QWidget& widget) const;
  QAction* OpenEntry(const MenuEntry& entry) const;

  QtScreen& screen_;
};

// The events that a person's mouse and keyboard make, as if the system had delivered them: a button
// or a key, down and up.

void SendClick(QWidget& target, QPoint place, Qt::MouseButton button = Qt::LeftButton);
/// A character that no keyboard types comes the way of an input method.
void SendKey(QWidget& target, Key key);

}  // namespace quillmark
