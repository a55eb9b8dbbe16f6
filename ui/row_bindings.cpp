#include "ui/row_bindings.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "controls/buttons.h"
#include "ui/ansi_text.h"
#include "ui/key_events.h"

namespace quillmark {
namespace {

/// Average characters to the inch of the font that widths in form units are meant for.
constexpr double kCharactersPerInch = 19.6;

/// Pixels on the screen of `widget` for a width in form units, and more if its font is wider than
/// the one that form units are meant for.
int Pixels(const QWidget& widget, int formUnits) {
  const double dots = widget.logicalDpiX();
  const double wider = widget.fontMetrics().averageCharWidth() * kCharactersPerInch / dots;
  return static_cast<int>(std::lround(formUnits * dots * std::max(1.0, wider) / kFormUnitsPerInch));
}

int Sum(const std::vector<int>& widths) { return std::accumulate(widths.begin(), widths.end(), 0); }

std::vector<int> NeededPixels(const QTreeView& view, const std::vector<Column>& columns) {
  std::vector<int> widths;
  widths.reserve(columns.size());
  for (const Column& column : columns) widths.push_back(Pixels(view, std::max(column.width, 0)));
  return widths;
}

}  // namespace

std::vector<int> ColumnPixels(const QTreeView& view, const std::vector<Column>& columns) {
  std::vector<int> widths = NeededPixels(view, columns);
  const int needed = Sum(widths);
  const int room = view.viewport()->width();
  if (!view.property("columnsGrow").toBool() || needed == 0 || needed >= room) return widths;
  for (int& width : widths) width = width * room / needed;
  return widths;
}

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
  connect(combo_.view()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { CheckSoon([this] { TakeSelection(); }); });
}

void ComboBinding::TakeSelection() {
  const QModelIndexList selected = combo_.view()->selectionModel()->selectedRows();
  // Mouse and keys move both, which chooses nothing yet.
  if (selected.isEmpty() || selected.front() == combo_.view()->currentIndex()) return;
  combo_.hidePopup();
  if (!rows_.Choose(selected.front().row())) Restore();
}

void ComboBinding::ShowState() {
  model_.Refresh();
  if (combo_.currentIndex() == rows_.Row()) return;
  combo_.setCurrentIndex(rows_.Row());
  combo_.view()->selectionModel()->setCurrentIndex(model_.index(rows_.Row(), 0),
                                                   QItemSelectionModel::ClearAndSelect);
}

bool ComboBinding::OtherEvent(QEvent& event) {
  // The wheel is meant for what lies behind the combo: nobody changes a level by scrolling past it.
  if (event.type() != QEvent::Wheel) return false;
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
            if (RefreshScope::Running()) return;
            if (!view_.selectionModel()->isSelected(current)) {
              // A view that takes the focus makes its first row the current one, which would be
              // drawn as if it were chosen.
              view_.selectionModel()->clearCurrentIndex();
            } else if (!rows_.Choose(current.row())) {
              Restore();
            }
          });
  connect(view_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { CheckSoon([this] { TakeSelection(); }); });
}

void ListBinding::TakeSelection() {
  const QModelIndexList selected = view_.selectionModel()->selectedRows();
  const int row = selected.isEmpty() ? -1 : selected.front().row();
  if (row != rows_.Row() && !rows_.Choose(row)) Restore();
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
  QItemSelectionModel& selection = *view_.selectionModel();
  if (!wanted.isValid()) {
    selection.clear();
  } else if (selection.currentIndex().row() != wanted.row() || !selection.isSelected(wanted)) {
    view_.setCurrentIndex(wanted);
    view_.scrollTo(wanted);
  }
}

ListBoxBinding::ListBoxBinding(ListBox& control, QListView& widget)
    : ListBinding(control, widget),
      list_(control),
      view_(widget),
      model_(control),
      hint_(new QLabel(widget.viewport())) {
  Show(model_);
  widget.setUniformItemSizes(true);
  hint_->setWordWrap(true);
  hint_->setAlignment(Qt::AlignCenter);
  hint_->setAttribute(Qt::WA_TransparentForMouseEvents);
  GreyHint();
  auto* const around = new QVBoxLayout(widget.viewport());
  around->addWidget(hint_);
}

void ListBoxBinding::GreyHint() {
  // Not the palette's own colour for this: some dark desktops leave it black.
  QPalette grey = view_.palette();
  QColor half = grey.color(QPalette::Text);
  half.setAlphaF(0.5);
  grey.setColor(hint_->foregroundRole(), half);
  hint_->setPalette(grey);
}

bool ListBoxBinding::OtherEvent(QEvent& event) {
  if (event.type() == QEvent::PaletteChange) GreyHint();
  return false;
}

void ListBoxBinding::ShowState() {
  ListBinding::ShowState();
  hint_->setText(FromAnsi(list_.Placeholder()));
  hint_->setVisible(list_.Count() == 0 && !list_.Placeholder().empty());
}

bool ListBoxBinding::MousePressed(const QMouseEvent& event) {
  const auto button = ButtonOf(event.button());
  if (!button) return false;
  const int row = RowAt(event);
  const bool left = *button == MouseButton::Left;
  if (list_.MousePress(*button) && left) list_.Choose(row);
  doubleClicked_ = left && row >= 0 && event.type() == QEvent::MouseButtonDblClick;
  return true;
}

bool ListBoxBinding::MouseReleased(const QMouseEvent& event) {
  const auto button = ButtonOf(event.button());
  if (!button) return false;
  list_.MouseRelease(*button);
  // What opens now must not find the button down.
  if (std::exchange(doubleClicked_, false) && list_.doubleClickButton != nullptr) {
    list_.doubleClickButton->PressFromElsewhere();
  }
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
  connect(tree_.header(), &QHeaderView::sectionResized, this, [this] {
    if (!sizing_) dragged_ = true;
  });
}

void ListViewBinding::ShowState() {
  ListBinding::ShowState();
  model_.RefreshHeader();
  ShowColumns();
  // Telling the view of changed cells would make it measure all of them; it shows a few.
  tree_.viewport()->update();
}

void ListViewBinding::ShowColumns() {
  std::vector<int> widths;
  for (const Column& column : cells_.Columns()) widths.push_back(column.width);
  if (widths == shownWidths_) return;
  shownWidths_ = widths;
  dragged_ = false;
  SizeColumns();
  if (tree_.property("allColumns").toBool()) {
    tree_.setMinimumWidth(Sum(NeededPixels(tree_, cells_.Columns())) + 2 * tree_.frameWidth() +
                          tree_.verticalScrollBar()->sizeHint().width());
  }
}

void ListViewBinding::SizeColumns() {
  if (dragged_) return;
  sizing_ = true;
  const std::vector<int> widths = ColumnPixels(tree_, cells_.Columns());
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const int column = static_cast<int>(i);
    tree_.setColumnHidden(column, widths[i] == 0);
    if (widths[i] > 0) tree_.setColumnWidth(column, widths[i]);
  }
  sizing_ = false;
}

bool ListViewBinding::OtherEvent(QEvent& event) {
  if (event.type() == QEvent::Resize) SizeColumns();
  return false;
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
