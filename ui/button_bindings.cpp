#include "ui/button_bindings.h"

#include <QStyle>
#include <QStyleOptionButton>
#include <QVariant>

#include "ui/icons.h"
#include "ui/key_events.h"

namespace quillmark {
namespace {

/// Whether the toolkit takes a press at this place for one on the box. The widget may be larger
/// than its tick and its caption.
bool IsOnTheBox(const QCheckBox& box, const QPoint& place) {
  QStyleOptionButton option;
  option.initFrom(&box);
  option.text = box.text();
  return box.style()->subElementRect(QStyle::SE_CheckBoxClickRect, &option, &box).contains(place);
}

}  // namespace

ButtonBinding::ButtonBinding(Button& control, QAbstractButton& widget)
    : Binding(control, widget), button_(widget) {
  connect(&button_, &QAbstractButton::clicked, this, [&control] { control.Press(); });
  ShowIcon();
}

void ButtonBinding::ShowIcon() {
  const QString name = button_.property("iconName").toString();
  if (!name.isEmpty()) button_.setIcon(LineIcon(name, button_.palette()));
}

bool ButtonBinding::OtherEvent(QEvent& event) {
  if (event.type() == QEvent::PaletteChange) ShowIcon();
  return false;
}

CheckBoxBinding::CheckBoxBinding(CheckBox& control, QCheckBox& widget)
    : Binding(control, widget), check_(control), box_(widget) {
  connect(&box_, &QCheckBox::clicked, this, [this] {
    if (!check_.Flip()) Restore();
  });
  connect(&box_, &QCheckBox::toggled, this, [this] { CheckSoon([this] { TakeToggle(); }); });
}

void CheckBoxBinding::TakeToggle() {
  if (box_.isChecked() == check_.Ticked()) return;
  if (!check_.MousePress(MouseButton::Left) || !check_.Flip()) Restore();
}

bool CheckBoxBinding::MousePressed(const QMouseEvent& event) {
  const auto button = ButtonOf(event.button());
  if (!button || !IsOnTheBox(box_, event.position().toPoint())) return false;
  deactivated_ = false;
  check_.MousePress(*button);
  if (!deactivated_ || *button != MouseButton::Left) return false;
  // A message has had the release, so that the box would stay pressed.
  box_.click();
  return true;
}

bool CheckBoxBinding::OtherEvent(QEvent& event) {
  deactivated_ = deactivated_ || event.type() == QEvent::WindowDeactivate;
  return false;
}

OptionButtonBinding::OptionButtonBinding(OptionButton& control, QRadioButton& widget)
    : Binding(control, widget), option_(control), radio_(widget) {
  connect(&radio_, &QRadioButton::clicked, this, [this] {
    if (!option_.Press()) Restore();
  });
  connect(&radio_, &QRadioButton::toggled, this, [this] { CheckSoon([this] { TakeToggle(); }); });
}

void OptionButtonBinding::TakeToggle() {
  // The one that was on has been put off by it, too, which is no act of its own.
  if (radio_.isChecked() && !option_.On() && !option_.Press()) Restore();
}

}  // namespace quillmark
