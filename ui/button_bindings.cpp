#include "ui/button_bindings.h"

#include <QVariant>

#include "ui/icons.h"
#include "ui/key_events.h"

namespace quillmark {

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
}

bool CheckBoxBinding::MousePressed(const QMouseEvent& event) {
  if (const auto button = ButtonOf(event.button())) check_.MousePress(*button);
  return false;
}

OptionButtonBinding::OptionButtonBinding(OptionButton& control, QRadioButton& widget)
    : Binding(control, widget), option_(control), radio_(widget) {
  // The control says which one of the group is on; the widget must let each be put off.
  radio_.setAutoExclusive(false);
  connect(&radio_, &QRadioButton::clicked, this, [this] {
    if (!option_.Press()) Restore();
  });
}

}  // namespace quillmark
