#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "controls/desktop.h"
#include "frame/startup.h"
#include "platform/files.h"
#include "ui/icons.h"
#include "ui/qt_screen.h"

int main(int argc, char* argv[]) {
  using namespace quillmark;
  QApplication application(argc, argv);
  QApplication::setDesktopFileName(QStringLiteral("quillmark"));
  QApplication::setWindowIcon(ProgramIcon());

  QTranslator ofTheDesktop;  // for the captions of the boxes' own buttons
  if (ofTheDesktop.load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(&ofTheDesktop);
  }

  SetProgramFolder(QDir::toNativeSeparators(QApplication::applicationDirPath()).toStdString());
  SetTrash(
      [](const std::string& path) { return QFile::moveToTrash(QString::fromStdString(path)); });
  QtScreen screen;
  TheDesktop().Attach(screen);
  StartProcess();
  screen.RunUntilEnded();
  return 0;
}
