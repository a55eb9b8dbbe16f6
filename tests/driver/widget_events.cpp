#include "driver/widget_events.h"

#include <QtTest/qtestspontaneevent.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <string_view>

#include "ui/ansi_text.h"

namespace quillmark {

namespace {

template <class Event>
void Deliver(QWidget& target, Event& event) {
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(&target, &event);
}

void SendMouse(QWidget& target, QEvent::Type type, QPoint place, Qt::MouseButton button,
               Qt::MouseButtons held) {
  QMouseEvent event(type, place, target.mapTo(target.window(), place), target.mapToGlobal(place),
                    button, held, Qt::NoModifier);
  Deliver(target, event);
}

int QtKey(Key key) {
  switch (key.code) {
    case KeyCode::Character:
      // Letters go by the number of their capital.
      return FromAnsi(std::string_view(&key.character, 1)).toUpper().front().unicode();
    case KeyCode::Backspace:
      return Qt::Key_Backspace;
    case KeyCode::Tab:
      return Qt::Key_Tab;
    case KeyCode::Enter:
      return Qt::Key_Return;
    case KeyCode::Escape:
      return Qt::Key_Escape;
    case KeyCode::PageUp:
      return Qt::Key_PageUp;
    case KeyCode::PageDown:
      return Qt::Key_PageDown;
    case KeyCode::End:
      return Qt::Key_End;
    case KeyCode::Home:
      return Qt::Key_Home;
    case KeyCode::Left:
      return Qt::Key_Left;
    case KeyCode::Right:
      return Qt::Key_Right;
    case KeyCode::Up:
      return Qt::Key_Up;
    case KeyCode::Down:
      return Qt::Key_Down;
    case KeyCode::Delete:
      return Qt::Key_Delete;
    case KeyCode::Other:
      break;
  }
  return Qt::Key_unknown;
}

}  // namespace

Qt::MouseButton QtButton(MouseButton button) {
  switch (button) {
    case MouseButton::Left:
      return Qt::LeftButton;
    case MouseButton::Right:
      return Qt::RightButton;
    case MouseButton::Middle:
      return Qt::MiddleButton;
  }
  return Qt::NoButton;
}

void SendMousePress(QWidget& target, QPoint place, Qt::MouseButton button) {
  SendMouse(target, QEvent::MouseButtonPress, place, button, button);
}

void SendMouseRelease(QWidget& target, QPoint place, Qt::MouseButton button) {
  SendMouse(target, QEvent::MouseButtonRelease, place, button, Qt::NoButton);
}

void SendClick(QWidget& target, QPoint place, Qt::MouseButton button) {
  SendMousePress(target, place, button);
  SendMouseRelease(target, place, button);
}

void SendKey(QWidget& target, Key key) {
  QString text;
  if (key.code == KeyCode::Character) text = FromAnsi(std::string_view(&key.character, 1));
  QKeyEvent press(QEvent::KeyPress, QtKey(key), Qt::NoModifier, text);
  Deliver(target, press);
  if (!text.isEmpty() && !text.front().isPrint()) {
    QInputMethodEvent commit;
    commit.setCommitString(text);
    Deliver(target, commit);
  }
  QKeyEvent release(QEvent::KeyRelease, QtKey(key), Qt::NoModifier, text);
  Deliver(target, release);
}

}  // namespace quillmark
