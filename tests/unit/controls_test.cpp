// The logical controls by themselves: what takes the focus, what stands in front, what a box shows.

#include "controls/controls.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "platform/fault.h"
#include "support/silent_screen.h"

namespace quillmark {
namespace {

struct SmallForm : Form {
  explicit SmallForm(const char* name) : Form(name, {}) {}
  Button button{*this, "button", {}};
  CheckBox check{*this, "check", {}};
  TextBox box{*this, "box", {.text = "text"}};
  ComboBox combo{*this, "combo", {.rows = {"alpha", "beta", "Beach", "bell", "\xE8"}}};
  ListView view{*this, "view", {}, {{"1"}, {"2"}, {"3"}}};
};
// Forms live as long as the process.
SmallForm one("one");
SmallForm two("two");
SmallForm three("three");

class ControlsTest : public testing::Test {
 protected:
  ControlsTest() {
    one.Show();
    one.view.AddRow({"a"});
  }
  ~ControlsTest() override { TheDesktop().Reset(); }

  SilentScreen screen_;
};

TEST_F(ControlsTest, BoxesShowWhatStandsInFrontOfAZero) {
  EXPECT_EQ(Spoken("\xA0 &Name\xA0: "), "Name");
  const auto cut = [](const char* text) { return text + std::string("\0x", 2); };
  TheDesktop().Ask({BoxIcon::None, {BoxButton::OK}, "", cut("text")});
  TheDesktop().AskText({cut("prompt"), cut("title"), cut("text")});
  EXPECT_THROW(TheDesktop().AskFile({.title = cut("title")}), Fault);
  EXPECT_EQ(screen_.boxes, (std::vector<std::string>{"text", "title|prompt|text", "title"}));
}

TEST_F(ControlsTest, TheLastModalFormIsInFrontAndTheLastFormHasTheFocus) {
  two.Show();
  EXPECT_TRUE(one.InFront() && two.InFront());
  EXPECT_TRUE(two.button.HasFocus());
  EXPECT_FALSE(one.button.HasFocus());
  one.check.TakeFocus();
  EXPECT_TRUE(one.check.HasFocus());
  EXPECT_FALSE(two.button.HasFocus());
  two.Unload();
  two.ShowModal();
  three.ShowModal();
  EXPECT_TRUE(three.InFront() && three.button.Reachable());
  EXPECT_FALSE(one.InFront() || two.InFront() || two.button.Reachable());
  three.Unload();
  EXPECT_TRUE(two.InFront());
  EXPECT_FALSE(one.InFront());
}

TEST_F(ControlsTest, AnyOtherSizeIsAChange) {
  int changes = 0;
  one.onResize = [&] { ++changes; };
  for (const auto& [width, height] : {std::pair{400, 300}, {401, 300}, {401, 301}, {9, 9}}) {
    one.SetSize(width, height);
  }
  EXPECT_EQ(changes, 3);
  one.onResize = {};
}

TEST_F(ControlsTest, TheFocusStepsAroundWhatCanBeReached) {
  const std::vector<Control*> order = {&one.check, &one.box, &one.combo, &one.view, &one.button};
  for (Control* const next : order) {
    one.StepFocus(1);
    EXPECT_EQ(one.Focus(), next);
  }
  one.StepFocus(-1);
  EXPECT_EQ(one.Focus(), &one.view);
  for (Control* const control : order) control->SetEnabled(control == &one.box);
  for (const int direction : {1, 1, -1}) {
    one.StepFocus(direction);
    EXPECT_EQ(one.Focus(), &one.box) << "the only one keeps it";
  }
  EXPECT_EQ(one.box.SelectionLength(), 4);
}

TEST_F(ControlsTest, WhatAPersonDoesTakesTheFocus) {
  const std::pair<Control*, std::function<bool()>> acts[] = {
      {&one.check, [] { return one.check.Flip(); }},
      {&one.button, [] { return one.button.Press(); }},
      {&one.check, [] { return one.check.MousePress(MouseButton::Right); }},
      {&one.box, [] { return one.box.Edit("x", 1, 0); }},
      {&one.combo, [] { return one.combo.Choose(0); }},
      {&one.view, [] { return one.view.ClickRow(0); }},
      {&one.view, [] { return one.button.PressFromElsewhere(); }},
      {&one.view, [] { return one.box.KeyUp({}); }}};
  for (const auto& [focus, act] : acts) {
    EXPECT_TRUE(act());
    EXPECT_EQ(one.Focus(), focus);
  }
  one.view.TakeFocus();
  EXPECT_TRUE(one.view.ClickBeside());
  EXPECT_TRUE(one.view.HasFocus());
}

TEST_F(ControlsTest, KeysStepThroughRowsAndLettersFindThemByTheWordOrOneByOne) {
  const auto typed = [](char letter, bool goesOn) {
    return Key{KeyCode::Character, letter, goesOn};
  };
  const std::pair<Key, int> steps[] = {
      {{KeyCode::Down}, 0},      {{KeyCode::Right}, 1},  {{KeyCode::Up}, 0},
      {{KeyCode::Left}, 0},      {{KeyCode::End}, 4},    {{KeyCode::Down}, 4},
      {{KeyCode::Left}, 3},      {{KeyCode::Home}, 0},   {typed('b', false), 1},
      {typed('E', true), 1},     {typed('a', true), 2},  {typed('x', true), 2},
      {typed('b', false), 3},    {typed('b', true), 1},  {typed('b', true), 2},
      {typed('a', false), 0},    {typed('B', false), 1}, {typed('z', false), 1},
      {typed('\xC8', false), 4}, {typed('b', false), 1}};
  for (std::size_t i = 0; i < std::size(steps); ++i) {
    bool used = false;
    one.combo.KeyDown(steps[i].first, used);
    EXPECT_EQ(one.combo.Row(), steps[i].second) << i;
  }
}

}  // namespace
}  // namespace quillmark
