#include "driver/widget_hands.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTreeView>

#include "driver/widget_events.h"
#include "platform/desktop.h"
#include "ui/ansi_text.h"
#include "ui/icons.h"

namespace quillmark {

namespace {

constexpr int kIconSize = 16;

std::string Shown(const QString& text) { return TextOfBytes(ToAnsi(text)); }

/// Where a click does what the widget is for; in a box, where the caret is.
QPoint HotSpot(const QWidget& widget) {
  QStyleOptionButton option;
  option.initFrom(&widget);
  if (qobject_cast<const QCheckBox*>(&widget) != nullptr) {
    return widget.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &widget).center();
  }
  if (qobject_cast<const QRadioButton*>(&widget) != nullptr) {
    return widget.style()
        ->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &widget)
        .center();
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    return line->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  }
  return widget.rect().center();
}

/// Clicks the row with the mouse, after scrolling to it.
void ClickRow(QAbstractItemView& view, int row, int column) {
  const QModelIndex index = view.model()->index(row, column);
  view.scrollTo(index);
  const QRect shown = view.visualRect(index).intersected(view.viewport()->rect());
  SendClick(*view.viewport(), shown.center());
}

int FirstShownColumn(const QTreeView& view) {
  int column = 0;
  while (column + 1 < view.header()->count() && view.isColumnHidden(column)) ++column;
  return column;
}

int RowOf(const QAbstractItemView& view) {
  return view.selectionModel()->hasSelection() ? view.currentIndex().row() : -1;
}

Json Rows(const QAbstractItemModel& model) {
  Json rows = Json::array();
  for (int row = 0; row < model.rowCount(); ++row) {
    rows.push_back(Shown(model.index(row, 0).data().toString()));
  }
  return rows;
}

/// The number of the picture in `images` that `shown` looks like; 0 for none.
int ImageNumber(const QVariant& shown, const ImageList& images) {
  const QImage image = shown.value<QIcon>().pixmap(kIconSize).toImage();
  for (std::size_t i = 0; i < images.size() && !shown.isNull(); ++i) {
    if (PictureIcon(images[i]).pixmap(kIconSize).toImage() == image) return static_cast<int>(i) + 1;
  }
  return 0;
}

/// A width in form units: the designed one where it is shown by so many pixels.
int FormUnits(const QTreeView& view, int column, int designed) {
  if (view.isColumnHidden(column)) return 0;
  const int pixels = view.columnWidth(column);
  return ColumnPixels(view, designed) == pixels ? designed
                                                : pixels * kFormUnitsPerInch / view.logicalDpiX();
}

void DescribeListView(const QTreeView& view, const ListView& control, Json& object) {
  const QAbstractItemModel& model = *view.model();
  Json columns = Json::array();
  for (int column = 0; column < model.columnCount(); ++column) {
    const int designed = control.Columns().at(static_cast<std::size_t>(column)).width;
    columns.push_back({{"caption", Shown(model.headerData(column, Qt::Horizontal).toString())},
                       {"shown", !view.isColumnHidden(column)},
                       {"width", FormUnits(view, column, designed)}});
  }
  Json rows = Json::array();
  Json icons = Json::array();
  for (int row = 0; row < model.rowCount(); ++row) {
    Json cells = Json::array();
    for (int column = 0; column < model.columnCount(); ++column) {
      cells.push_back(Shown(model.index(row, column).data().toString()));
    }
    rows.push_back(cells);
    icons.push_back(ImageNumber(model.index(row, 0).data(Qt::DecorationRole), control.Images()));
  }
  object["columns"] = columns;
  object["rows"] = rows;
  object["icons"] = icons;
  object["row"] = RowOf(view);
}

std::string CaptionOf(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return Shown(label->text());
  if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) return Shown(group->title());
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    return Shown(button->text());
  }
  return {};
}

}  // namespace

QWidget& WidgetHands::WidgetOf(const Control& control) {
  if (QWidget* widget = screen_->WidgetOf(control)) return *widget;
  throw CommandError("no widget for a " + std::string(KindName(control.Kind())));
}

template <class Widget>
Widget& WidgetHands::WidgetAs(const Control& control) {
  if (auto* widget = qobject_cast<Widget*>(&WidgetOf(control))) return *widget;
  throw CommandError("not for a " + std::string(KindName(control.Kind())));
}

void WidgetHands::Settle() { QCoreApplication::processEvents(); }

bool WidgetHands::InFront(const QWidget& widget) const {
  const QWidget* const modal = QApplication::activeModalWidget();
  return widget.window()->isVisible() && (modal == nullptr || modal == widget.window());
}

bool WidgetHands::HasFocus(const QWidget& widget) const {
  const auto& shown = TheDesktop().ShownForms();
  return !shown.empty() && &screen_->WindowOf(*shown.back()) == widget.window() &&
         widget.window()->focusWidget() == &widget;
}

QAction* WidgetHands::OpenEntry(const MenuEntry& entry) const {
  const QMenu* const menu = screen_->OpenMenu();
  if (menu == nullptr || TheDesktop().Popup() == nullptr) return nullptr;
  for (QAction* action : menu->actions()) {
    if (action->objectName() == QString::fromStdString(entry.Name())) return action;
  }
  return nullptr;
}

bool WidgetHands::Reach(const Control& control) {
  if (const auto* entry = dynamic_cast<const MenuEntry*>(&control)) {
    const QAction* const action = OpenEntry(*entry);
    return action != nullptr && action->isVisible() && action->isEnabled();
  }
  if (control.Kind() == ControlKind::PopupMenu) return control.Reachable();
  const QWidget& widget = WidgetOf(control);
  return widget.isVisible() && widget.isEnabled() && InFront(widget);
}

