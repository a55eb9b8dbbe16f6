#include "ui/file_filters.h"

#include <QStringList>
#include <QtGlobal>

namespace quillmark {
namespace {

QString IgnoringCase(const QString& pattern) {
#ifdef Q_OS_WIN
  return pattern;
#else
  QString result;
  for (const QChar character : pattern) {
    if (character.isLetter()) {
      result += QLatin1Char('[') + character.toLower() + character.toUpper() + QLatin1Char(']');
    } else {
      result += character;
    }
  }
  return result;
#endif
}

}  // namespace

QString FileFilters(const QString& pairs) {
  const QStringList parts = pairs.split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns;
    for (const QString& pattern : parts[i + 1].split(QLatin1Char(';'))) {
      patterns += IgnoringCase(pattern.trimmed());
    }
    filters += parts[i] + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
  }
  return filters.join(QStringLiteral(";;"));
}

}  // namespace quillmark
