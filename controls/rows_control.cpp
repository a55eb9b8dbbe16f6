#include "controls/rows_control.h"

#include <algorithm>
#include <string>

#include "platform/ansi.h"
#include "platform/fault.h"

namespace quillmark {

void RowsControl::Select(std::int64_t row) {
  if (row < -1 || row >= Count()) {
    throw Fault(FaultKind::InvalidValue,
                FullName() + " has no row " + std::to_string(row) + ", only " +
                    std::to_string(Count()) + " rows",
                BesideBound(row, -1, Count() - 1));
  }
  if (row == row_) return;
  row_ = static_cast<int>(row);
  MarkChanged();
  HandleSelection();
}

void RowsControl::SelectByPerson(int row) {
  TakeFocus();
  Select(row);
}

bool RowsControl::Choose(int row) {
  if (row < 0 || row >= Count()) return false;
  return Act([&] { SelectByPerson(row); });
}

bool RowsControl::HandleKey(Key key) {
  switch (key.code) {
    case KeyCode::Up:
      return StepTo(row_ - 1);
    case KeyCode::Down:
      return StepTo(row_ + 1);
    case KeyCode::Home:
      return StepTo(0);
    case KeyCode::End:
      return StepTo(Count() - 1);
    case KeyCode::Character: {
      const int found = RowForLetter(key);
      return found == row_ || StepTo(found);
    }
    default:
      return Control::HandleKey(key);
  }
}

bool RowsControl::StepTo(int row) {
  if (Count() == 0) return true;
  const int wanted = std::clamp(row, 0, Count() - 1);
  if (wanted != row_) SelectByPerson(wanted);
  return true;
}

/// The row that a letter leads to; the selected one if there is no other.
int RowsControl::RowForLetter(Key key) {
  if (!key.goesOn) letters_.clear();
  const std::string letter = AnsiInCapitals(std::string_view(&key.character, 1));
  letters_ += letter;
  // A word that goes on may mean the row that its beginning has found.
  if (letters_.size() > 1) {
    const int found = NextRowWith(letters_, std::max(row_, 0));
    const bool sameLetter = letters_.find_first_not_of(letter) == std::string::npos;
    if (found >= 0 || !sameLetter) return found < 0 ? row_ : found;
  }
  const int found = NextRowWith(letter, row_ + 1);
  return found < 0 ? row_ : found;
}

/// The first row from `first` on, around the end, that begins with these capitals in either case;
/// -1 if there is none.
int RowsControl::NextRowWith(std::string_view beginning, int first) const {
  for (int step = 0; step < Count(); ++step) {
    const int candidate = (first + step) % Count();
    if (AnsiInCapitals(TextToFind(candidate).substr(0, beginning.size())) == beginning) {
      return candidate;
    }
  }
  return -1;
}

void RowsControl::NoteNewRows() {
  ++rowsVersion_;
  MarkChanged();
}

void RowsControl::NoteOtherRows() {
  row_ = -1;
  NoteNewRows();
}

}  // namespace quillmark
