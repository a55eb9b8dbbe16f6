// Every control of every form: what its widget shows is what the control says.

#include <gtest/gtest.h>

#include <QApplication>

#include "driver/widget_screen.h"

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
  } else if (auto* rows = dynamic_cast<RowsControl*>(&control)) {
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
    form->KeepOnTop();
    ExpectTheSame(screen, *form, "changed");
    form->Unload();
    ExpectTheSame(screen, *form, "unloaded");
    form->Show();
    ExpectTheSame(screen, *form, "shown again");
    form->Unload();
  }
}

}  // namespace
}  // namespace quillmark

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
