#include "ui/row_bindings.h"

#include <QHeaderView>
#include <QItemSelectionModel>

#include "ui/key_events.h"

namespace quillmark {
namespace {

/// Puts `view` on `row` without telling anybody but the view.
void ShowRow(QAbstractItemView& view, int row) {
  const QModelIndex wanted = view.model()->index(row, 0);
  if (view.currentIndex().row() == wanted.row() && view.selectionModel()->hasSelection()) return;
  if (wanted.isValid()) {
    view.setCurrentIndex(wanted);
    view.scrollTo(wanted);
  } else {
    view.selectionModel()->clear();
  }
}

/// Whether a person moved to `row`: a view that only takes the focus makes its first row the
/// current one too, but selects none.
bool MovedTo(const QAbstractItemView& view, const QModelIndex& row) {
  return !RefreshScope::Running() && view.selectionModel()->isSelected(row);
}

/// The row under the mouse, -1 for none.
int RowAt(const QAbstractItemView& view, const QMouseEvent& event) {
  return view.indexAt(event.position().toPoint()).row();
}

/// What list boxes and list views have in common.
void Prepare(QAbstractItemView& view, QAbstractItemModel& model) {
  view.setModel(&model);
  view.setSelectionMode(QAbstractItemView::SingleSelection);
  view.setSelectionBehavior(QAbstractItemView::SelectRows);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setTabKeyNavigation(false);
  view.setContextMenuPolicy(Qt::PreventContextMenu);
}

}  // namespace

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
  if (shownVersion_ != rows_.RowsVersion()) model_.Reset();
  shownVersion_ = rows_.RowsVersion();
  if (combo_.currentIndex() != rows_.Row()) combo_.setCurrentIndex(rows_.Row());
}

bool ComboBinding::OtherEvent(QEvent& event) {
  // A wheel that only passes over the combo is meant for what lies behind it.
  if (event.type() != QEvent::Wheel || combo_.hasFocus()) return false;
  event.ignore();
  return true;
}

ListBoxBinding::ListBoxBinding(ListBox& control, QListView& widget)
    : Binding(control, widget), rows_(control), view_(widget), model_(control) {
  Prepare(view_, model_);
  view_.setUniformItemSizes(true);
  view_.viewport()->installEventFilter(this);
  connect(view_.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) {
            if (MovedTo(view_, current) && !rows_.Choose(current.row())) Restore();
          });
}

void ListBoxBinding::ShowState() {
  if (shownVersion_ != rows_.RowsVersion()) model_.Reset();
  shownVersion_ = rows_.RowsVersion();
  ShowRow(view_, rows_.Row());
}

bool ListBoxBinding::KeyPressed(const QKeyEvent& event) {
  return Binding::KeyPressed(event) || event.key() == Qt::Key_Space;
}

bool ListBoxBinding::MousePressed(const QMouseEvent& event) {
  const auto button = ButtonOf(event.button());
  if (!button) return false;
  const int row = RowAt(view_, event);
  if (rows_.MousePress(*button) && *button == MouseButton::Left) rows_.Choose(row);
  return true;
}

bool ListBoxBinding::MouseReleased(const QMouseEvent& event) {
  const auto button = ButtonOf(event.button());
  if (!button) return false;
  rows_.MouseRelease(*button);
  return true;
}

ListViewBinding::ListViewBinding(ListView& control, QTreeView& widget)
    : Binding(control, widget), cells_(control), view_(widget), model_(control) {
  Prepare(view_, model_);
  view_.setRootIsDecorated(false);
  view_.setItemsExpandable(false);
  view_.setUniformRowHeights(true);
  view_.setAllColumnsShowFocus(true);
  view_.header()->setSectionsMovable(false);
  view_.header()->setStretchLastSection(false);
  view_.header()->setMinimumSectionSize(8);
  view_.viewport()->installEventFilter(this);
  connect(view_.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) {
            if (MovedTo(view_, current) && !cells_.ChooseByKey(current.row())) Restore();
          });
}

void ListViewBinding::ShowState() {
  if (shownVersion_ != cells_.RowsVersion()) model_.Reset();
  shownVersion_ = cells_.RowsVersion();
  model_.RefreshHeader();
  // Telling the view of changed cells would make it measure all of them; it shows a few.
  view_.viewport()->update();
  ShowColumns();
  ShowRow(view_, cells_.Row());
}

void ListViewBinding::ShowColumns() {
  const auto& columns = cells_.Columns();
  shownWidths_.resize(columns.size(), -1);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (shownWidths_[i] == columns[i].width) continue;
    shownWidths_[i] = columns[i].width;
    const int column = static_cast<int>(i);
    view_.setColumnHidden(column, columns[i].width <= 0);
    if (columns[i].width > 0) view_.setColumnWidth(column, ColumnPixels(view_, columns[i].width));
  }
}

bool ListViewBinding::KeyPressed(const QKeyEvent& event) {
  return Binding::KeyPressed(event) || event.key() == Qt::Key_Space;
}

bool ListViewBinding::MousePressed(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton) return true;
  const int row = RowAt(view_, event);
  if (row < 0) {
    cells_.ClickBeside();
  } else {
    cells_.ChooseByMouse(row);
  }
  return true;
}

bool ListViewBinding::MouseReleased(const QMouseEvent& /*event*/) { return true; }

}  // namespace quillmark
