#pragma once

#include <QWidget>

#include "controls/form.h"

namespace quillmark {

/// Draws the widgets of `form` into `content`, from the form's Designer file, with all measures in
/// units of the font. Throws the invalid value fault for a form that has no drawing.
///
/// Designer files may say more about a widget by dynamic properties:
///
///     digits      of a line edit: it is as wide as so many digits need
///     characters  of a list: it is at least as wide as so many characters
///     lines       of a list: it is at least as high as so many lines
///     allColumns  of a list view: it is at least as wide as all of its columns
///     columnsGrow of a list view: its columns fill it
///     fixedPitch  it uses the fixed-pitch font
///     iconName    of a button or line edit: its line icon
///     picture     of a label: its picture
///     colourOf    of a swatch: the boxes that hold the colour's parts
///     columnOf    of a column's label: the list view whose column it stands over
///     column      of the same: the column's number, from 0
///     opensOver   of a form: the part of the form behind it that it opens in front of
///     reachedBy   the keys that press this button, or lead to this box, from everywhere in its
///     window
void DrawForm(const Form& form, QWidget& content);

}  // namespace quillmark
