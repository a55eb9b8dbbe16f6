// The desktop's trash by the rules that all desktops share. Qt has a routine for it, but that
// of 6.4 makes a trash of the working folder where there is none, and never returns if the disk is
// full.

#include <sys/stat.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QUrl>
#include <algorithm>
#include <filesystem>
#include <vector>

#include "ui/trash.h"

namespace quillmark {
namespace {

constexpr int kNamesInOrder = 100;
constexpr int kMostNames = 110;

struct Trash {
  QString folder;
  QString top;  ///< of the volume that it serves; empty for the one in the home folder
};

/// True if the folder is there. A new one is nobody else's.
bool MakeOwnFolder(const QString& path) {
  return QDir(path).exists() || mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0;
}

/// Whether the administrator of a volume made a place for everybody's trash there.
bool IsSharedTrash(const QString& path) {
  std::error_code error;
  const auto about = std::filesystem::symlink_status(path.toStdString(), error);
  return std::filesystem::is_directory(about) &&
         (about.permissions() & std::filesystem::perms::sticky_bit) != std::filesystem::perms::none;
}

/// A folder at the top of a volume could be anybody's.
bool IsOurs(const QString& path) {
  const QFileInfo folder(path);
  return folder.isDir() && !folder.isSymLink() && folder.ownerId() == getuid();
}

/// The trashes for `file`, the better ones first. Each is there.
std::vector<Trash> TrashesFor(const QFileInfo& file) {
  std::vector<Trash> trashes;
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  const bool hasHome = QDir::isAbsolutePath(data) && QDir().mkpath(data);
  const QString top = QStorageInfo(file.absolutePath()).rootPath();
  if (!top.isEmpty() && !(hasHome && QStorageInfo(data).rootPath() == top)) {
    const QString user = QString::number(getuid());
    const QString shared = QDir(top).filePath(QStringLiteral(".Trash"));
    const QString own =
        IsSharedTrash(shared) ? shared + QLatin1Char('/') + user : shared + QLatin1Char('-') + user;
    if (MakeOwnFolder(own) && IsOurs(own)) trashes.push_back({own, top});
  }
  const QString ofHome = data + QStringLiteral("/Trash");
  if (hasHome && MakeOwnFolder(ofHome)) trashes.push_back({ofHome, {}});
  return trashes;
}

/// What the desktop wants to know of a file in its trash.
QByteArray Record(const QFileInfo& file, const Trash& trash) {
  const QString path = trash.top.isEmpty()
                           ? file.absoluteFilePath()
                           : QDir(trash.top).relativeFilePath(file.absoluteFilePath());
  return "[Trash Info]\nPath=" + QUrl::toPercentEncoding(path, "/") +
         "\nDeletionDate=" + QDateTime::currentDateTime().toString(Qt::ISODate).toLatin1() + '\n';
}

bool WriteRecord(QFile& record, const QByteArray& content) {
  const bool whole = record.write(content) == content.size();
  record.close();
  return whole && record.error() == QFileDevice::NoError;
}

/// A name for the file where `count - 1` others were taken. Who has thrown away a hundred files of
/// one name gets names by the time, since to try them all would take ever longer.
QString NameInTrash(const QFileInfo& file, int count) {
  if (count == 1) return file.fileName();
  const qint64 number =
      count <= kNamesInOrder ? count : QDateTime::currentMSecsSinceEpoch() + count;
  return QStringLiteral("%1.%2").arg(file.fileName()).arg(number);
}

/// The record has to be there first: its name, which none but us can have made, keeps the file's.
bool PutInto(const Trash& trash, const QFileInfo& file) {
  const QString records = trash.folder + QStringLiteral("/info/");
  const QString files = trash.folder + QStringLiteral("/files/");
  if (!MakeOwnFolder(records) || !MakeOwnFolder(files)) return false;
  for (int count = 1; count <= kMostNames; ++count) {
    const QString name = NameInTrash(file, count);
    if (QFile::exists(files + name)) continue;
    QFile record(records + name + QStringLiteral(".trashinfo"));
    if (!record.open(QFile::WriteOnly | QFile::NewOnly)) {
      if (record.exists()) continue;
      return false;
    }
    if (WriteRecord(record, Record(file, trash)) &&
        QFile::rename(file.absoluteFilePath(), files + name)) {
      return true;
    }
    record.remove();
    return false;
  }
  return false;
}

}  // namespace

bool MoveToTrash(const std::string& path) {
  const QFileInfo file(QString::fromStdString(path));
  const std::vector<Trash> trashes = TrashesFor(file);
  return std::any_of(trashes.begin(), trashes.end(),
                     [&file](const Trash& trash) { return PutInto(trash, file); });
}

}  // namespace quillmark
