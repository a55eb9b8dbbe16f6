#include "ui/ansi_text.h"

#include "platform/ansi.h"

namespace quillmark {

QString FromAnsi(std::string_view ansi) { return QString::fromStdString(AnsiToUtf8(ansi)); }

std::string ToAnsi(const QString& text) { return Utf8ToAnsi(text.toStdString()); }

}  // namespace quillmark
