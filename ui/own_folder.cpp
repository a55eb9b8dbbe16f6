#include "ui/own_folder.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLocale>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryFile>

#include "platform/files.h"

namespace quillmark {
namespace {

#ifdef Q_OS_WIN
const QString kUserFolderName = QStringLiteral("Quillmark");
#else
const QString kUserFolderName = QStringLiteral("quillmark");
#endif

const QString kTextsInUse = QStringLiteral("language.bin");
const QString kNames = QStringLiteral("interface.h");
const QString kEnglish = QStringLiteral("ENGLISH.BIN");
const QString kSamples = QStringLiteral("samples");
/// Of all files that the program ever copied: the digest of the content, a blank, the name.
const QString kRecord = QStringLiteral("installed.txt");

struct Trouble {
  QString text;
};

/// `name` as it stands in the folder, in whatever letters; empty if it does not.
QString NameOnDisk(const QDir& folder, const QString& name) {
  return QString::fromStdString(FindFile(folder.filePath(name).toStdString()));
}

bool HoldsTables(const QDir& folder) {
  return !NameOnDisk(folder, kTextsInUse).isEmpty() || !NameOnDisk(folder, kNames).isEmpty();
}

/// By trying: what the modes of a folder say is not the whole truth on every system.
bool MayBeWritten(const QDir& folder) { return QTemporaryFile(folder.filePath("XXXXXX")).open(); }

QByteArray Content(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw Trouble{path + ": " + file.errorString()};
  return file.readAll();
}

/// The file is there whole or as it was before.
void Write(const QString& path, const QByteArray& content) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
    throw Trouble{path + ": " + file.errorString()};
  }
}

QString Digest(const QByteArray& content) {
  return QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
}

/// What the program has copied into the folder so far, and from which of the installed files.
class Record {
 public:
  explicit Record(const QDir& folder)
      : path_(folder.filePath(kRecord)), isNew_(!folder.exists(kRecord)) {
    if (isNew_) return;
    for (const QString& line : QString::fromUtf8(Content(path_)).split('\n', Qt::SkipEmptyParts)) {
      nameOf_.insert(line.section(' ', 0, 0), line.section(' ', 1));
    }
  }

  bool IsNew() const { return isNew_; }

  /// The installed file that `content` was copied from in this or an earlier version; empty for
  /// what the program did not copy.
  QString NameOf(const QByteArray& content) const { return nameOf_.value(Digest(content)); }

  void Add(const QByteArray& content, const QString& name) {
    const QString digest = Digest(content);
    if (nameOf_.contains(digest)) return;
    nameOf_.insert(digest, name);
    changed_ = true;
  }

  void Store() const {
    if (!changed_) return;
    QStringList lines;
    for (auto entry = nameOf_.begin(); entry != nameOf_.end(); ++entry) {
      lines.append(entry.key() + " " + entry.value() + "\n");
    }
    lines.sort();
    Write(path_, lines.join("").toUtf8());
  }

 private:
  QString path_;
  bool isNew_ = false;
  bool changed_ = false;
  QHash<QString, QString> nameOf_;
};

/// Copies the installed files into the user's folder, and follows them in later versions.
class UsersCopy {
 public:
  UsersCopy(const QDir& installed, const QDir& user)
      : installed_(installed), user_(user), record_(user) {}

  void BringUpToDate(const QString& language) {
    QStringList names = installed_.entryList({"*.BIN", "*.h"}, QDir::Files);
    names.removeAll(kTextsInUse);  // one of the tables, chosen for each user
    // The record is written before the copies, so that none of them is ever taken for the user's.
    const bool first = record_.IsNew();
    for (const QString& name : names) record_.Add(Content(installed_.filePath(name)), name);
    record_.Store();
    for (const QString& name : names) Follow(name);
    FollowTextsInUse(names.contains(language) ? language : kEnglish);
    if (first) CopySamples();
  }

 private:
  void Follow(const QString& name) {
    const QString there = NameOnDisk(user_, name);
    if (there.isEmpty()) {
      Copy(name, name);
    } else if (SourceOf(there) == name) {
      Update(name, there);
    }
  }

  /// Any of the tables may stand here: the user chooses a language by copying one.
  void FollowTextsInUse(const QString& language) {
    const QString there = NameOnDisk(user_, kTextsInUse);
    if (there.isEmpty()) {
      Copy(language, kTextsInUse);
    } else {
      Update(SourceOf(there), there);
    }
  }

  /// The installed file that `there` is a copy of; empty if it is the user's own work, or if he
  /// protects it.
  QString SourceOf(const QString& there) const {
    const QString path = user_.filePath(there);
    return QFileInfo(path).isWritable() ? record_.NameOf(Content(path)) : QString();
  }

  void Update(const QString& source, const QString& there) {
    if (source.isEmpty() || !installed_.exists(source)) return;
    if (Content(user_.filePath(there)) != Content(installed_.filePath(source))) Copy(source, there);
  }

  void Copy(const QString& source, const QString& name) {
    Write(user_.filePath(name), Content(installed_.filePath(source)));
  }

  /// Once, to play with: they do not come back when the user throws them away.
  void CopySamples() {
    const QDir from(installed_.filePath(kSamples));
    for (const QString& game : from.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
      const QDir adventure(from.filePath(game));
      const QDir target(user_.filePath(kSamples + "/" + game));
      if (!target.mkpath(".")) throw Trouble{target.path()};
      for (const QString& name : adventure.entryList(QDir::Files)) {
        if (!target.exists(name)) Write(target.filePath(name), Content(adventure.filePath(name)));
      }
    }
  }

  QDir installed_;
  QDir user_;
  Record record_;
};

QString NoFolderText(const OwnFolderPlaces& places, const QString& reason) {
  return QStringLiteral(
             "Quillmark keeps its texts, its settings and its log in a folder of its own. "
             "Neither of these two can serve:\n\n%1\n%2\n\n%3")
      .arg(QDir::toNativeSeparators(places.program), QDir::toNativeSeparators(places.user), reason);
}

/// By the language's name in English, which is the name of its table.
QString TableOfTheDesktop() {
  const QStringList languages = QLocale::system().uiLanguages();
  const QLocale locale(languages.isEmpty() ? QString() : languages.first());
  return QLocale::languageToString(locale.language()).toUpper() + ".BIN";
}

}  // namespace

OwnFolderPlaces PlacesOfThisRun() {
  const QDir program(QCoreApplication::applicationDirPath());
  return {.program = program.path(),
          .installed = QDir::cleanPath(program.filePath(QUILLMARK_INSTALLED_DATA)),
          .user = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/" +
                  kUserFolderName,
          .language = TableOfTheDesktop()};
}

OwnFolder PrepareOwnFolder(const OwnFolderPlaces& places) {
  const QDir program(places.program);
  const bool unpacked = HoldsTables(program);
  if (unpacked && MayBeWritten(program)) return {.path = places.program, .trouble = {}};
  const QDir user(places.user);
  if (!user.mkpath(".") || !MayBeWritten(user)) {
    return {.path = {},
            .trouble = NoFolderText(
                places, QStringLiteral("Make one of them writable, and start it again."))};
  }
  try {
    UsersCopy(unpacked ? program : QDir(places.installed), user).BringUpToDate(places.language);
  } catch (const Trouble& trouble) {
    return {.path = {}, .trouble = NoFolderText(places, trouble.text)};
  }
  return {.path = places.user, .trouble = {}};
}

}  // namespace quillmark
