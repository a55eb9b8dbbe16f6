#include "ui/row_bindings.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>

#include "ui/key_events.h"

namespace quillmark {

ComboBinding::ComboBinding(ComboBox& control, QComboBox& widget)
    : Binding(control, widget), rows_(control), combo_(widget), model_(control) {
  combo_.setModel(&model_);
  // The width comes from the drawing: measuring thousands of rows would take seconds.
  combo_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo_.setMaxVisibleItems(20);
  if (auto* list = qobject_cast<QListView*>(combo_.view())) list->setUniformItemSizes(true);
  connect(&combo_, &QComboBox::activated, this, [this](int row) {
    if (!rows_.Choose(row)) Restore();
  });
}

void ComboBinding::ShowState() {
  model_.Refresh();
  if (combo_.currentIndex() != rows_.Row()) combo_.setCurrentIndex(rows_.Row());
}

bool ComboBinding::OtherEvent(QEvent& event) {
  // A wheel that only passes over the combo is meant for what lies behind it.
  if (event.type() != QEvent::Wheel || combo_.hasFocus()) return false;
  event.ignore();
  return true;
}

void ListBinding::Show(RowsModel& model) {
  model_ = &model;
  view_.setModel(&model);
  view_.setSelectionMode(QAbstractItemView::SingleSelection);
  view_.setSelectionBehavior(QAbstractItemView::SelectRows);
  view_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_.setTabKeyNavigation(false);
  view_.setContextMenuPolicy(Qt::PreventContextMenu);
  view_.viewport()->installEventFilter(this);
  connect(view_.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) {
            // A view that only takes the focus makes its first row the current one too, but
            // selects none.
            const bool moved =
                !RefreshScope::Running() && view_.selectionModel()->isSelected(current);
            if (moved && !rows_.Choose(current.row())) Restore();
          });
}

int ListBinding::RowAt(const QMouseEvent& event) const {
  return view_.indexAt(event.position().toPoint()).row();
}

bool ListBinding::KeyPressed(const QKeyEvent& event) {
  return Binding::KeyPressed(event) || event.key() == Qt::Key_Space;
}

void ListBinding::ShowState() {
  model_->Refresh();
  const QModelIndex wanted = model_->index(rows_.Row(), 0);
  if (view_.currentIndex().row() == wanted.row() && view_.selectionModel()->hasSelection()) return;
  if (wanted.isValid()) {
    view_.setCurrentIndex(wanted);
    view_.scrollTo(wanted);
  } else {
    view_.selectionModel()->clear();
  }
}

ListBoxBinding::ListBoxBinding(ListBox& control, QListView& widget)
    : ListBinding(control, widget), list_(control), model_(control) {
  Show(model_);
  widget.setUniformItemSizes(true);
}

bool ListBoxBinding::MousePressed(const QMouseEvent& event) {
  const auto button = ButtonOf(event.button());
  if (!button) return false;
  const int row = RowAt(event);
  if (list_.MousePress(*button) && *button == MouseButton::Left) list_.Choose(row);
  return true;
}

bool ListBoxBinding::MouseReleased(const QMouseEvent& event) {
  const auto button = ButtonOf(event.button());
  if (!button) return false;
  list_.MouseRelease(*button);
  return true;
}

ListViewBinding::ListViewBinding(ListView& control, QTreeView& widget)
    : ListBinding(control, widget), cells_(control), tree_(widget), model_(control) {
  Show(model_);
  tree_.setRootIsDecorated(false);
  tree_.setItemsExpandable(false);
  tree_.setUniformRowHeights(true);
  tree_.setAllColumnsShowFocus(true);
  tree_.header()->setSectionsMovable(false);
  tree_.header()->setStretchLastSection(false);
  tree_.header()->setMinimumSectionSize(8);
}

void ListViewBinding::ShowState() {
  ListBinding::ShowState();
  model_.RefreshHeader();
  ShowColumns();
  // Telling the view of changed cells would make it measure all of them; it shows a few.
  tree_.viewport()->update();
}

void ListViewBinding::ShowColumns() {
  const auto& columns = cells_.Columns();
  shownWidths_.resize(columns.size(), -1);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (shownWidths_[i] == columns[i].width) continue;
    shownWidths_[i] = columns[i].width;
    const int column = static_cast<int>(i);
    tree_.setColumnHidden(column, columns[i].width <= 0);
    if (columns[i].width > 0) tree_.setColumnWidth(column, ColumnPixels(tree_, columns[i].width));
  }
  if (tree_.property("allColumns").toBool()) {
    tree_.setMinimumWidth(tree_.header()->length() + 2 * tree_.frameWidth() +
                          tree_.verticalScrollBar()->sizeHint().width());
  }
}

bool ListViewBinding::MousePressed(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton) return true;
  const int row = RowAt(event);
  if (row < 0) {
    cells_.ClickBeside();
  } else {
    cells_.ClickRow(row);
  }
  return true;
}

bool ListViewBinding::MouseReleased(const QMouseEvent& /*event*/) { return true; }

}  // namespace quillmark
