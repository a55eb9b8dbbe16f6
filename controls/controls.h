#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "platform/bounded_array.h"

namespace quillmark {

class Label : public Control {
 public:
  Label(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::Label, name, index, design) {}
  bool TakesFocus() const override { return false; }
};

/// A picture that only decorates.
class Picture : public Control {
 public:
  Picture(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::Picture, name, index, design) {}
  bool TakesFocus() const override { return false; }
};

/// Groups other controls: none of them can be reached while it is disabled or hidden.
class Frame : public Control {
 public:
  Frame(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::Frame, name, index, design) {}
  bool TakesFocus() const override { return false; }
};

class Button : public Control {
 public:
  Button(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::Button, name, index, design) {}

  std::function<void()> onPress;

  /// A person presses it. False if it can't be reached.
  bool Press();
  /// The same by Enter or Escape in another control, which keeps the focus.
  bool PressFromElsewhere();
  bool HandleKey(Key key) override;
};

/// Its handler runs at the press of any mouse button, before the tick changes, and reads the old
/// state. A write from code raises nothing; neither does the space bar, which changes the tick.
class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::CheckBox, name, index, design) {
    CheckBox::Restart();
  }

  std::function<void()> onMousePress;

  bool Ticked() const { return ticked_; }
  void SetTicked(bool ticked);

  /// A mouse button goes down on it.
  bool MousePress(MouseButton button);
  /// The tick changes, by the left button's release or by the space bar.
  bool Flip();

  void Restart() override;

 private:
  bool ticked_ = false;
};

/// One of a group of which exactly one is on: those that stand in the same frame of a form.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::OptionButton, name, index, design) {
    OptionButton::Restart();
  }

  std::function<void(Key)> onKeyPress;

  bool On() const { return on_; }
  /// Puts it on and the others of its group off.
  void SetOn();

  bool Press();
  bool HandleKey(Key key) override;
  void Restart() override;

 private:
  void Step(int direction);

  bool on_ = false;
};

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
  /// The editing that a key does where no toolkit does it: its character, or the effect of
  /// Backspace, Delete, Left and Right.
  bool EditByKey(Key key);
  /// The character that the key types in this box.
  char Typed(char character) const;

  void HandleKeyRelease(Key key) override;
  /// The caret stays, but nothing is marked any more.
  void HandleFocusLoss() override { SelectText(selectionStart_ + selectionLength_, 0); }
  void Restart() override;

 private:
  void ReplaceSelection(std::string_view with);

  std::string text_;
  int selectionStart_ = 0;
  int selectionLength_ = 0;
};

/// Rows of text of which one or none is selected. A change of the selected row raises `onSelect`,
/// whoever makes it; a write of the row that is selected already raises nothing, and so does
/// emptying.
class RowsControl : public Control {
 public:
  std::function<void()> onSelect;

  const std::vector<std::string>& Rows() const { return rows_; }
  int Count() const { return static_cast<int>(rows_.size()); }
  /// The selected row, -1 for none.
  int Row() const { return row_; }
  /// Text of the selected row; empty if none is selected.
  std::string Text() const;
  /// Grows with every change of the rows, so that a view knows when they are new.
  std::uint64_t RowsVersion() const { return rowsVersion_; }

  /// Appends a row that shows `text` up to its first zero character.
  void AddRow(std::string_view text);
  void Clear();
  /// Selects `row`, or none with -1; throws the invalid value fault if there is no such row.
  void Select(std::int64_t row);

  /// A person chooses a row.
  bool Choose(int row);

  bool HandleKey(Key key) override;
  void Restart() override;

 protected:
  RowsControl(Form& form, ControlKind kind, std::string_view name, const Design& design, int index);

 private:
  bool StepTo(int row);

  std::vector<std::string> rows_;
  int row_ = -1;
  std::uint64_t rowsVersion_ = 0;
};

class ComboBox : public RowsControl {
 public:
  ComboBox(Form& form, std::string_view name, const Design& design, int index = -1)
      : RowsControl(form, ControlKind::ComboBox, name, design, index) {}

  /// The notification of a combo whose text can be typed into. Drop-down lists never raise it.
  std::function<void()> onChange;
};

class ListBox : public RowsControl {
 public:
  ListBox(Form& form, std::string_view name, const Design& design, int index = -1)
      : RowsControl(form, ControlKind::ListBox, name, design, index) {}

  std::function<void(Key)> onKeyPress;
  std::function<void(MouseButton)> onMousePress;
  std::function<void(MouseButton)> onMouseRelease;

