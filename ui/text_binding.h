#pragma once

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QLineEdit>

#include "controls/text_box.h"
#include "ui/binding.h"

namespace quillmark {

class IconMark;

/// A box for one line of text. Editing is the widget's own; the control hears of each change of
/// text or caret, and may replace a character before it is typed.
class TextBinding : public Binding {
 public:
  TextBinding(TextBox& control, QLineEdit& widget);

 protected:
  void ShowState() override;
  bool KeyPressed(const QKeyEvent& event) override;
  bool OtherEvent(QEvent& event) override;

 private:
  void ShowIcon();
  void Report();
  QString Typed(const QString& text) const;
  bool Commit(const QInputMethodEvent& event);
  int SelectionStart() const;
  void TurnMarksForwards();
  /// A line that loses the focus drops its marks, unless it will have it back: its caret has to
  /// stand where the logic's does then.
  void LeaveMarks(const QFocusEvent& event);

  TextBox& box_;
  QLineEdit& line_;
  IconMark* icon_ = nullptr;  ///< null for a box without a line icon
};

}  // namespace quillmark
