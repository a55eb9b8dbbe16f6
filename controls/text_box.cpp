#include "controls/text_box.h"

#include <algorithm>
#include <utility>

namespace quillmark {

void TextBox::SetText(std::string_view text) {
  std::string shown = ShownText(text);
  if (shown == text_) return;
  text_ = std::move(shown);
  SelectText(static_cast<int>(text_.size()), 0);
  MarkChanged();
  if (onChange) onChange();
}

void TextBox::SelectText(int start, int length) {
  const int size = static_cast<int>(text_.size());
  const int oldStart = selectionStart_;
  const int oldLength = selectionLength_;
  selectionStart_ = std::clamp(start, 0, size);
  selectionLength_ = std::clamp(length, 0, size - selectionStart_);
  if (oldStart != selectionStart_ || oldLength != selectionLength_) MarkChanged();
}

bool TextBox::Edit(std::string_view text, int selectionStart, int selectionLength) {
  return Act([&] {
    TakeFocus();
    std::string shown = ShownText(text);
    const bool changed = shown != text_;
    text_ = std::move(shown);
    SelectText(selectionStart, selectionLength);
    MarkChanged();
    if (changed && onChange) onChange();
  });
}

char TextBox::Typed(char character) const { return onKeyPress ? onKeyPress(character) : character; }

bool TextBox::HandleKey(Key key) {
  if (key.code != KeyCode::Enter || !onEnter) return Control::HandleKey(key);
  onEnter();
  return true;
}

void TextBox::HandleKeyRelease(Key key) {
  if (onKeyRelease) onKeyRelease(key);
}

void TextBox::Restart() {
  Control::Restart();
  text_ = StartState().text;
  selectionStart_ = 0;
  selectionLength_ = 0;
}

}  // namespace quillmark
