// What a screen reader is told about the controls of the forms.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <filesystem>
#include <map>

#include "frame/startup.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "ui/qt_screen.h"

namespace quillmark {
namespace {

const char* programFiles = nullptr;

TEST(AccessibleNames, TellTheControlsOfEachFormApart) {
  const QTemporaryDir folder;
  std::filesystem::copy(programFiles, folder.path().toStdString(),
                        std::filesystem::copy_options::recursive);
  SetProgramFolder(folder.path().toStdString());
  QtScreen screen;
  TheDesktop().Attach(screen);
  StartProcess();
  ASSERT_NE(TheDesktop().RunningTimer(), nullptr);
  TheDesktop().RunningTimer()->Elapse();
  for (Form* form : TheDesktop().Forms()) {
    if (!form->StartState().framed) continue;  // the splash form, which is over
    SCOPED_TRACE(form->Name());
    form->Load();
    screen.Refresh();
    std::map<std::pair<ControlKind, QString>, std::string> seen;
    for (const Control* control : form->Controls()) {
      const QWidget* widget = screen.WidgetOf(*control);
      if (widget == nullptr || !control->TakesFocus() || !control->Visible()) continue;
      const QString name = widget->accessibleName();
      EXPECT_FALSE(name.isEmpty()) << control->FullName();
      const auto [other, fresh] =
          seen.emplace(std::pair(control->Kind(), name), control->FullName());
      EXPECT_TRUE(fresh) << control->FullName() << " and " << other->second << " are both called "
                         << name.toStdString();
    }
  }
  TheDesktop().Reset();
}

}  // namespace
}  // namespace quillmark

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  quillmark::programFiles = argc > 1 ? argv[1] : ".";
  return RUN_ALL_TESTS();
}
