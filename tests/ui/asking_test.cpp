// What the screen asks and how a person answers: boxes, file dialogs, and what the mouse does with
// a list beyond choosing a row.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest/QTest>

#include "controls/desktop.h"
#include "editor/editor_form.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "platform/ansi.h"
#include "ui/file_filters.h"
#include "ui/qt_screen.h"

namespace quillmark {
namespace {

/// A person who chooses always the same file, and reads where a dialog stands and what a box says.
class Reader : public QtScreen {
 public:
  Reader() { TheDesktop().Attach(*this); }
  ~Reader() override { TheDesktop().Reset(); }

  QString file;
  QString start;
  QString text;
  QString standsOn;

 protected:
  std::optional<QString> AskNativeFileDialog(const FileDialog& dialog) override {
    start = dialog.start;
    return file;
  }
  void WaitFor(QWidget& window, const std::function<bool()>& /*over*/) override {
    auto& box = dynamic_cast<QMessageBox&>(window);
    text = box.text();
    if (box.defaultButton() != nullptr) standsOn = box.defaultButton()->text().remove('&');
  }
};

TEST(Boxes, StandOnNoBeforeSomethingGoesAndCancelByTheirFrame) {
  Reader screen;
  EXPECT_FALSE(TheDesktop().AskYesNo("Title", "All?"));
  EXPECT_EQ(screen.standsOn, QStringLiteral("No"));
  const Message box = {BoxIcon::None, {BoxButton::Yes, BoxButton::No, BoxButton::Cancel}, "", ""};
  EXPECT_EQ(TheDesktop().Ask(box), BoxButton::Cancel);
  const Message fault = {BoxIcon::Critical, {BoxButton::End, BoxButton::Continue}, "", ""};
  EXPECT_EQ(TheDesktop().Ask(fault), BoxButton::Continue);
}

TEST(FileDialogs, ShowPathsWithAllTheirLetters) {
  Reader screen;
  const QString path =
      QDir::toNativeSeparators(QStringLiteral("/za\u017C\u00F3\u0142\u0107/A.DAT"));
  screen.file = path;
  const std::string chosen = TheDesktop().AskFile({});
  EXPECT_EQ(chosen, path.toStdString());
  frmEditor.Show();
  frmEditor.SetCaption("Quillmark - " + Utf8ToAnsi(chosen));
  TheDesktop().ShowError("", Utf8ToAnsi(chosen) + "'");
  EXPECT_EQ(screen.text, path + QLatin1Char('\''));
  // They look like the first one in the code page, and are none of the title's business.
  for (const char* other : {"/za\u0144\u00F3\u0144\u0144/A.DAT",
                            "/za?\u00F3?"
                            "?/A.DAT"}) {
    const QString title = QStringLiteral("Quillmark - ") + screen.file;
    screen.file = QDir::toNativeSeparators(QString::fromUtf8(other));
    TheDesktop().AskFile({});
    frmEditor.MoveTo(3, 4);
    EXPECT_EQ(screen.WindowOf(frmEditor).windowTitle(), title);
    frmEditor.SetCaption(std::string(frmEditor.Caption()));
    EXPECT_EQ(screen.WindowOf(frmEditor).windowTitle(),
              QStringLiteral("Quillmark - ") + screen.file);
  }
}

TEST(FileDialogs, OfferFilesInEitherLetterCase) {
#ifdef Q_OS_WIN
  GTEST_SKIP() << "as its dialogs do by themselves";
#endif
  EXPECT_EQ(FileFilters("Any|a.1; *.2|All|*"), QStringLiteral("Any ([aA].1 *.2);;All (*)"));
}

TEST(FileDialogs, RememberTheFolderOfTheirKind) {
  const QTemporaryDir folder;
  const QString before = QDir::currentPath();
  QFile script(folder.filePath(QStringLiteral("Script.dat")));
  ASSERT_TRUE(script.open(QIODevice::WriteOnly));
  ASSERT_TRUE(QDir::setCurrent(folder.path()));
  {
    Reader screen;
    screen.file = folder.filePath(QStringLiteral("deeper/SCRIPT.DAT"));
    const FileRequest open = {.filter = "SCRIPT.DAT|SCRIPT.DAT"};
    TheDesktop().AskFile(open);
    EXPECT_EQ(screen.start, QDir::currentPath());
    TheDesktop().AskFile({.filter = "Tables|*.bin"});
    EXPECT_EQ(screen.start, QDir::currentPath());
    TheDesktop().AskFile(open);
    EXPECT_EQ(screen.start, folder.filePath(QStringLiteral("deeper")));
    TheDesktop().AskFile({.save = true, .filter = open.filter, .proposed = "/there/SCRIPT.DAT"});
    EXPECT_EQ(screen.start, QStringLiteral("/there/SCRIPT.DAT"));
    script.close();
    screen.file = QDir::toNativeSeparators(script.fileName());
    for (int save = 1; save <= 2; ++save) SaveScriptProc();
    EXPECT_EQ(screen.start, screen.file) << "where the first one went";
    QDir::setCurrent(before);
    TheDesktop().AskFile({.filter = "Others|*.x"});
    EXPECT_EQ(screen.start, QDir::homePath());
  }
}

TEST(Lists, SayHowToFillThemAndFollowTheMouse) {
  Reader screen;
  frmEditor.Show();
  ListBox& list = frmEditor.lstFileNames;
  int presses = 0;
  frmEditor.Command16.SetEnabled(true);
  frmEditor.Command16.onPress = [&] { ++presses; };
  list.SetPlaceholder("Nothing yet");
  screen.Refresh();
  auto& view = dynamic_cast<QListView&>(*screen.WidgetOf(list));
  const auto* const hint = view.viewport()->findChild<QLabel*>();
  EXPECT_TRUE(hint->isVisible());
  EXPECT_EQ(hint->text(), QStringLiteral("Nothing yet"));
  EXPECT_LT(hint->palette().color(hint->foregroundRole()).alpha(), 255) << "grey";

  for (int row = 0; row < 100; ++row) list.AddRow("name");
  list.Select(0);
  screen.RevealRow(list, 99);
  EXPECT_FALSE(hint->isVisible());
  const auto inSight = [&](int row) {
    return view.viewport()->rect().contains(view.visualRect(view.model()->index(row, 0)));
  };
  EXPECT_TRUE(inSight(99));
  EXPECT_FALSE(inSight(0));

  const auto doubleClick = [&](QPointF place) {
    for (const QEvent::Type type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, place, view.viewport()->mapToGlobal(place), Qt::LeftButton,
                        Qt::LeftButton, Qt::NoModifier);
      QApplication::sendEvent(view.viewport(), &event);
    }
  };
  doubleClick(view.visualRect(view.model()->index(99, 0)).center());
  EXPECT_EQ(list.Row(), 99);
  EXPECT_EQ(presses, 1);
  doubleClick({-1, 0});
  EXPECT_EQ(presses, 1) << "no row, nothing to press";
  frmEditor.Command16.onPress = nullptr;
}

TEST(Timers, ElapseWhenTheirTimeIsOver) {
  const Reader screen;
  EXPECT_EQ(Form1.Timer1.Milliseconds(), 2000);
  int elapsed = 0;
  Timer timer("", 5);
  timer.onElapse = [&] { ++elapsed; };
  TheDesktop().Start(timer);
  EXPECT_TRUE(QTest::qWaitFor([&] { return elapsed == 1; }));
}

TEST(Drops, BringOneFileToTheWindowAndNoPathIntoABox) {
  Reader screen;
  std::string dropped;
  frmEditor.onFileDropped = [&](const std::string& path) { dropped = path; };
  frmEditor.Show();
  frmEditor.Frame3.SetEnabled(true);
  screen.Refresh();
  const QUrl file = QUrl::fromLocalFile(QStringLiteral("/there/SCRIPT.DAT"));
  QMimeData data;
  data.setText(file.toString());
  const auto accepted = [&data](QWidget& widget) {
    QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &enter);
    return enter.isAccepted();
  };
  QWidget& window = screen.WindowOf(frmEditor);
  QWidget& box = *screen.WidgetOf(frmEditor.txtTrack);
  EXPECT_TRUE(accepted(box)) << "a text";
  EXPECT_FALSE(accepted(window)) << "a text";
  data.setUrls({file, file});
  EXPECT_FALSE(accepted(box)) << "two files";
  EXPECT_FALSE(accepted(window)) << "two files";
  data.setUrls({file});
  EXPECT_TRUE(accepted(window));
  frmEditor.wantsFile = [](const std::string& path) { return path.empty(); };
  EXPECT_FALSE(accepted(window)) << "a file of no use";
  frmEditor.wantsFile = nullptr;
  QDropEvent drop(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  QCoreApplication::processEvents();
  EXPECT_EQ(dropped, QDir::toNativeSeparators(file.toLocalFile()).toStdString());
  AttachScriptCommands();
  EXPECT_FALSE(frmEditor.DropFile("/there/ENGLISH.DAT"));
  EXPECT_TRUE(frmEditor.DropFile("/there/script.dat"));
  EXPECT_EQ(screen.start, QStringLiteral("/there/script.dat")) << "the load asks for it";
  screen.file = screen.start;
  frmEditor.DropFile("/there/script.dat");
  EXPECT_EQ(screen.start, QStringLiteral("/there")) << "and for the language beside it";
  frmEditor.Command7.SetEnabled(false);
  EXPECT_FALSE(frmEditor.DropFile("/there/SCRIPT.DAT"));
  frmEditor.wantsFile = nullptr;
  frmEditor.onFileDropped = nullptr;
}

}  // namespace
}  // namespace quillmark