bool WidgetHands::Approach(const Control& control) {
  if (!Reach(control)) return false;
  TheDesktop().ClosePopup();
  QWidget& window = *WidgetOf(control).window();
  if (!window.isActiveWindow()) window.activateWindow();
  Settle();
  return true;
}

bool WidgetHands::Click(Control& control) {
  WidgetAs<QAbstractButton>(control);
  return PressMouse(control, MouseButton::Left);
}

bool WidgetHands::PressMouse(Control& control, MouseButton button) {
  // The numbers of the three buttons are the same.
  const auto qtButton = static_cast<Qt::MouseButton>(button);
  QWidget& widget = WidgetOf(control);
  if (!Approach(control)) return false;
  if (auto* view = qobject_cast<QAbstractItemView*>(&widget)) {
    // Left of all rows, where none can be.
    SendClick(*view->viewport(), QPoint(-1, 0), qtButton);
  } else {
    SendClick(widget, HotSpot(widget), qtButton);
  }
  if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
    // Its list is open now, and takes no click on a row before the time of a double click is over.
    combo->hidePopup();
  }
  return true;
}

bool WidgetHands::PressKey(Control& control, Key key) {
  QWidget& widget = WidgetOf(control);
  if (!Approach(control)) return false;
  widget.setFocus(Qt::OtherFocusReason);
  SendKey(widget, key);
  return true;
}

void WidgetHands::PlaceCaret(TextBox& box, bool markAll) {
  auto& line = WidgetAs<QLineEdit>(box);
  if (!Approach(box)) return;
  line.setFocus(Qt::OtherFocusReason);
  line.end(false);
  if (markAll) line.selectAll();
}

bool WidgetHands::Paste(TextBox& box, std::string_view text) {
  auto& line = WidgetAs<QLineEdit>(box);
  if (!Approach(box)) return false;
  line.setFocus(Qt::MouseFocusReason);
  line.selectAll();
  QGuiApplication::clipboard()->setText(FromAnsi(text));
  line.paste();
  return true;
}

bool WidgetHands::Select(Control& control, int row) {
  QWidget& widget = WidgetOf(control);
  auto* combo = qobject_cast<QComboBox*>(&widget);
  auto* view = combo != nullptr ? combo->view() : qobject_cast<QAbstractItemView*>(&widget);
  if (view == nullptr) throw CommandError("not for a " + std::string(KindName(control.Kind())));
  if (row < 0 || row >= view->model()->rowCount() || !Approach(control)) return false;
  if (combo != nullptr) {
    combo->setFocus(Qt::MouseFocusReason);
    combo->showPopup();
    ClickRow(*view, row, 0);
    combo->hidePopup();
  } else {
    auto* tree = qobject_cast<QTreeView*>(view);
    ClickRow(*view, row, tree == nullptr ? 0 : FirstShownColumn(*tree));
  }
  return true;
}

bool WidgetHands::ChooseEntry(MenuEntry& entry) {
  QAction* const action = OpenEntry(entry);
  if (action == nullptr || !Reach(entry)) return false;
  QMenu& menu = *screen_->OpenMenu();
  SendClick(menu, menu.actionGeometry(action).center());
  return true;
}

bool WidgetHands::Close(Form& form) {
  QWidget& window = screen_->WindowOf(form);
  if (!InFront(window) || window.windowFlags().testFlag(Qt::FramelessWindowHint)) return false;
  window.close();
  return true;
}

bool WidgetHands::Resize(Form& form, int width, int height) {
  QWidget& window = screen_->WindowOf(form);
  if (!InFront(window) || window.minimumSize() == window.maximumSize()) return false;
  window.resize(width, height);
  return true;
}

Json WidgetHands::Describe(const Control& control) {
  if (control.Kind() == ControlKind::PopupMenu || control.Kind() == ControlKind::MenuEntry) {
    Json object = LogicalHands().Describe(control);
    object["reachable"] = Reach(control);
    return object;
  }
  const QWidget& widget = WidgetOf(control);
  Json object = {{"kind", std::string(KindName(control.Kind()))},
                 {"enabled", !widget.testAttribute(Qt::WA_ForceDisabled)},
                 {"visible", !widget.isHidden()},
                 {"reachable", Reach(control)},
                 {"focus", HasFocus(widget)}};
  if (HasCaption(control.Kind())) object["caption"] = CaptionOf(widget);
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    object["text"] = Shown(line->text());
    const bool marked = line->hasSelectedText();
    object["selection"] = {marked ? line->selectionStart() : line->cursorPosition(),
                           line->selectionLength()};
  } else if (control.Kind() == ControlKind::CheckBox ||
             control.Kind() == ControlKind::OptionButton) {
    object["value"] = WidgetAs<QAbstractButton>(control).isChecked() ? 1 : 0;
  } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    object["rows"] = Rows(*combo->model());
    object["row"] = combo->currentIndex();
  } else if (const auto* list = qobject_cast<const QListView*>(&widget)) {
    object["rows"] = Rows(*list->model());
    object["row"] = RowOf(*list);
  } else if (const auto* view = qobject_cast<const QTreeView*>(&widget)) {
    DescribeListView(*view, dynamic_cast<const ListView&>(control), object);
  }
  return object;
}

Json WidgetHands::DescribeForm(const Form& form) {
  const QWidget& window = screen_->WindowOf(form);
  const bool shown = window.isVisible();
  const QPoint corner = window.pos() - window.screen()->availableGeometry().topLeft();
  return {{"shown", shown},
          {"modal", shown && window.isModal()},
          {"topmost", window.windowFlags().testFlag(Qt::WindowStaysOnTopHint)},
          {"caption", shown ? Shown(window.windowTitle()) : TextOfBytes(form.Caption())},
          {"place", {corner.x(), corner.y(), window.width(), window.height()}}};
}

}  // namespace quillmark
