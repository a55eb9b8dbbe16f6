// The windows: each shows what its form says, and in each interface language all controls of a form
// have names that tell them apart, for a screen reader, and all texts have room.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QRegularExpression>
#include <QTreeView>
#include <QWheelEvent>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "driver/running_program.h"
#include "forms/editor_controls.h"
#include "forms/string_forms.h"
#include "platform/ansi.h"

namespace quillmark {
namespace {

void ExpectTheSame(WidgetScreen& screen, const Form& form, const std::string& when) {
  Hands logic;
  WidgetHands& hands = screen.TheHands();
  screen.Refresh();
  hands.Settle();
  Json shown = hands.DescribeForm(form);
  shown["place"] = logic.DescribeForm(form)["place"];
  EXPECT_EQ(shown, logic.DescribeForm(form)) << form.Name() << " " << when;
  for (const Control* control : form.Controls()) {
    EXPECT_EQ(hands.Describe(*control), logic.Describe(*control))
        << form.Name() << "." << control->FullName() << " " << when;
  }
}

/// Puts all that the control can say to something else than its design.
void Change(Control& control) {
  // A frame that is designed without a caption has no room for one.
  if (control.Kind() != ControlKind::Frame || !control.Caption().empty()) {
    control.SetCaption("&Caption \x85\x8D");
  }
  control.SetEnabled(!control.Enabled());
  control.SetVisible(!control.Visible());
  if (auto* box = dynamic_cast<TextBox*>(&control)) {
    box->SetText("12");
    box->SelectText(1, 0);
  } else if (auto* check = dynamic_cast<CheckBox*>(&control)) {
    check->SetTicked(!check->Ticked());
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    option->SetOn();
  } else if (auto* rows = dynamic_cast<TextRows*>(&control)) {
    rows->AddRow("first\xE0");
    rows->AddRow("");
    rows->Select(rows->Count() - 1);
  } else if (auto* view = dynamic_cast<ListView*>(&control)) {
    view->SetColumnCaption(1, "One");
    view->SetColumnWidth(1, 0);
    view->SetColumnWidth(2, 1111);
    view->AddRow({"a", "b\xE8"}, static_cast<int>(view->Images().size()));
    view->AddRow({"", "c"});
    view->Select(1);
  }
}

TEST(Forms, ShowWhatTheirControlsSay) {
  WidgetScreen screen;
  EXPECT_EQ(screen.DrawingErrors(), std::vector<std::string>());
  for (Form* form : TheDesktop().Forms()) {
    form->Show();
    ExpectTheSame(screen, *form, "as designed");
    TheDesktop().RunAct("the change", [&] {
      for (Control* control : form->Controls()) Change(*control);
    });
    form->SetCaption("Another \xE9");
    const QWindow* const window = screen.WindowOf(*form).windowHandle();
    form->KeepOnTop();
    EXPECT_EQ(screen.WindowOf(*form).windowHandle(), window) << "not made anew on the screen";
    ExpectTheSame(screen, *form, "changed");
    form->Unload();
    ExpectTheSame(screen, *form, "unloaded");
    form->Show();
    ExpectTheSame(screen, *form, "shown again");
    form->Unload();
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

TEST(Lists, DrawNoRowAsChosenThatIsNot) {
  WidgetScreen screen;
  Form2.Show();
  for (Control* control : Form2.Controls()) {
    if (auto* view = dynamic_cast<ListView*>(control)) view->AddRow({"first"});
  }
  Form2.ListView1.SetColumnWidth(2, 30000);
  fss.Show();
  fss.l.AddRow("first");
  for (Control* control :
       {static_cast<Control*>(&Form2.ListView1), static_cast<Control*>(&fss.l)}) {
    screen.Refresh();
    auto& view = dynamic_cast<QAbstractItemView&>(*screen.WidgetOf(*control));
    view.window()->activateWindow();
    view.setFocus(Qt::TabFocusReason);
    screen.TheHands().Settle();
    EXPECT_TRUE(view.hasFocus());
    EXPECT_FALSE(view.currentIndex().isValid()) << control->FullName();
  }
  const auto& table = dynamic_cast<QTreeView&>(*screen.WidgetOf(Form2.ListView1));
  EXPECT_GT(table.header()->length(), table.viewport()->width()) << "wide columns stay wide";
}

TEST(CheckBoxes, AreNotPressedBesideTheirCaption) {
  WidgetScreen screen;
  frmEditor.Show();
  frmEditor.Frame3.SetEnabled(true);
  int presses = 0;
  const auto handler = std::exchange(frmEditor.chkPulse.onMousePress, [&presses] { ++presses; });
  screen.Refresh();
  auto& box = *screen.WidgetOf(frmEditor.chkPulse);
  box.resize(box.sizeHint() + QSize(40, 20));
  const int middle = box.height() / 2;
  for (const QPoint& beside :
       {QPoint(box.width() - 3, middle), QPoint(5, 1), QPoint(5, box.height() - 2)}) {
    SendClick(box, beside);
    EXPECT_EQ(presses, 0) << beside.x() << " " << beside.y();
    EXPECT_FALSE(frmEditor.chkPulse.Ticked());
  }
  SendClick(box, {5, middle});
  EXPECT_EQ(presses, 1);
  EXPECT_TRUE(frmEditor.chkPulse.Ticked());
  frmEditor.chkPulse.onMousePress = handler;
}

TEST(Combos, KeepTheirRowUnderTheWheelAndOpenAsWideAsTheirRows) {
  WidgetScreen screen;
  frmEditor.Show();
  frmEditor.Frame3.SetEnabled(true);
  frmEditor.cmbCut.Select(3);
  const QString wide(60, QLatin1Char('m'));
  frmEditor.cmbCut.AddRow(wide.toStdString());
  screen.Refresh();
  auto& combo = dynamic_cast<QComboBox&>(*screen.WidgetOf(frmEditor.cmbCut));
  combo.setFocus();
  QWheelEvent wheel(combo.rect().center(), combo.mapToGlobal(combo.rect().center()), {}, {0, -120},
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&combo, &wheel);
  EXPECT_FALSE(wheel.isAccepted());
  EXPECT_EQ(frmEditor.cmbCut.Row(), 3);
  combo.showPopup();
  EXPECT_GE(combo.view()->viewport()->width(), combo.view()->sizeHintForColumn(0));
  combo.hidePopup();
}

TEST(ColourSwatches, ShowThreeBytes) {
  WidgetScreen screen;
  frmEditor.Show();
  frmEditor.Frame3.SetEnabled(true);
  const auto colourOf = [&](const char* text) {
    for (TextBox* box : frmEditor.txtLayer1.All()) box->SetText(text);
    screen.Refresh();
    auto* const swatch = screen.WindowOf(frmEditor).findChild<QWidget*>("swatchLayer1");
    return swatch->grab().toImage().pixelColor(swatch->rect().center());
  };
  EXPECT_EQ(colourOf("255"), QColor(Qt::white));
  EXPECT_NE(colourOf("256"), QColor(Qt::white));
}

class Windows : public testing::TestWithParam<const char*> {};

/// Where the Windows program is tested its fonts are stand-ins, which are wider.
#ifdef Q_OS_WIN
constexpr bool kHasItsFonts = false;
#else
constexpr bool kHasItsFonts = true;
#endif

TEST(Dialogs, KeepTheirSizeWithinARun) {
  if (!kHasItsFonts) GTEST_SKIP() << "the screen is too small for them";
  RunningProgram program;
  WidgetScreen& screen = program.screen;
  for (Form* form : TheDesktop().Forms()) {
    if (!form->StartState().sizable || form->onResize) continue;
    form->Show();
    const QSize dragged = screen.WindowOf(*form).size() + QSize(0, 40);
    screen.WindowOf(*form).resize(dragged);
    screen.TheHands().Settle();
    form->Unload();
    form->Show();
    screen.TheHands().Settle();
    EXPECT_EQ(screen.WindowOf(*form).size(), dragged) << form->Name();
    form->Unload();
  }
}

/// What a screen reader calls controls.
bool IsControl(QAccessible::Role role) {
  static const std::set<QAccessible::Role> roles = {
      QAccessible::Button,      QAccessible::PushButton, QAccessible::CheckBox,
      QAccessible::RadioButton, QAccessible::ComboBox,   QAccessible::EditableText,
      QAccessible::List,        QAccessible::Table,      QAccessible::Tree};
  return roles.contains(role);
}

/// Every control in the tree that a screen reader walks, without rows and cells. The list of a
/// combo counts also while it is closed.
void WalkAccessibleTree(QAccessibleInterface& place, const std::string& path) {
  const std::string here = path + "/" + place.text(QAccessible::Name).toStdString();
  if (IsControl(place.role())) {
    EXPECT_FALSE(place.text(QAccessible::Name).isEmpty())
        << "role " << place.role() << " below " << path;
    if (place.tableInterface() != nullptr) return;
  }
  for (int i = 0; i < place.childCount(); ++i) {
    QAccessibleInterface* const child = place.child(i);
    if (child == nullptr) continue;
    if (place.role() == QAccessible::ComboBox || !child->state().invisible) {
      WalkAccessibleTree(*child, here);
    }
  }
}

TEST_P(Windows, TellTheirControlsApartAndHaveRoomForTheirTexts) {
  RunningProgram program(GetParam());
  WidgetScreen& screen = program.screen;
  ASSERT_TRUE(frmEditor.Shown());
  const Place& place = frmEditor.Position();
  const int left = (screen.Size().first - place.width) / 2;
  EXPECT_TRUE(frmEditor.DragTo(500, 400));
  EXPECT_EQ(place.left, left) << "the main form keeps its size, and so the middle of the screen";
  EXPECT_EQ(place.left, (screen.Size().first - place.width) / 2);
  // What a screen of 1366 x 768 leaves at 125 %, without the frame of the window.
  const QSize smallest(1092, 582);
  const QSize needed = screen.WindowOf(frmEditor).Needed();
  EXPECT_EQ(kHasItsFonts ? needed.expandedTo(smallest) : smallest, smallest);
  for (Form* form : TheDesktop().Forms()) {
    if (!form->StartState().framed) continue;  // the splash form, which is over
    form->Load();
    screen.FormShown(*form);  // alone: some forms need a script when they are shown
    screen.WindowOf(*form).resize(screen.WindowOf(*form).Needed());
    WalkAccessibleTree(*QAccessible::queryAccessibleInterface(&screen.WindowOf(*form)), "");
    std::set<std::pair<ControlKind, QString>> names;
    for (const Control* control : form->Controls()) {
      SCOPED_TRACE(form->Name() + "." + control->FullName());
      const QWidget* widget = screen.WidgetOf(*control);
      if (widget == nullptr || !control->Visible()) continue;
      EXPECT_LE(widget->isVisible() ? MissingWidth(*widget) : 0, 0);
      EXPECT_NE(widget->focusPolicy(), Qt::WheelFocus);
      if (!control->TakesFocus()) continue;
      EXPECT_FALSE(widget->accessibleName().isEmpty());
      EXPECT_FALSE(widget->accessibleName().contains(QRegularExpression("[&:]")));
      EXPECT_TRUE(names.emplace(control->Kind(), widget->accessibleName()).second);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, Windows,
                         testing::Values("ENGLISH", "ITALIAN", "GERMAN", "FRENCH", "SPANISH"));

}  // namespace
}  // namespace quillmark
