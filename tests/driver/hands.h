#pragma once

#include <string>
#include <string_view>

#include "driver/driver_text.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace quillmark {

/// What a person does with the controls and sees of them, said once for every way to do it. The
/// acts return false, without effect, if the control can't be reached, and throw `CommandError` for
/// a control that no person would do such a thing with.
class Hands {
 public:
  virtual ~Hands() = default;

  virtual bool Reach(const Control& control) = 0;
  virtual bool Click(Control& control) = 0;
  virtual bool PressMouse(Control& control, MouseButton button) = 0;
  virtual bool PressKey(Control& control, Key key) = 0;
  /// Puts the caret of a box behind its text, or marks all of it.
  virtual void PlaceCaret(TextBox& box, bool markAll) = 0;
  virtual bool Paste(TextBox& box, std::string_view text) = 0;
  virtual bool Select(Control& control, int row) = 0;
  virtual bool ChooseEntry(MenuEntry& entry) = 0;
  virtual bool Close(Form& form) = 0;
  virtual bool Resize(Form& form, int width, int height) = 0;

  /// Lets everything happen that does not wait for a person.
  virtual void Settle() {}

  /// What the control, or the form without its controls, now says.
  virtual Json Describe(const Control& control) = 0;
  virtual Json DescribeForm(const Form& form) = 0;

  /// `PlaceCaret`, then one key for each character; an empty text that replaces is one `Delete`.
  bool Type(TextBox& box, std::string_view text, bool replaces);
};

/// `control` as what it is, for the acts of one kind; throws `CommandError` for any other.
template <class Kind>
Kind& As(Control& control) {
  if (auto* wanted = dynamic_cast<Kind*>(&control)) return *wanted;
  throw CommandError("not for a " + std::string(KindName(control.Kind())));
}

/// Whether controls of that kind have a caption.
bool HasCaption(ControlKind kind);

}  // namespace quillmark
