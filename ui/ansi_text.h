#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quillmark {

/// The text that a control or box shows for ANSI bytes.
QString FromAnsi(std::string_view ansi);

/// The ANSI bytes of a text; a character outside of the code page becomes "?".
std::string ToAnsi(const QString& text);

}  // namespace quillmark
