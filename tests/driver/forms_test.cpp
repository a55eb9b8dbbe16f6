// Every control of every form: what its widget shows is what the control says.

#include <gtest/gtest.h>

#include <QApplication>

#include "driver/driver.h"
#include "driver/widget_hands.h"
#include "driver/widget_screen.h"

namespace quillmark {
namespace {

class Forms : public testing::Test {
 protected:
  Forms() {
    hands_.Use(screen_);
    TheDesktop().Attach(screen_);
  }
  ~Forms() override { TheDesktop().Reset(); }

  void ExpectTheSame(const Form& form, const std::string& when) {
    screen_.Refresh();
    hands_.Settle();
    Json shown = hands_.DescribeForm(form);
    Json said = logic_.DescribeForm(form);
    for (Json* object : {&shown, &said}) object->erase("place");
    EXPECT_EQ(shown, said) << form.Name() << " " << when;
    for (const Control* control : form.Controls()) {
      EXPECT_EQ(hands_.Describe(*control), logic_.Describe(*control))
          << form.Name() << "." << control->FullName() << " " << when;
    }
  }

  LogicalHands logic_;
  WidgetHands hands_;
  Driver driver_{hands_};
  WidgetScreen screen_{driver_};
};

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

TEST_F(Forms, AreDrawnWithEveryControl) {
  EXPECT_EQ(screen_.DrawingErrors(), std::vector<std::string>());
}

TEST_F(Forms, ShowWhatTheirControlsSay) {
  for (Form* form : TheDesktop().Forms()) {
    form->Show();
    ExpectTheSame(*form, "as designed");
    TheDesktop().RunAct("the change", [&] {
      for (Control* control : form->Controls()) Change(*control);
    });
    form->SetCaption("Another \xE9");
    form->KeepOnTop();
    ExpectTheSame(*form, "changed");
    form->Unload();
    ExpectTheSame(*form, "unloaded");
    form->Show();
    ExpectTheSame(*form, "shown again");
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
