// Keys: the letters that reach controls together with Alt, the keys that reach them from
// everywhere, and letters that are typed as one word.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QRegularExpression>
#include <QtTest/QTest>
#include <nlohmann/json.hpp>
#include <set>

#include "driver/running_program.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "forms/string_forms.h"
#include "ui/access_keys.h"

namespace quillmark {
namespace {

using Captions = std::vector<QString>;

TEST(AccessKeys, AreTheFirstLettersThatAreFree) {
  EXPECT_EQ(WithAccessKeys({"Load", "Save", "Level list", "Sell"}),
            Captions({"&Load", "S&ave", "L&evel list", "&Sell"}));
  EXPECT_EQ(WithAccessKeys({"Main", "M&ain", "...", ""}), Captions({"&Main", "M&ain", "...", ""}));
  EXPECT_EQ(WithAccessKeys({"One", "&One"}), Captions({"O&ne", "&One"})) << "its own goes first";
  EXPECT_EQ(WithAccessKeys({"a&b&c&&"}), Captions({"a&bc&&"})) << "the first one that it marks";
  EXPECT_EQ(WithAccessKeys({"&A", "&A b"}), Captions({"&A", "A &b"})) << "a mark that stands twice";
  EXPECT_EQ(WithAccessKeys({"ab", "a"}), Captions({"a&b", "&a"})) << "makes room";
  EXPECT_EQ(WithAccessKeys({"This && that", "T"}), Captions({"T&his && that", "&T"}));
  EXPECT_EQ(WithoutAccessKey("&Tick && c&ross"), "Tick && cross");
  EXPECT_EQ(WithAccessKeys({"1", "1"}), Captions({"&1", "1"})) << "none is left";
}

/// The text that a person sees on or beside a control of a kind that has to have an access key;
/// none for any other control.
QString ShownCaption(WidgetScreen& screen, const Control& control) {
  QWidget* const widget = screen.WidgetOf(control);
  if (widget == nullptr || widget->isHidden()) return {};
  switch (control.Kind()) {
    case ControlKind::Button:
    case ControlKind::OptionButton:
      return dynamic_cast<QAbstractButton&>(*widget).text();
    case ControlKind::TextBox:
    case ControlKind::ComboBox:
      for (const QLabel* label : widget->window()->findChildren<QLabel*>()) {
        if (label->buddy() == widget) return label->text();
      }
      return {};
    default:
      return {};
  }
}

class Languages : public testing::TestWithParam<const char*> {};

TEST_P(Languages, HaveOneAccessKeyForEachCaptionThatNeedsOne) {
  RunningProgram program(GetParam());
  for (Form* form : TheDesktop().Forms()) {
    if (!form->StartState().framed) continue;  // the splash form, which is over
    form->Load();
    program.screen.FormShown(*form);
    std::set<QKeySequence> keys;
    for (const Control* control : form->Controls()) {
      const QString caption = ShownCaption(program.screen, *control);
      if (!caption.contains(QRegularExpression("[A-Za-z]"))) continue;
      const QKeySequence key = QKeySequence::mnemonic(caption);
      EXPECT_FALSE(key.isEmpty()) << form->Name() << ": " << caption.toStdString();
      EXPECT_TRUE(keys.insert(key).second) << form->Name() << ": " << caption.toStdString();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, Languages,
                         testing::Values("ENGLISH", "ITALIAN", "GERMAN", "FRENCH", "SPANISH"));

TEST(Keys, ReachFromEverywhereWhatCanBeReached) {
  RunningProgram program;
  FormWindow& window = program.screen.WindowOf(frmEditor);
  window.activateWindow();
  int presses = 0;
  frmEditor.Command15.onPress = [&] { ++presses; };
  frmEditor.txtTrack.SetEnabled(true);
  program.Settle();
  const Control* const focus = frmEditor.Focus();
  QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(presses, 0) << "the button is disabled";
  frmEditor.Command15.SetEnabled(true);
  program.Settle();
  QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(presses, 1);
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
  QTest::keyClick(&window, Qt::Key_F1);
  EXPECT_EQ(frmEditor.Focus(), focus) << "a press from elsewhere leaves the focus where it is";
  frmEditor.Frame3.SetEnabled(true);
  frmEditor.txtFind.SetEnabled(true);
  program.Settle();
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(frmEditor.Focus(), &frmEditor.txtFind);
  const QString save = program.screen.WidgetOf(frmEditor.Command15)->toolTip();
  EXPECT_TRUE(save.endsWith(QKeySequence("Ctrl+S").toString(QKeySequence::NativeText) + ")"));
}

TEST(Keys, ReleaseAnAccessKeyInTheBoxThatItReached) {
  RunningProgram program;
  FormWindow& window = program.screen.WindowOf(frmEditor);
  window.activateWindow();
  frmEditor.Frame3.SetEnabled(true);
  std::vector<Key> released;
  frmEditor.txtTrack.onKeyRelease = [&](Key key) { released.push_back(key); };
  program.Settle();
  const QKeySequence key = QKeySequence::mnemonic(ShownCaption(program.screen, frmEditor.txtTrack));
  const auto letter = static_cast<Qt::Key>(key[0].key());
  QTest::keyPress(&window, letter, Qt::AltModifier);
  EXPECT_EQ(frmEditor.Focus(), &frmEditor.txtTrack);
  QTest::keyRelease(program.screen.WidgetOf(frmEditor.txtTrack), letter, Qt::AltModifier);
  EXPECT_EQ(released.size(), 2U) << "the letter and Alt";
}

TEST(Keys, AreReplacedThoughTheyAreTypedWithAltGr) {
  RunningProgram program;
  Form2.Show();
  TextBox& box = Form2.txtString[0];
  box.onChange = nullptr;  // which needs a row
  box.SetEnabled(true);
  program.Settle();
  QKeyEvent event(QEvent::KeyPress, Qt::Key_Egrave, Qt::ControlModifier | Qt::AltModifier,
                  "\u00E8");
  QApplication::sendEvent(program.screen.WidgetOf(box), &event);
  EXPECT_EQ(box.Text(), "\x8A");
}

/// What a screen reader does to a widget: no key and no button takes part in it.
void DoBy(QWidget& widget, const QString& action) {
  QAccessible::queryAccessibleInterface(&widget)->actionInterface()->doAction(action);
}

void SelectRowBy(QWidget& list, int row) {
  QAccessible::queryAccessibleInterface(&list)->tableInterface()->selectRow(row);
}

TEST(ScreenReaders, ReachWhatTheMouseReaches) {
  RunningProgram program;
  const auto widget = [&](const Control& control) -> QWidget& {
    return *program.screen.WidgetOf(control);
  };
  frmEditor.Frame3.SetEnabled(true);
  int presses = 0;
  frmEditor.chkHorizon.onMousePress = [&] { ++presses; };
  frmEditor.cmbFMV.onSelect = nullptr;  // which needs a level
  frmEditor.lstFileNames.AddRow("first");
  frmEditor.lstFileNames.AddRow("second");
  program.Settle();
  DoBy(widget(frmEditor.chkHorizon), QAccessibleActionInterface::toggleAction());
  SelectRowBy(widget(frmEditor.lstFileNames), 1);
  SelectRowBy(*dynamic_cast<QComboBox&>(widget(frmEditor.cmbFMV)).view(), 7);
  program.Settle();
  EXPECT_EQ(widget(frmEditor.txtFog[1]).accessibleName().back(), QLatin1Char('2'));
  EXPECT_TRUE(frmEditor.chkHorizon.Ticked());
  EXPECT_EQ(presses, 1) << "only a press stores the value";
  EXPECT_EQ(frmEditor.lstFileNames.Row(), 1);
  EXPECT_EQ(frmEditor.cmbFMV.Row(), 7);
  bool pressed = false;
  frmEditor.Command3.SetEnabled(true);
  program.Settle();
  frmEditor.Command3.onPress = [&] { pressed = true; };
  DoBy(widget(frmEditor.Command3), QAccessibleActionInterface::pressAction());
  EXPECT_FALSE(pressed) << "the reader waits for all that the press opens";
  EXPECT_TRUE(QTest::qWaitFor([&] { return pressed; }));
  frmSelScript.Show();
  program.Settle();
  QAccessibleInterface& chooser =
      *QAccessible::queryAccessibleInterface(&program.screen.WindowOf(frmSelScript));
  EXPECT_EQ(chooser.role(), QAccessible::Dialog);
  EXPECT_EQ(chooser.text(QAccessible::Name), QStringLiteral("Quillmark"));
  QWidget& other = widget(frmSelScript.Option2);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&other)->role(), QAccessible::RadioButton);
  DoBy(other, QAccessibleActionInterface::toggleAction());
  program.Settle();
  EXPECT_TRUE(frmSelScript.Option2.On());
  EXPECT_FALSE(frmSelScript.Option1.On());
  frmSelScript.Unload();
}

TEST(Keys, MakeOneWordOfLettersThatFollowEachOtherSoon) {
  RunningProgram program;
  frmEditor.Frame3.SetEnabled(true);
  program.screen.Refresh();
  frmEditor.cmbFMV.onSelect = nullptr;  // which needs a level
  QWidget& combo = *program.screen.WidgetOf(frmEditor.cmbFMV);
  const auto soon = static_cast<quint64>(QApplication::keyboardInputInterval()) / 2;
  quint64 now = 1000;
  const auto type = [&](char digit, quint64 after) {
    QKeyEvent event(QEvent::KeyPress, digit, Qt::NoModifier, QString(QLatin1Char(digit)));
    event.setTimestamp(now += after);
    QApplication::sendEvent(&combo, &event);
    return frmEditor.cmbFMV.Row();
  };
  EXPECT_EQ(type('3', 0), 3);
  EXPECT_EQ(type('0', soon), 30);
  EXPECT_EQ(type('3', 10 * soon), 31) << "anew, and behind the selected row";
}

}  // namespace
}  // namespace quillmark
