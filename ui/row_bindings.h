#pragma once

#include <QComboBox>
#include <QListView>
#include <QTreeView>
#include <vector>

#include "platform/controls.h"
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
  RowsModel model_;
  std::uint64_t shownVersion_ = 0;
};

class ListBoxBinding : public Binding {
 public:
  ListBoxBinding(ListBox& control, QListView& widget);

 protected:
  void ShowState() override;
  /// The space bar is kept from the view, which would take its selection away with it.
  bool KeyPressed(const QKeyEvent& event) override;
  bool MousePressed(const QMouseEvent& event) override;
  bool MouseReleased(const QMouseEvent& event) override;

 private:
  ListBox& rows_;
  QListView& view_;
  RowsModel model_;
  std::uint64_t shownVersion_ = 0;
};

class ListViewBinding : public Binding {
 public:
  ListViewBinding(ListView& control, QTreeView& widget);

 protected:
  void ShowState() override;
  /// The space bar is kept from the view, which would take its selection away with it.
  bool KeyPressed(const QKeyEvent& event) override;
  bool MousePressed(const QMouseEvent& event) override;
  bool MouseReleased(const QMouseEvent& event) override;

 private:
  void ShowColumns();

  ListView& cells_;
  QTreeView& view_;
  CellsModel model_;
  std::uint64_t shownVersion_ = 0;
  std::vector<int> shownWidths_;  ///< of the columns, in form units; a person may drag them since
};

}  // namespace quillmark
