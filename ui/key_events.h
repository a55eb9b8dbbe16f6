#pragma once

#include <QKeyEvent>
#include <optional>

#include "controls/key.h"

namespace quillmark {

/// The key of an event as the logic knows keys. Characters outside of the code page count as "?".
Key KeyOf(const QKeyEvent& event);

/// Whether the key is one that the logic has a say in. What is typed with a command modifier, and
/// the keys that move by pages, belong to the widget alone.
bool IsForTheLogic(const QKeyEvent& event);

/// The mouse button; none for buttons that the logic does not know.
std::optional<MouseButton> ButtonOf(Qt::MouseButton button);

}  // namespace quillmark
