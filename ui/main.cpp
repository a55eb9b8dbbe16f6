#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QTranslator>
#include <cstdlib>

#include "controls/desktop.h"
#include "frame/recovery.h"
#include "frame/startup.h"
#include "platform/files.h"
#include "ui/icons.h"
#include "ui/own_folder.h"
#include "ui/qt_screen.h"
#include "ui/session_end.h"
#include "ui/trash.h"

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

  const OwnFolder folder = PrepareOwnFolder(PlacesOfThisRun());
  if (!folder.trouble.isEmpty()) {
    QMessageBox::critical(nullptr, QStringLiteral("Quillmark"), folder.trouble);
    return EXIT_FAILURE;
  }
  SetProgramFolder(QDir::toNativeSeparators(folder.path).toStdString());
  SetTrash(MoveToTrash);
  QtScreen screen;
  TheDesktop().Attach(screen);
  KeepRecoveryCopies();
  CallAtEndOfSession(application, KeepWhatIsUnsaved);
  StartProcess();
  screen.RunUntilEnded();
  return 0;
}
