#include <QFile>

#include "ui/trash.h"

namespace quillmark {

bool MoveToTrash(const std::string& path) {
  const QString place = QString::fromStdString(path);
  QString inTrash;  // the system may not tell where to it moved the file
  return QFile::moveToTrash(place, &inTrash) && !QFile::exists(place) &&
         (inTrash.isEmpty() || QFile::exists(inTrash));
}

}  // namespace quillmark