  /// A mouse button goes down, or comes up, on it. Choosing a row is an act of its own.
  bool MousePress(MouseButton button);
  bool MouseRelease(MouseButton button);
  bool HandleKey(Key key) override;
};

/// Width of list view columns: 1440 to the inch.
inline constexpr int kFormUnitsPerInch = 1440;

struct Column {
  std::string caption;
  int width = 1440;  ///< in form units; 0 hides the column
};

struct ListViewRow {
  std::vector<std::string> cells;
  int icon = 0;  ///< image number from 1; 0 for none
};

/// Names of the pictures of an image list; image number n is entry n - 1.
using ImageList = std::vector<std::string>;

/// A table with column captions and a small icon in front of each row. A write of the selection
/// from code raises nothing; any choice of a row by a person raises `onItemClick`, also of the row
/// that is selected already, and a press of the left button anywhere in it raises `onClick` after
/// that.
class ListView : public Control {
 public:
  ListView(Form& form, std::string_view name, const Design& design, std::vector<Column> columns,
           ImageList images = {}, int index = -1);

  std::function<void()> onItemClick;
  std::function<void()> onClick;

  const std::vector<Column>& Columns() const { return columns_; }
  /// Columns and cells are numbered from 1. An unknown one throws the subscript fault.
  void SetColumnCaption(int column, std::string_view caption);
  void SetColumnWidth(int column, int width);
  const ImageList& Images() const { return images_; }

  const std::vector<ListViewRow>& Rows() const { return rows_; }
  int Count() const { return static_cast<int>(rows_.size()); }
  std::uint64_t RowsVersion() const { return rowsVersion_; }
  /// The selected row from 0, -1 for none.
  int Row() const { return row_; }
  /// The same; throws the missing selection fault where there is none.
  int SelectedRow() const;
  const std::string& Cell(int row, int column) const;

  /// Appends a row; cells that are not given are empty.
  void AddRow(std::vector<std::string> cells, int icon = 0);
  void SetCell(int row, int column, std::string_view text);
  void SetIcon(int row, int icon);
  void Clear();
  void Select(int row);

  /// A person clicks a row, or moves to it with a key.
  bool ChooseByMouse(int row);
  bool ChooseByKey(int row);
  /// A person clicks where no row is.
  bool ClickBeside();

  bool HandleKey(Key key) override;
  void Restart() override;

 private:
  void SelectByPerson(int row);

  std::vector<Column> design_;
  ImageList images_;
  std::vector<Column> columns_;
  std::vector<ListViewRow> rows_;
  int row_ = -1;
  std::uint64_t rowsVersion_ = 0;
};

class MenuEntry : public Control {
 public:
  MenuEntry(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::MenuEntry, name, index, design) {}

  std::function<void()> onChoose;

  bool Choose();
  bool Reachable() const override;
  bool TakesFocus() const override { return false; }
};

/// A menu that opens at the pointer.
class PopupMenu : public Control {
 public:
  PopupMenu(Form& form, std::string_view name, std::vector<MenuEntry*> entries)
      : Control(form, ControlKind::PopupMenu, name, -1, {}), entries_(std::move(entries)) {}

  const std::vector<MenuEntry*>& Entries() const { return entries_; }
  /// While it is open.
  bool Reachable() const override;
  bool TakesFocus() const override { return false; }

 private:
  std::vector<MenuEntry*> entries_;
};

/// Controls of one name, told apart by an index from 0. An index outside throws the subscript
/// fault.
template <class ControlType, std::size_t N>
class ControlArray {
 public:
  /// All with the same design.
  ControlArray(Form& form, std::string_view name, const Design& design)
      : ControlArray(form, name, std::vector<Design>(N, design)) {}
  /// One design for each.
  ControlArray(Form& form, std::string_view name, const std::vector<Design>& designs) {
    for (std::size_t i = 0; i < N; ++i) {
      items_[i] = std::make_unique<ControlType>(form, name, designs.at(i), static_cast<int>(i));
    }
  }

  template <class I>
  ControlType& operator[](I index) const {
    return *items_[index];
  }
  std::vector<ControlType*> All() const {
    std::vector<ControlType*> all;
    for (const auto& item : items_) all.push_back(item.get());
    return all;
  }
  static constexpr std::size_t size() { return N; }

 private:
  FixedArray<std::unique_ptr<ControlType>, N> items_;
};

}  // namespace quillmark
