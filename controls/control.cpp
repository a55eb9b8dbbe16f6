#include "controls/control.h"

#include "controls/desktop.h"
#include "controls/form.h"

namespace quillmark {

std::string Spoken(std::string caption) {
  constexpr std::string_view kBlanks = " \xA0";
  if (caption == "...") return {};
  std::erase(caption, '&');
  caption.erase(caption.find_last_not_of(std::string(kBlanks) + ':') + 1);
  caption.erase(0, caption.find_first_not_of(kBlanks));
  return caption;
}

std::string_view KindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return "label";
    case ControlKind::Button:
      return "button";
    case ControlKind::OptionButton:
      return "option button";
    case ControlKind::CheckBox:
      return "check box";
    case ControlKind::TextBox:
      return "text box";
    case ControlKind::ComboBox:
      return "combo";
    case ControlKind::ListBox:
      return "list box";
    case ControlKind::ListView:
      return "list view";
    case ControlKind::Frame:
      return "frame";
    case ControlKind::Picture:
      return "picture";
    case ControlKind::PopupMenu:
      return "popup menu";
    case ControlKind::MenuEntry:
      return "menu entry";
  }
  return "control";
}

std::string ShownText(std::string_view text) {
  return std::string(text.substr(0, text.find('\0')));
}

Control::Control(Form& form, ControlKind kind, std::string_view name, int index,
                 const Design& design)
    : form_(form), kind_(kind), name_(name), index_(index), design_(design) {
  form_.controls_.push_back(this);
  Control::Restart();
}

std::string Control::FullName() const {
  return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

void Control::SetCaption(std::string_view caption) {
  caption_ = ShownText(caption);
  MarkChanged();
}

void Control::SetToolTip(std::string_view toolTip) {
  toolTip_ = ShownText(toolTip);
  MarkChanged();
}

std::string Control::SpokenName() const {
  if (std::string own = Spoken(caption_); !own.empty()) return own;
  const Control* const namer = NamedBy();
  if (std::string beside = namer == nullptr ? "" : namer->SpokenName(); !beside.empty()) {
    return beside;
  }
  return Spoken(toolTip_);
}

void Control::SetHint(std::string_view hint) {
  hint_ = ShownText(hint);
  MarkChanged();
}

void Control::SetEnabled(bool enabled) {
  enabled_ = enabled;
  MarkChanged();
}

void Control::SetVisible(bool visible) {
  visible_ = visible;
  MarkChanged();
}

bool Control::Reachable() const {
  for (const Control* control = this; control != nullptr; control = control->Parent()) {
    if (!control->visible_ || !control->enabled_) return false;
  }
  return form_.InFront();
}

bool Control::HasFocus() const {
  const auto& shown = TheDesktop().ShownForms();
  return !shown.empty() && shown.back() == &form_ && form_.Focus() == this;
}

void Control::TakeFocus() {
  if (!TakesFocus()) return;
  TheDesktop().Raise(form_);
  form_.SetFocus(this);
}

void Control::Restart() {
  caption_ = design_.caption;
  toolTip_.clear();
  hint_.clear();
  enabled_ = design_.enabled;
  visible_ = design_.visible;
  MarkChanged();
}

bool Control::HandleKey(Key key) {
  const auto press = [](Control* button) {
    return button != nullptr && button->PressFromElsewhere();
  };
  const auto stepByArrow = [this](int direction) {
    if (ArrowsStepFocus()) form_.StepFocus(direction);
    return ArrowsStepFocus();
  };
  switch (key.code) {
    case KeyCode::Tab:
      form_.StepFocus(1);
      return true;
    case KeyCode::Left:
    case KeyCode::Up:
      return stepByArrow(-1);
    case KeyCode::Right:
    case KeyCode::Down:
      return stepByArrow(1);
    case KeyCode::Enter:
      return press(form_.defaultButton);
    case KeyCode::Escape:
      return press(form_.cancelButton) || Escape();
    default:
      return false;
  }
}

bool Control::Escape() {
  if (form_.StartState().escapeCloses) {
    form_.Unload();
    return true;
  }
  Control* const goal = form_.escapeGoal;
  if (goal == nullptr || !goal->Reachable()) return false;
  goal->TakeFocus();
  return true;
}

bool Control::KeyDown(Key key, bool& used) {
  used = true;  // also if a fault comes out of it
  return Act([&] {
    TakeFocus();
    used = HandleKey(key);
  });
}

bool Control::KeyUp(Key key) {
  return ActBesidePopup([&] { HandleKeyRelease(key); });
}

bool Control::Act(const std::function<void()>& act) {
  if (!Reachable()) return false;
  TheDesktop().ClosePopup();
  return ActBesidePopup(act);
}

bool Control::ActBesidePopup(const std::function<void()>& act) {
  if (!Reachable()) return false;
  TheDesktop().RunAct(OperationName(), act);
  return true;
}

void Control::MarkChanged() {
  if (marked_) return;
  marked_ = true;
  TheDesktop().changed_.push_back(this);
}

std::string Control::OperationName() const {
  const std::string name = SpokenName();
  return name.empty() ? FullName() : name;
}

}  // namespace quillmark
