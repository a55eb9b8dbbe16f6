#include "controls/controls.h"

#include <algorithm>

#include "controls/desktop.h"
#include "platform/ansi.h"

namespace quillmark {

namespace {

/// The next row behind `row`, around the end, whose text begins with that letter in either case;
/// `row` itself if there is no other.
template <class TextOfRow>
int RowByInitial(char initial, int row, int count, const TextOfRow& textOf) {
  const std::string wanted = AnsiInCapitals(std::string_view(&initial, 1));
  for (int step = 1; step <= count; ++step) {
    const int candidate = (row + step) % count;
    if (AnsiInCapitals(textOf(candidate).substr(0, 1)) == wanted) return candidate;
  }
  return row;
}

}  // namespace

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

void OptionButton::SetOn() {
  for (Control* control : Owner().Controls()) {
    if (control->Kind() != ControlKind::OptionButton || control->Parent() != Parent()) continue;
    auto* option = static_cast<OptionButton*>(control);
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
  std::vector<OptionButton*> group;
  for (Control* control : Owner().Controls()) {
    if (control->Kind() == ControlKind::OptionButton && control->Parent() == Parent() &&
        control->Reachable()) {
      group.push_back(static_cast<OptionButton*>(control));
    }
  }
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

void TextBox::ReplaceSelection(std::string_view with) {
  std::string text = text_;
  const auto start = static_cast<std::size_t>(selectionStart_);
  text.replace(start, static_cast<std::size_t>(selectionLength_), with);
  if (MaxLength() > 0 && text.size() > static_cast<std::size_t>(MaxLength())) return;
  Edit(text, static_cast<int>(start + with.size()), 0);
}

bool TextBox::EditByKey(Key key) {
  if (!Reachable()) return false;
  const int size = static_cast<int>(text_.size());
  const int end = selectionStart_ + selectionLength_;  // where the caret stands
  switch (key.code) {
    case KeyCode::Character: {
      const char typed = Typed(key.character);
      ReplaceSelection(std::string_view(&typed, 1));
      return true;
    }
    case KeyCode::Backspace:
      if (selectionLength_ == 0 && selectionStart_ > 0) SelectText(selectionStart_ - 1, 1);
      if (selectionLength_ > 0) ReplaceSelection({});
      return true;
    case KeyCode::Delete:
      if (selectionLength_ == 0 && selectionStart_ < size) SelectText(selectionStart_, 1);
      if (selectionLength_ > 0) ReplaceSelection({});
      return true;
    case KeyCode::Left:
      SelectText(end - 1, 0);
      return true;
    case KeyCode::Right:
      SelectText(end + 1, 0);
      return true;
    default:
      return true;
  }
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

RowsControl::RowsControl(Form& form, ControlKind kind, std::string_view name, const Design& design,
                         int index)
    : Control(form, kind, name, index, design) {
  RowsControl::Restart();
}

std::string RowsControl::Text() const {
  return row_ < 0 ? std::string() : rows_.at(static_cast<std::size_t>(row_));
}

void RowsControl::AddRow(std::string_view text) {
  rows_.push_back(ShownText(text));
  ++rowsVersion_;
  MarkChanged();
}

void RowsControl::Clear() {
  rows_.clear();
  row_ = -1;
  ++rowsVersion_;
  MarkChanged();
}

void RowsControl::Select(std::int64_t row) {
  if (row < -1 || row >= Count()) {
    throw Fault(FaultKind::InvalidValue, FullName() + " has no row " + std::to_string(row) +
                                             ", only " + std::to_string(Count()) + " rows");
  }
  if (row == row_) return;
  row_ = static_cast<int>(row);
  MarkChanged();
  if (onSelect) onSelect();
}

bool RowsControl::Choose(int row) {
  if (row < 0 || row >= Count()) return false;
  return Act([&] {
    TakeFocus();
    Select(row);
  });
}

bool RowsControl::StepTo(int row) {
  if (Count() > 0) Select(std::clamp(row, 0, Count() - 1));
  return true;
}

bool RowsControl::HandleKey(Key key) {
  switch (key.code) {
    case KeyCode::Up:
    case KeyCode::Left:
      return StepTo(row_ - 1);
    case KeyCode::Down:
    case KeyCode::Right:
      return StepTo(row_ + 1);
    case KeyCode::Home:
      return StepTo(0);
    case KeyCode::End:
      return StepTo(Count() - 1);
    case KeyCode::Character: {
      const auto textOf = [this](int row) { return rows_[static_cast<std::size_t>(row)]; };
      const int found = RowByInitial(key.character, row_, Count(), textOf);
      return found == row_ || StepTo(found);
    }
    default:
      return Control::HandleKey(key);
  }
}

void RowsControl::Restart() {
  Control::Restart();
  rows_ = StartState().rows;
  row_ = -1;
  ++rowsVersion_;
}

bool ListBox::MousePress(MouseButton button) {
  return Act([&] {
    TakeFocus();
    if (onMousePress) onMousePress(button);
  });
}

bool ListBox::MouseRelease(MouseButton button) {
  return ActOfRelease([&] {
    if (onMouseRelease) onMouseRelease(button);
  });
}

bool ListBox::HandleKey(Key key) {
  if (onKeyPress) onKeyPress(key);
  return RowsControl::HandleKey(key);
}

ListView::ListView(Form& form, std::string_view name, const Design& design,
                   std::vector<Column> columns, ImageList images, int index)
    : Control(form, ControlKind::ListView, name, index, design),
      design_(std::move(columns)),
      images_(std::move(images)),
      columns_(design_) {}

void ListView::SetColumnCaption(int column, std::string_view caption) {
  columns_[CheckedPosition(column - 1, columns_.size())].caption = ShownText(caption);
  MarkChanged();
}

void ListView::SetColumnWidth(int column, int width) {
  columns_[CheckedPosition(column - 1, columns_.size())].width = width;
  MarkChanged();
}

int ListView::SelectedRow() const {
  if (row_ < 0) throw Fault(FaultKind::NoSelection, "no row of " + FullName() + " is selected");
  return row_;
}

const std::string& ListView::Cell(int row, int column) const {
  const ListViewRow& cells = rows_[CheckedPosition(row, rows_.size())];
  return cells.cells[CheckedPosition(column - 1, cells.cells.size())];
}

void ListView::AddRow(std::vector<std::string> cells, int icon) {
  for (std::string& cell : cells) cell = ShownText(cell);
  cells.resize(columns_.size());
  rows_.push_back({std::move(cells), icon});
  ++rowsVersion_;
  MarkChanged();
}

void ListView::SetCell(int row, int column, std::string_view text) {
  ListViewRow& cells = rows_[CheckedPosition(row, rows_.size())];
  cells.cells[CheckedPosition(column - 1, cells.cells.size())] = ShownText(text);
  MarkChanged();
}

void ListView::SetIcon(int row, int icon) {
  rows_[CheckedPosition(row, rows_.size())].icon = icon;
  MarkChanged();
}

void ListView::Clear() {
  rows_.clear();
  row_ = -1;
  ++rowsVersion_;
  MarkChanged();
}

void ListView::Select(int row) {
  if (row < -1 || row >= Count()) {
    throw Fault(FaultKind::InvalidValue, FullName() + " has no row " + std::to_string(row));
  }
  row_ = row;
  MarkChanged();
}

void ListView::SelectByPerson(int row) {
  TakeFocus();
  Select(row);
  if (onItemClick) onItemClick();
}

bool ListView::ChooseByMouse(int row) {
  if (row < 0 || row >= Count()) return false;
  return Act([&] {
    SelectByPerson(row);
    if (onClick) onClick();
  });
}

bool ListView::ChooseByKey(int row) {
  if (row < 0 || row >= Count()) return false;
  return Act([&] { SelectByPerson(row); });
}

bool ListView::ClickBeside() {
  return Act([this] {
    TakeFocus();
    if (onClick) onClick();
  });
}

bool ListView::HandleKey(Key key) {
  const auto step = [this](int row) {
    const int wanted = std::clamp(row, 0, std::max(Count() - 1, 0));
    if (Count() > 0 && wanted != row_) SelectByPerson(wanted);
    return true;
  };
  switch (key.code) {
    case KeyCode::Up:
      return step(row_ - 1);
    case KeyCode::Down:
      return step(row_ + 1);
    case KeyCode::Left:
    case KeyCode::Right:
      return row_ < 0;  // else the view may scroll by it
    case KeyCode::Home:
      return step(0);
    case KeyCode::End:
      return step(Count() - 1);
    case KeyCode::Character: {
      const auto textOf = [this](int row) { return Cell(row, 1); };
      const int found = RowByInitial(key.character, row_, Count(), textOf);
      return found == row_ || step(found);
    }
    default:
      return Control::HandleKey(key);
  }
}

void ListView::Restart() {
  Control::Restart();
  columns_ = design_;
  rows_.clear();
  row_ = -1;
  ++rowsVersion_;
}

bool MenuEntry::Choose() {
  return Act([this] {
    TheDesktop().ClosePopup();
    if (onChoose) onChoose();
  });
}

bool PopupMenu::Reachable() const { return TheDesktop().Popup() == this; }

bool MenuEntry::Reachable() const {
  const PopupMenu* popup = TheDesktop().Popup();
  if (popup == nullptr || !Enabled() || !Visible()) return false;
  return std::find(popup->Entries().begin(), popup->Entries().end(), this) !=
         popup->Entries().end();
}

}  // namespace quillmark
