#include "ui/binding.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>

#include "ui/ansi_text.h"
#include "ui/key_events.h"
#include "ui/shortcuts.h"

namespace quillmark {

Binding::Binding(Control& control, QWidget& widget) : control_(control), widget_(widget) {
  widget.installEventFilter(this);
  // The wheel scrolls. It does not lead the next key into what it went across.
  if (widget.focusPolicy() == Qt::WheelFocus) widget.setFocusPolicy(Qt::StrongFocus);
}

void Binding::Refresh() {
  if (const QString caption = FromAnsi(control_.Caption()); caption_ != caption) {
    caption_ = caption;
    ShowCaption(caption);
  }
  const std::string& tip = control_.Hint().empty() ? control_.ToolTip() : control_.Hint();
  widget_.setToolTip(WithShortcut(FromAnsi(tip), *this));
  ShowState();
  widget_.setEnabled(control_.Enabled());
  widget_.setVisible(control_.Visible());
}

void Binding::Restore() {
  const RefreshScope scope;
  Refresh();
}

void Binding::NoteFocus() const {
  if (!RefreshScope::Running() && control_.Reachable()) control_.TakeFocus();
}

Key Binding::KeyPressedIn(const QKeyEvent& event) {
  Key key = KeyOf(event);
  if (key.code != KeyCode::Character) return key;
  const auto interval = static_cast<quint64>(QApplication::keyboardInputInterval());
  key.goesOn = lastCharacter_ != 0 && event.timestamp() - lastCharacter_ < interval;
  lastCharacter_ = event.timestamp();
  return key;
}

bool Binding::KeyPressed(const QKeyEvent& event) {
  if (!control_.TakesFocus() || !IsForTheLogic(event)) return false;
  // As the toolkit does for keys that it handles itself: from here on the focus is drawn.
  widget_.window()->setAttribute(Qt::WA_KeyboardFocusChange);
  bool used = false;
  control_.KeyDown(KeyPressedIn(event), used);
  return used || !control_.Reachable();
}

bool Binding::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::FocusIn:
      NoteFocus();
      break;
    case QEvent::KeyPress:
      if (KeyPressed(static_cast<QKeyEvent&>(*event))) return true;
      break;
    case QEvent::KeyRelease: {
      const auto& key = static_cast<QKeyEvent&>(*event);
      if (control_.TakesFocus() && !key.isAutoRepeat()) control_.KeyUp(KeyOf(key));
      break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (MousePressed(static_cast<QMouseEvent&>(*event))) return true;
      break;
    case QEvent::MouseButtonRelease:
      if (MouseReleased(static_cast<QMouseEvent&>(*event))) return true;
      break;
    case QEvent::DragEnter:
      // A file is meant for the window: no box takes its path for a text.
      if (static_cast<QDragEnterEvent&>(*event).mimeData()->hasUrls()) {
        event->ignore();
        return true;
      }
      break;
    default:
      if (OtherEvent(*event)) return true;
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace quillmark
