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
      const int found = NextRowWith(key.character);
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

/// The next row behind the selected one, around the end, that begins with that letter in either
/// case; the selected one itself if there is no other.
int RowsControl::NextRowWith(char initial) const {
  const std::string wanted = AnsiInCapitals(std::string_view(&initial, 1));
  for (int step = 1; step <= Count(); ++step) {
    const int candidate = (row_ + step) % Count();
    if (AnsiInCapitals(TextToFind(candidate).substr(0, 1)) == wanted) return candidate;
  }
  return row_;
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
