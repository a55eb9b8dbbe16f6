#pragma once

#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QTreeView>
#include <vector>

#include "controls/list_view.h"
#include "controls/rows_control.h"
#include "controls/text_rows.h"
#include "ui/binding.h"
#include "ui/row_models.h"

namespace quillmark {

/// The width in pixels that each column of a list view starts with: so many form units, and more if
/// its font is wider than the one that these are meant for. With the dynamic property `columnsGrow`
/// they fill the whole view.
std::vector<int> ColumnPixels(const QTreeView& view, const std::vector<Column>& columns);

class ComboBinding : public Binding {
 public:
  ComboBinding(ComboBox& control, QComboBox& widget);

 protected:
  void ShowState() override;
  bool OtherEvent(QEvent& event) override;

 private:
  /// A screen reader selects a row of the open or closed list, which leaves the current row.
  void TakeSelection();

  ComboBox& rows_;
  QComboBox& combo_;
  TextsModel model_;
};

/// What list boxes and list views have in common: rows below each other, of which one is selected.
class ListBinding : public Binding {
 protected:
  ListBinding(RowsControl& control, QAbstractItemView& view)
      : Binding(control, view), rows_(control), view_(view) {}

  /// Has the view show the rows of `model`, and follows what a person selects with keys.
  void Show(RowsModel& model);
  /// The row under the mouse, -1 for none.
  int RowAt(const QMouseEvent& event) const;

  /// The space bar is kept from the view, which would take its selection away with it.
  bool KeyPressed(const QKeyEvent& event) override;
  void ShowState() override;

 private:
  /// A screen reader selects a row, or none, past all that a person can do.
  void TakeSelection();

  RowsControl& rows_;
  QAbstractItemView& view_;
  RowsModel* model_ = nullptr;
};

class ListBoxBinding : public ListBinding {
 public:
  ListBoxBinding(ListBox& control, QListView& widget);

 protected:
  bool MousePressed(const QMouseEvent& event) override;
  void ShowState() override;
  bool MouseReleased(const QMouseEvent& event) override;
  bool OtherEvent(QEvent& event) override;

 private:
  void GreyHint();

  ListBox& list_;
  QListView& view_;
  TextsModel model_;
  QLabel* hint_;
  bool doubleClicked_ = false;  ///< the button that is down is so for the second time
};

class ListViewBinding : public ListBinding {
 public:
  ListViewBinding(ListView& control, QTreeView& widget);

 protected:
  void ShowState() override;
  bool MousePressed(const QMouseEvent& event) override;
  bool MouseReleased(const QMouseEvent& event) override;
  bool OtherEvent(QEvent& event) override;

 private:
  void ShowColumns();
  void SizeColumns();

  ListView& cells_;
  QTreeView& tree_;
  CellsModel model_;
  std::vector<int> shownWidths_;  ///< of the columns, in form units
  bool sizing_ = false;           ///< while the columns are given their widths
  bool dragged_ = false;          ///< a person has dragged a column since
};

}  // namespace quillmark
