#include "driver/widget_events.h"

#include <QtTest/qtestspontaneevent.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <map>
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
  static const std::map<KeyCode, Qt::Key> keys = {{KeyCode::Backspace, Qt::Key_Backspace},
                                                  {KeyCode::Tab, Qt::Key_Tab},
                                                  {KeyCode::Enter, Qt::Key_Return},
                                                  {KeyCode::Escape, Qt::Key_Escape},
                                                  {KeyCode::Left, Qt::Key_Left},
                                                  {KeyCode::Right, Qt::Key_Right},
                                                  {KeyCode::Up, Qt::Key_Up},
                                                  {KeyCode::Down, Qt::Key_Down},
                                                  {KeyCode::Delete, Qt::Key_Delete}};
  if (key.code != KeyCode::Character) return keys.at(key.code);
  // Letters go by the number of their capital.
  return FromAnsi(std::string_view(&key.character, 1)).toUpper().front().unicode();
}

}  // namespace

void SendClick(QWidget& target, QPoint place, Qt::MouseButton button) {
  SendMouse(target, QEvent::MouseButtonPress, place, button, button);
  SendMouse(target, QEvent::MouseButtonRelease, place, button, Qt::NoButton);
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
