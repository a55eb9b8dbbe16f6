#include "ui/trash.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace quillmark {
namespace {

/// Without the folder of the person's data Qt 6.4 takes the working folder for the trash.
bool MakeDataFolder() {
#ifdef Q_OS_WIN
  return true;
#else
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return QDir::isAbsolutePath(folder) && QDir().mkpath(folder);
#endif
}

/// Whether a path that Qt names as the place in the trash is one. On Windows the system itself
/// moves the file, and may not tell where to.
bool IsInTrash(const QString& path) {
#ifdef Q_OS_WIN
  return path.isEmpty() || QFileInfo::exists(path);
#else
  // The trash of the home folder, and those at the top of other volumes.
  const QDir files = QFileInfo(path).dir();
  const QString trash = QFileInfo(files.path()).path();
  return QDir::isAbsolutePath(path) && QFileInfo::exists(path) &&
         files.dirName() == QLatin1String("files") &&
         (trash.endsWith(QLatin1String("/Trash")) || trash.contains(QLatin1String("/.Trash")));
#endif
}

}  // namespace

bool MoveToTrash(const std::string& path) {
  const QString place = QString::fromStdString(path);
  QString inTrash;
  if (!MakeDataFolder() || !QFile::moveToTrash(place, &inTrash)) return false;
  if (IsInTrash(inTrash)) return true;
  QFile::rename(inTrash, place);
  return false;
}

}  // namespace quillmark
