#include "ui/text_binding.h"

#include <QCoreApplication>
#include <QPainter>
#include <QStyle>

#include "ui/ansi_text.h"
#include "ui/icons.h"
#include "ui/key_events.h"

namespace quillmark {

/// An icon inside of a box, greyed with it. A label would grey an icon that is grey already.
class IconMark : public QWidget {
 public:
  explicit IconMark(QWidget* box) : QWidget(box) { setAttribute(Qt::WA_TransparentForMouseEvents); }

  void Show(const QIcon& icon) {
    icon_ = icon;
    update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    icon_.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
  }

 private:
  QIcon icon_;
};

TextBinding::TextBinding(TextBox& control, QLineEdit& widget)
    : Binding(control, widget), box_(control), line_(widget) {
  if (box_.MaxLength() > 0) line_.setMaxLength(box_.MaxLength());
  if (line_.property("iconName").isValid()) {
    // An action of the box would be a button to a screen reader, and one that does nothing.
    icon_ = new IconMark(&line_);
    ShowIcon();
  }
  connect(&line_, &QLineEdit::textChanged, this, &TextBinding::Report);
  connect(&line_, &QLineEdit::cursorPositionChanged, this, &TextBinding::Report);
  connect(&line_, &QLineEdit::selectionChanged, this, &TextBinding::Report);
}

void TextBinding::ShowIcon() {
  const int size = line_.style()->pixelMetric(QStyle::PM_LineEditIconSize, nullptr, &line_);
  const int margin = line_.style()->pixelMetric(QStyle::PM_LineEditIconMargin, nullptr, &line_);
  icon_->Show(LineIcon(line_.property("iconName").toString(), line_.palette()));
  icon_->setGeometry(margin, (line_.height() - size) / 2, size, size);
  line_.setTextMargins(margin + size, 0, 0, 0);
}

int TextBinding::SelectionStart() const {
  return line_.hasSelectedText() ? line_.selectionStart() : line_.cursorPosition();
}

void TextBinding::ShowState() {
  const QString text = FromAnsi(box_.Text());
  if (line_.text() != text) line_.setText(text);
  const int start = box_.SelectionStart();
  const int length = box_.SelectionLength();
  if (start == SelectionStart() && length == line_.selectionLength()) return;
  if (length > 0) {
    // Backwards, so that a text that is longer than its box shows its beginning.
    line_.setSelection(start + length, -length);
  } else {
    line_.deselect();
    line_.setCursorPosition(start);
  }
}

void TextBinding::Report() {
  if (RefreshScope::Running()) return;
  const std::string text = ToAnsi(line_.text());
  const int start = SelectionStart();
  const int length = line_.selectionLength();
  // A line that loses the focus drops its marks, which must not bring the focus back.
  const bool sameMarks = start == box_.SelectionStart() && length == box_.SelectionLength();
  if (text == box_.Text() && (sameMarks || !line_.hasFocus())) return;
  if (!box_.Edit(text, start, length)) Restore();
}

QString TextBinding::Typed(const QString& text) const {
  std::string typed = ToAnsi(text);
  for (char& character : typed) character = box_.Typed(character);
  return FromAnsi(typed);
}

void TextBinding::TurnMarksForwards() {
  if (line_.cursorPosition() != line_.selectionStart()) return;
  const RefreshScope scope;
  line_.setSelection(line_.selectionStart(), line_.selectionLength());
}

bool TextBinding::KeyPressed(const QKeyEvent& event) {
  // The logic's caret stands behind what is marked, and that is where these keys set out from.
  if (event.key() == Qt::Key_Left || event.key() == Qt::Key_Right) TurnMarksForwards();
  if (Binding::KeyPressed(event)) return true;
  if (!IsForTheLogic(event) || KeyOf(event).code != KeyCode::Character) return false;
  const QString typed = Typed(event.text());
  if (typed == event.text()) return false;
  line_.insert(typed);
  return true;
}

void TextBinding::LeaveMarks(const QFocusEvent& event) {
  const bool comesBack =
      event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
  if (!comesBack) TurnMarksForwards();
}

bool TextBinding::OtherEvent(QEvent& event) {
  if (event.type() == QEvent::FocusOut) LeaveMarks(static_cast<QFocusEvent&>(event));
  const bool looksDifferent =
      event.type() == QEvent::PaletteChange || event.type() == QEvent::Resize;
  if (looksDifferent && icon_ != nullptr) ShowIcon();
  return event.type() == QEvent::InputMethod && Commit(static_cast<QInputMethodEvent&>(event));
}

bool TextBinding::Commit(const QInputMethodEvent& event) {
  const QString typed = Typed(event.commitString());
  if (typed == event.commitString()) return false;
  QInputMethodEvent replaced(event.preeditString(), event.attributes());
  replaced.setCommitString(typed, event.replacementStart(), event.replacementLength());
  // Past this filter, since no character may be replaced twice.
  line_.removeEventFilter(this);
  QCoreApplication::sendEvent(&line_, &replaced);
  line_.installEventFilter(this);
  return true;
}

}  // namespace quillmark
