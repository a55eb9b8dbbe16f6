// What a person, or a screen reader for them, finds on the windows of the forms.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTemporaryDir>
#include <QTreeView>
#include <filesystem>
#include <map>

#include "frame/interface_table.h"
#include "frame/startup.h"
#include "platform/desktop.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "ui/qt_screen.h"

namespace quillmark {
namespace {

const char* programFiles = nullptr;

class Windows : public testing::Test {
 protected:
  ~Windows() override {
    TheDesktop().Reset();
    Files.CloseAll();
    InterfaceTable = {};
  }

  /// Starts the program with the interface texts of `language` and ends its splash form.
  void Start(const std::string& language) {
    std::filesystem::copy(programFiles, folder_.path().toStdString(),
                          std::filesystem::copy_options::recursive);
    const std::string files = folder_.path().toStdString() + "/";
    std::filesystem::rename(files + language + ".BIN", files + "language.bin");
    SetProgramFolder(folder_.path().toStdString());
    TheDesktop().Attach(screen_);
    StartProcess();
    ASSERT_NE(TheDesktop().RunningTimer(), nullptr);
    TheDesktop().RunningTimer()->Elapse();
  }

  QTemporaryDir folder_;
  QtScreen screen_;
};

TEST_F(Windows, TellTheirControlsApartByName) {
  Start("ENGLISH");
  for (Form* form : TheDesktop().Forms()) {
    if (!form->StartState().framed) continue;  // the splash form, which is over
    SCOPED_TRACE(form->Name());
    form->Load();
    screen_.Refresh();
    std::map<std::pair<ControlKind, QString>, std::string> seen;
    for (const Control* control : form->Controls()) {
      const QWidget* widget = screen_.WidgetOf(*control);
      if (widget == nullptr || !control->TakesFocus() || !control->Visible()) continue;
      const QString name = widget->accessibleName();
      EXPECT_FALSE(name.isEmpty()) << control->FullName();
      const auto [other, fresh] =
          seen.emplace(std::pair(control->Kind(), name), control->FullName());
      EXPECT_TRUE(fresh) << control->FullName() << " and " << other->second << " are both called "
                         << name.toStdString();
    }
  }
}

/// How many pixels the widest text of the widget lacks.
int MissingWidth(const QWidget& widget) {
  if (const auto* table = qobject_cast<const QTreeView*>(&widget)) {
    int missing = 0;
    for (int i = 0; i < table->header()->count(); ++i) {
      if (table->isColumnHidden(i)) continue;
      missing =
          std::max(missing, table->header()->sectionSizeHint(i) - table->header()->sectionSize(i));
    }
    return missing;
  }
  if (qobject_cast<const QGroupBox*>(&widget)) {
    return widget.minimumSizeHint().width() - widget.width();
  }
  const bool showsText = qobject_cast<const QLabel*>(&widget) != nullptr ||
                         qobject_cast<const QAbstractButton*>(&widget) != nullptr;
  return showsText ? widget.sizeHint().width() - widget.width() : 0;
}

class WindowsOfEachLanguage : public Windows, public testing::WithParamInterface<const char*> {};

TEST_P(WindowsOfEachLanguage, HaveRoomForTheirTexts) {
  Start(GetParam());
  for (Form* form : TheDesktop().Forms()) {
    if (!form->StartState().framed) continue;
    form->Load();
    screen_.FormShown(*form);  // alone: some forms need a script when they are shown
    for (const Control* control : form->Controls()) {
      const QWidget* widget = screen_.WidgetOf(*control);
      if (widget == nullptr || !widget->isVisible()) continue;
      EXPECT_LE(MissingWidth(*widget), 0) << form->Name() << "." << control->FullName();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, WindowsOfEachLanguage,
                         testing::Values("ENGLISH", "ITALIAN", "GERMAN", "FRENCH", "SPANISH"));

}  // namespace
}  // namespace quillmark

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  quillmark::programFiles = argc > 1 ? argv[1] : ".";
  return RUN_ALL_TESTS();
}
