#include "controls/buttons.h"

#include <algorithm>
#include <cstddef>

#include "controls/form.h"

namespace quillmark {

bool Button::Press() {
  return Act([this] {
    TakeFocus();
    if (onPress) onPress();
  });
}

bool Button::PressFromElsewhere() {
  return Act([this] {
    if (onPress) onPress();
  });
}

bool Button::HandleKey(Key key) {
  if (key.code == KeyCode::Enter) return Press();
  return Control::HandleKey(key);
}

void CheckBox::SetTicked(bool ticked) {
  ticked_ = ticked;
  MarkChanged();
}

bool CheckBox::MousePress(MouseButton /*button*/) {
  return Act([this] {
    TakeFocus();
    if (onMousePress) onMousePress();
  });
}

bool CheckBox::Flip() {
  return Act([this] {
    TakeFocus();
    SetTicked(!ticked_);
  });
}

void CheckBox::Restart() {
  Control::Restart();
  ticked_ = StartState().ticked;
}

std::vector<OptionButton*> OptionButton::Group() const {
  std::vector<OptionButton*> group;
  for (Control* control : Owner().Controls()) {
    auto* const option = dynamic_cast<OptionButton*>(control);
    if (option != nullptr && option->Parent() == Parent()) group.push_back(option);
  }
  return group;
}

void OptionButton::SetOn() {
  for (OptionButton* option : Group()) {
    option->on_ = option == this;
    option->MarkChanged();
  }
}

bool OptionButton::Press() {
  return Act([this] {
    TakeFocus();
    SetOn();
  });
}

bool OptionButton::HandleKey(Key key) {
  if (onKeyPress) onKeyPress(key);
  switch (key.code) {
    case KeyCode::Left:
    case KeyCode::Up:
      Step(-1);
      return true;
    case KeyCode::Right:
    case KeyCode::Down:
      Step(1);
      return true;
    case KeyCode::Enter:
      return onKeyPress != nullptr || Control::HandleKey(key);
    default:
      return Control::HandleKey(key);
  }
}

void OptionButton::Step(int direction) {
  std::vector<OptionButton*> group = Group();
  std::erase_if(group, [](const OptionButton* option) { return !option->Reachable(); });
  const auto here = std::find(group.begin(), group.end(), this);
  if (here == group.end()) return;
  const auto size = static_cast<std::ptrdiff_t>(group.size());
  const auto next = ((here - group.begin()) + direction + size) % size;
  OptionButton* option = group[static_cast<std::size_t>(next)];
  option->TakeFocus();
  option->SetOn();
}

void OptionButton::Restart() {
  Control::Restart();
  on_ = StartState().ticked;
}

}  // namespace quillmark
