// What a person, or a screen reader for them, finds on the windows in each interface language: all
// controls of a form have names that tell them apart, and all texts have room.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTemporaryDir>
#include <QTreeView>
#include <filesystem>
#include <iostream>
#include <set>

#include "editor/editor_form.h"
#include "frame/interface_table.h"
#include "frame/startup.h"
#include "platform/desktop.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "ui/qt_screen.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

const char* programFiles = nullptr;

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

class Windows : public testing::TestWithParam<const char*> {};

TEST_P(Windows, TellTheirControlsApartAndHaveRoomForTheirTexts) {
  const QTemporaryDir folder;
  const fs::path files = folder.path().toStdString();
  fs::copy(programFiles, files, fs::copy_options::recursive);
  fs::rename(files / (std::string(GetParam()) + ".BIN"), files / "language.bin");
  SetProgramFolder(files.string());
  QtScreen screen;
  TheDesktop().Attach(screen);
  StartProcess();
  ASSERT_NE(TheDesktop().RunningTimer(), nullptr);
  TheDesktop().RunningTimer()->Elapse();
  const Place& place = frmEditor.Position();
  const int left = (screen.Size().first - place.width) / 2;
  EXPECT_TRUE(frmEditor.DragTo(500, 400));
  EXPECT_EQ(place.left, left) << "the main form keeps its size, and so the middle of the screen";
  EXPECT_EQ(place.left, (screen.Size().first - place.width) / 2);
  for (Form* form : TheDesktop().Forms()) {
    if (!form->StartState().framed) continue;  // the splash form, which is over
    form->Load();
    screen.FormShown(*form);  // alone: some forms need a script when they are shown
    std::set<std::pair<ControlKind, QString>> names;
    for (const Control* control : form->Controls()) {
      SCOPED_TRACE(form->Name() + "." + control->FullName());
      const QWidget* widget = screen.WidgetOf(*control);
      if (widget == nullptr || !control->Visible()) continue;
      EXPECT_LE(widget->isVisible() ? MissingWidth(*widget) : 0, 0);
      if (!control->TakesFocus()) continue;
      EXPECT_FALSE(widget->accessibleName().isEmpty());
      EXPECT_TRUE(names.emplace(control->Kind(), widget->accessibleName()).second);
    }
  }
  TheDesktop().Reset();
  Files.CloseAll();
  InterfaceTable = {};
}

INSTANTIATE_TEST_SUITE_P(, Windows,
                         testing::Values("ENGLISH", "ITALIAN", "GERMAN", "FRENCH", "SPANISH"));

}  // namespace
}  // namespace quillmark

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 2) {
    std::cerr << "usage: ui_windows_test PROGRAM_FILES\n";
    return 64;
  }
  const QApplication application(argc, argv);
  quillmark::programFiles = argv[1];
  return RUN_ALL_TESTS();
}
