#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/control.h"
#include "controls/key.h"

namespace quillmark {

/// A box for one line of text. A write that changes its text, by code or by a person, raises
/// `onChange`; the release of any key in it raises `onKeyRelease`.
class TextBox : public Control {
 public:
  TextBox(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::TextBox, name, index, design) {
    TextBox::Restart();
  }

  std::function<void()> onChange;
  std::function<void(Key)> onKeyRelease;
  /// May replace the character of a key before it changes the text.
  std::function<char(char)> onKeyPress;
  /// Enter in it, which then presses no other control.
  std::function<void()> onEnter;

  const std::string& Text() const { return text_; }
  /// Shows `text` up to its first zero character, with the caret at its end.
  void SetText(std::string_view text);
  int MaxLength() const { return StartState().maxLength; }

  int SelectionStart() const { return selectionStart_; }
  int SelectionLength() const { return selectionLength_; }
  /// Selects inside the text; what lies outside of it is cut.
  void SelectText(int start, int length);
  void SelectAll() { SelectText(0, static_cast<int>(text_.size())); }

  /// A person changed text and caret, by keys or with the mouse.
  bool Edit(std::string_view text, int selectionStart, int selectionLength);
  /// The character that the key types in this box.
  char Typed(char character) const;

  bool HandleKey(Key key) override;
  void HandleKeyRelease(Key key) override;
  void HandleFocusStep() override { SelectAll(); }
  /// The caret stays, but nothing is marked any more.
  void HandleFocusLoss() override { SelectText(selectionStart_ + selectionLength_, 0); }
  void Restart() override;

 private:
  std::string text_;
  int selectionStart_ = 0;
  int selectionLength_ = 0;
};

}  // namespace quillmark
