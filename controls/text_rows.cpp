#include "controls/text_rows.h"

namespace quillmark {

TextRows::TextRows(Form& form, ControlKind kind, std::string_view name, const Design& design,
                   int index)
    : RowsControl(form, kind, name, index, design) {
  TextRows::Restart();
}

std::string TextRows::Text() const {
  return Row() < 0 ? std::string() : rows_.at(static_cast<std::size_t>(Row()));
}

void TextRows::AddRow(std::string_view text) {
  rows_.push_back(ShownText(text));
  NoteNewRows();
}

void TextRows::Clear() {
  rows_.clear();
  NoteOtherRows();
}

bool TextRows::HandleKey(Key key) {
  switch (key.code) {
    case KeyCode::Left:
      return RowsControl::HandleKey({KeyCode::Up});
    case KeyCode::Right:
      return RowsControl::HandleKey({KeyCode::Down});
    default:
      return RowsControl::HandleKey(key);
  }
}

void TextRows::Restart() {
  RowsControl::Restart();
  rows_ = StartState().rows;
  NoteOtherRows();
}

std::string_view TextRows::TextToFind(int row) const {
  return rows_.at(static_cast<std::size_t>(row));
}

void TextRows::HandleSelection() {
  if (onSelect) onSelect();
}

void ListBox::SetPlaceholder(std::string_view text) {
  placeholder_ = ShownText(text);
  MarkChanged();
}

void ListBox::Restart() {
  TextRows::Restart();
  placeholder_.clear();
}

bool ListBox::MousePress(MouseButton button) {
  return Act([&] {
    TakeFocus();
    if (onMousePress) onMousePress(button);
  });
}

bool ListBox::MouseRelease(MouseButton button) {
  return ActBesidePopup([&] {
    if (onMouseRelease) onMouseRelease(button);
  });
}

bool ListBox::HandleKey(Key key) {
  if (onKeyPress) onKeyPress(key);
  return TextRows::HandleKey(key);
}

}  // namespace quillmark
