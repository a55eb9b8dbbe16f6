#pragma once

#include <QString>

#include "ui/binding.h"

namespace quillmark {

/// Makes the keys that the drawing names in the widget's dynamic property `reachedBy` ("Ctrl+O")
/// press its button, or lead to its box, from everywhere in the window, if it can be reached.
void AddShortcut(const Binding& binding);

/// `tip` with the keys behind it that `AddShortcut` has given the widget; the caption stands for a
/// missing tip. Keys of a button that does nothing are not mentioned.
QString WithShortcut(const QString& tip, const Binding& binding);

}  // namespace quillmark
