#include "ui/binding.h"

#include <QDragEnterEvent>
#include <QMimeData>

#include "ui/ansi_text.h"
#include "ui/key_events.h"

namespace quillmark {

Binding::Binding(Control& control, QWidget& widget) : control_(control), widget_(widget) {
  widget.installEventFilter(this);
}

void Binding::Refresh() {
  ShowCaption(FromAnsi(control_.Caption()));
  widget_.setToolTip(FromAnsi(control_.Hint().empty() ? control_.ToolTip() : control_.Hint()));
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

bool Binding::KeyPressed(const QKeyEvent& event) {
  if (!control_.TakesFocus() || !IsForTheLogic(event)) return false;
  // As the toolkit does for keys that it handles itself: from here on the focus is drawn.
  widget_.window()->setAttribute(Qt::WA_KeyboardFocusChange);
  bool used = false;
  control_.KeyDown(KeyOf(event), used);
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
