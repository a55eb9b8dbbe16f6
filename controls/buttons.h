#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/key.h"

namespace quillmark {

class Button : public Control {
 public:
  Button(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::Button, name, index, design) {}

  std::function<void()> onPress;

  /// A person presses it. False if it can't be reached.
  bool Press();
  bool PressFromElsewhere() override;
  bool HandleKey(Key key) override;

 protected:
  bool ArrowsStepFocus() const override { return true; }
};

/// Its handler runs at the press of any mouse button, before the tick changes, and reads the old
/// state. A write from code raises nothing; neither does the space bar, which changes the tick.
class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::CheckBox, name, index, design) {
    CheckBox::Restart();
  }

  std::function<void()> onMousePress;

  bool Ticked() const { return ticked_; }
  void SetTicked(bool ticked);

  /// A mouse button goes down on it.
  bool MousePress(MouseButton button);
  /// The tick changes, by the left button's release or by the space bar.
  bool Flip();

  void Restart() override;

 protected:
  bool ArrowsStepFocus() const override { return true; }

 private:
  bool ticked_ = false;
};

/// One of a group of which exactly one is on: those that stand in the same frame of a form.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::OptionButton, name, index, design) {
    OptionButton::Restart();
  }

  std::function<void(Key)> onKeyPress;

  bool On() const { return on_; }
  /// Puts it on and the others of its group off.
  void SetOn();

  bool Press();
  bool HandleKey(Key key) override;
  void Restart() override;

 private:
  std::vector<OptionButton*> Group() const;
  void Step(int direction);

  bool on_ = false;
};

}  // namespace quillmark
