#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/key.h"
#include "controls/rows_control.h"

namespace quillmark {

class Button;

/// Rows of one text each. A change of the selected row raises `onSelect`, whoever makes it; a write
/// of the row that is selected already raises nothing, and so does emptying.
class TextRows : public RowsControl {
 public:
  std::function<void()> onSelect;

  const std::vector<std::string>& Rows() const { return rows_; }
  int Count() const override { return static_cast<int>(rows_.size()); }
  /// Text of the selected row; empty if none is selected.
  std::string Text() const;

  /// Appends a row that shows `text` up to its first zero character.
  void AddRow(std::string_view text);
  void Clear();

  bool HandleKey(Key key) override;
  void Restart() override;

 protected:
  TextRows(Form& form, ControlKind kind, std::string_view name, const Design& design, int index);

  std::string_view TextToFind(int row) const override;
  void HandleSelection() override;

 private:
  std::vector<std::string> rows_;
};

class ComboBox : public TextRows {
 public:
  ComboBox(Form& form, std::string_view name, const Design& design, int index = -1)
      : TextRows(form, ControlKind::ComboBox, name, design, index) {}

  /// The notification of a combo whose text can be typed into. Drop-down lists never raise it.
  std::function<void()> onChange;
};

class ListBox : public TextRows {
 public:
  ListBox(Form& form, std::string_view name, const Design& design, int index = -1)
      : TextRows(form, ControlKind::ListBox, name, design, index) {}

  std::function<void(Key)> onKeyPress;
  std::function<void(MouseButton)> onMousePress;
  std::function<void(MouseButton)> onMouseRelease;
  /// What a double click on a row presses; null for nothing.
  Button* doubleClickButton = nullptr;

  /// Words that tell a person how rows come into the list, shown while it has none.
  const std::string& Placeholder() const { return placeholder_; }
  void SetPlaceholder(std::string_view text);

  /// A mouse button goes down, or comes up, on it. Choosing a row is an act of its own.
  bool MousePress(MouseButton button);
  bool MouseRelease(MouseButton button);
  bool HandleKey(Key key) override;
  void Restart() override;

 private:
  std::string placeholder_;
};

}  // namespace quillmark
