#include <QApplication>
#include <iostream>
#include <string_view>

#include "driver/logical_screen.h"
#include "driver/widget_screen.h"
#include "platform/files.h"
#include "ui/icons.h"

namespace quillmark {

/// Passes on everything but what the offscreen platform says of its own limits, so that a warning
/// on standard error is one.
void PassOn(QtMsgType, const QMessageLogContext&, const QString& message) {
  if (message.startsWith(QLatin1String("This plugin does not support"))) return;
  std::cerr << message.toStdString() << "\n";
}

int RunWidgets(int argc, char** argv) {
  qInstallMessageHandler(PassOn);
  const QApplication application(argc, argv);
  QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
  QApplication::setDoubleClickInterval(0);
  // What is seen must not depend on the moment.
  QApplication::setCursorFlashTime(0);
  QApplication::setWindowIcon(ProgramIcon());
  return WidgetScreen().TheDriver().Run();
}

}  // namespace quillmark

int main(int argc, char** argv) {
  const bool widgets = argc == 3 && std::string_view(argv[1]) == "--widgets";
  if (argc != 2 && !widgets) {
    std::cerr << "usage: quillmark_driver [--widgets] FOLDER\n";
    return 64;
  }
  quillmark::SetProgramFolder(argv[argc - 1]);
  return widgets ? quillmark::RunWidgets(argc, argv) : quillmark::LogicalScreen().TheDriver().Run();
}
