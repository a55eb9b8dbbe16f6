#include <QGroupBox>
#include <QLabel>

#include "controls/passive_controls.h"
#include "ui/access_keys.h"
#include "ui/binding.h"
#include "ui/button_bindings.h"
#include "ui/row_bindings.h"
#include "ui/text_binding.h"

namespace quillmark {
namespace {

class LabelBinding : public Binding {
 public:
  LabelBinding(Label& control, QLabel& widget) : Binding(control, widget), label_(widget) {}

 protected:
  void ShowCaption(const QString& caption) override { label_.setText(caption); }

 private:
  QLabel& label_;
};

class FrameBinding : public Binding {
 public:
  FrameBinding(Frame& control, QWidget& widget)
      : Binding(control, widget), group_(qobject_cast<QGroupBox*>(&widget)) {}

 protected:
  void ShowCaption(const QString& caption) override {
    if (group_ != nullptr) group_->setTitle(WithoutAccessKey(caption));
  }

 private:
  QGroupBox* group_;  ///< null for a frame that is drawn without room for a caption
};

class PictureBinding : public Binding {
 public:
  PictureBinding(Picture& control, QLabel& widget) : Binding(control, widget) {}
};

template <class BindingType, class ControlType, class WidgetType>
std::unique_ptr<Binding> Tie(Control& control, QWidget& widget) {
  auto* fitting = qobject_cast<WidgetType*>(&widget);
  if (fitting == nullptr) return nullptr;
  return std::make_unique<BindingType>(static_cast<ControlType&>(control), *fitting);
}

}  // namespace

std::unique_ptr<Binding> MakeBinding(Control& control, QWidget& widget) {
  switch (control.Kind()) {
    case ControlKind::Label:
      return Tie<LabelBinding, Label, QLabel>(control, widget);
    case ControlKind::Button:
      return Tie<ButtonBinding, Button, QAbstractButton>(control, widget);
    case ControlKind::OptionButton:
      return Tie<OptionButtonBinding, OptionButton, QRadioButton>(control, widget);
    case ControlKind::CheckBox:
      return Tie<CheckBoxBinding, CheckBox, QCheckBox>(control, widget);
    case ControlKind::TextBox:
      return Tie<TextBinding, TextBox, QLineEdit>(control, widget);
    case ControlKind::ComboBox:
      return Tie<ComboBinding, ComboBox, QComboBox>(control, widget);
    case ControlKind::ListBox:
      return Tie<ListBoxBinding, ListBox, QListView>(control, widget);
    case ControlKind::ListView:
      return Tie<ListViewBinding, ListView, QTreeView>(control, widget);
    case ControlKind::Frame:
      return Tie<FrameBinding, Frame, QWidget>(control, widget);
    case ControlKind::Picture:
      return Tie<PictureBinding, Picture, QLabel>(control, widget);
    case ControlKind::PopupMenu:
    case ControlKind::MenuEntry:
      return nullptr;
  }
  return nullptr;
}

}  // namespace quillmark
