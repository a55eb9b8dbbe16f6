#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controls/control.h"
#include "controls/key.h"

namespace quillmark {

/// Rows below each other of which one or none is selected. What a row holds is the matter of the
/// kind, and so is what a selection raises.
class RowsControl : public Control {
 public:
  virtual int Count() const = 0;
  /// The selected row from 0, -1 for none.
  int Row() const { return row_; }
  /// Grows with every change of the rows, so that a view knows when they are new.
  std::uint64_t RowsVersion() const { return rowsVersion_; }

  /// Selects `row`, or none with -1; throws the invalid value fault if there is no such row.
  void Select(std::int64_t row);

  /// A person chooses a row, with a key or out of a list.
  bool Choose(int row);

  /// Moves the selection by Up, Down, Home and End, and by letters to the next row that begins with
  /// them: with all that were typed as one word, or else with the one that was typed again and
  /// again.
  bool HandleKey(Key key) override;

 protected:
  using Control::Control;

  /// The text by which a letter finds a row that is there.
  virtual std::string_view TextToFind(int row) const = 0;
  /// The selected row is another one.
  virtual void HandleSelection() {}
  /// A person selects `row`, which is there.
  virtual void SelectByPerson(int row);

  /// To be called when rows were added.
  void NoteNewRows();
  /// To be called when all rows were thrown away or set anew: none is selected any more.
  void NoteOtherRows();

 private:
  bool StepTo(int row);
  int RowForLetter(Key key);
  int NextRowWith(std::string_view beginning, int first) const;

  int row_ = -1;
  std::string letters_;  ///< of the word that is being typed, as capitals
  std::uint64_t rowsVersion_ = 0;
};

}  // namespace quillmark
