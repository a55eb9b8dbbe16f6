#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

#include "platform/key.h"

namespace quillmark {

/// The events that a person's mouse and keyboard make, sent to a widget as if the system had
/// delivered them.

/// One button of the mouse, down and up.
void SendClick(QWidget& target, QPoint place, Qt::MouseButton button = Qt::LeftButton);

/// One key, down and up. A character that no keyboard types comes the way of an input method.
void SendKey(QWidget& target, Key key);

}  // namespace quillmark
