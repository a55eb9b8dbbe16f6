#pragma once

#include <QComboBox>
#include <QListView>
#include <QTreeView>
#include <vector>

#include "controls/controls.h"
#include "ui/binding.h"
#include "ui/row_models.h"

namespace quillmark {

class ComboBinding : public Binding {
 public:
  ComboBinding(ComboBox& control, QComboBox& widget);

 protected:
  void ShowState() override;
  bool OtherEvent(QEvent& event) override;

 private:
  ComboBox& rows_;
  QComboBox& combo_;
  TextsModel model_;
};

/// What list boxes and list views have in common: rows below each other, of which one is selected.
class ListBinding : public Binding {
 protected:
  ListBinding(Control& control, QAbstractItemView& view) : Binding(control, view), view_(view) {}

  /// Has the view show the rows of `model`, and follows what a person selects with keys.
  void Show(RowsModel& model);
  /// The row under the mouse, -1 for none.
  int RowAt(const QMouseEvent& event) const;

  /// The space bar is kept from the view, which would take its selection away with it.
  bool KeyPressed(const QKeyEvent& event) override;
  void ShowState() override;
  /// The row that the control has selected, -1 for none.
  virtual int Row() const = 0;
  /// A person moved to `row` with a key; whether the control takes it.
  virtual bool MoveTo(int row) = 0;

 private:
  QAbstractItemView& view_;
  RowsModel* rows_ = nullptr;
};

class ListBoxBinding : public ListBinding {
 public:
  ListBoxBinding(ListBox& control, QListView& widget);

 protected:
  bool MousePressed(const QMouseEvent& event) override;
  bool MouseReleased(const QMouseEvent& event) override;
  int Row() const override { return list_.Row(); }
  bool MoveTo(int row) override { return list_.Choose(row); }

 private:
  ListBox& list_;
  TextsModel model_;
};

class ListViewBinding : public ListBinding {
 public:
  ListViewBinding(ListView& control, QTreeView& widget);

 protected:
  void ShowState() override;
  bool MousePressed(const QMouseEvent& event) override;
  bool MouseReleased(const QMouseEvent& event) override;
  int Row() const override { return cells_.Row(); }
  bool MoveTo(int row) override { return cells_.ChooseByKey(row); }

 private:
  void ShowColumns();

  ListView& cells_;
  QTreeView& tree_;
  CellsModel model_;
  std::vector<int> shownWidths_;  ///< of the columns, in form units; a person may drag them since
};

}  // namespace quillmark
