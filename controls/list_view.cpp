#include "controls/list_view.h"

#include <utility>

#include "platform/bounded_array.h"
#include "platform/fault.h"

namespace quillmark {

ListView::ListView(Form& form, std::string_view name, const Design& design,
                   std::vector<Column> columns, ImageList images, int index)
    : RowsControl(form, ControlKind::ListView, name, index, design),
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
  if (Row() < 0) throw Fault(FaultKind::NoSelection, "no row of " + FullName() + " is selected");
  return Row();
}

const std::string& ListView::Cell(int row, int column) const {
  const ListViewRow& cells = rows_[CheckedPosition(row, rows_.size())];
  return cells.cells[CheckedPosition(column - 1, cells.cells.size())];
}

void ListView::AddRow(std::vector<std::string> cells, int icon) {
  for (std::string& cell : cells) cell = ShownText(cell);
  cells.resize(columns_.size());
  rows_.push_back({std::move(cells), icon});
  NoteNewRows();
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
  NoteOtherRows();
}

void ListView::SelectByPerson(int row) {
  RowsControl::SelectByPerson(row);
  if (onItemClick) onItemClick();
}

bool ListView::ClickRow(int row) {
  if (row < 0 || row >= Count()) return false;
  return Act([&] {
    SelectByPerson(row);
    if (onClick) onClick();
  });
}

bool ListView::ClickBeside() {
  return Act([this] {
    TakeFocus();
    if (onClick) onClick();
  });
}

bool ListView::HandleKey(Key key) {
  // Where a row is selected the view may scroll by them.
  if (key.code == KeyCode::Left || key.code == KeyCode::Right) return Row() < 0;
  return RowsControl::HandleKey(key);
}

void ListView::Restart() {
  RowsControl::Restart();
  columns_ = design_;
  Clear();
}

}  // namespace quillmark
