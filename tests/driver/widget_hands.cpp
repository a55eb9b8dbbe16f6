#include "driver/widget_hands.h"

#include <QtTest/qtestspontaneevent.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScreen>
#include <QTreeView>
#include <QWindow>
#include <map>
#include <nlohmann/json.hpp>

#include "controls/desktop.h"
#include "ui/ansi_text.h"
#include "ui/binding.h"
#include "ui/icons.h"
#include "ui/row_bindings.h"

namespace quillmark {

namespace {

constexpr int kIconSize = 16;

template <class Event>
void Deliver(QWidget& target, Event&& event) {
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(&target, &event);
}

/// Where a click does what the widget is for; in a box, where the caret is.
QPoint HotSpot(const QWidget& widget) {
  if (qobject_cast<const QCheckBox*>(&widget) || qobject_cast<const QRadioButton*>(&widget)) {
    return {2, widget.height() / 2};  // on the indicator
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    return line->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  }
  return widget.rect().center();
}

int FirstShownColumn(const QAbstractItemView& view) {
  const auto* const tree = qobject_cast<const QTreeView*>(&view);
  int column = 0;
  while (tree && column + 1 < tree->header()->count() && tree->isColumnHidden(column)) ++column;
  return column;
}

/// Clicks the row with the mouse, after scrolling to it.
void ClickRow(QAbstractItemView& view, int row) {
  const QModelIndex index = view.model()->index(row, FirstShownColumn(view));
  view.scrollTo(index);
  const QRect shown = view.visualRect(index).intersected(view.viewport()->rect());
  SendClick(*view.viewport(), shown.center());
}

bool InFront(const QWidget& widget) {
  const QWidget* const modal = QApplication::activeModalWidget();
  return widget.window()->isVisible() && (modal == nullptr || modal == widget.window());
}

std::string Unmarked(std::string caption) {
  std::erase(caption, '&');
  return caption;
}

/// The number of the picture in `images` that `shown` looks like; 0 for none.
int ImageNumber(const QVariant& shown, const ImageList& images) {
  const QImage image = shown.value<QIcon>().pixmap(kIconSize).toImage();
  for (std::size_t i = 0; i < images.size() && !shown.isNull(); ++i) {
    if (PictureIcon(images[i]).pixmap(kIconSize).toImage() == image) return static_cast<int>(i) + 1;
  }
  return 0;
}

std::vector<ListViewRow> RowsOf(const QAbstractItemModel& model, const ImageList& images) {
  std::vector<ListViewRow> rows(static_cast<std::size_t>(model.rowCount()));
  for (int row = 0; row < model.rowCount(); ++row) {
    ListViewRow& shown = rows[static_cast<std::size_t>(row)];
    for (int column = 0; column < model.columnCount(); ++column) {
      shown.cells.push_back(ToAnsi(model.index(row, column).data().toString()));
    }
    shown.icon = ImageNumber(model.index(row, 0).data(Qt::DecorationRole), images);
  }
  return rows;
}

/// The columns with their widths in form units: the designed one where it is shown by so many
/// pixels.
std::vector<Column> ColumnsOf(const QTreeView& view, const ListView& control) {
  std::vector<Column> columns = control.Columns();
  const std::vector<int> designed = ColumnPixels(view, columns);
  for (int i = 0; i < view.model()->columnCount(); ++i) {
    Column& column = columns.at(static_cast<std::size_t>(i));
    const int pixels = view.columnWidth(i);
    column.caption = ToAnsi(view.model()->headerData(i, Qt::Horizontal).toString());
    if (view.isColumnHidden(i)) {
      column.width = 0;
    } else if (designed.at(static_cast<std::size_t>(i)) != pixels) {
      column.width = pixels * kFormUnitsPerInch / view.logicalDpiX();
    }
  }
  return columns;
}

}  // namespace

void SendClick(QWidget& target, QPoint place, Qt::MouseButton button) {
  const auto send = [&](QEvent::Type type, Qt::MouseButtons held) {
    Deliver(target, QMouseEvent(type, place, target.mapTo(target.window(), place),
                                target.mapToGlobal(place), button, held, Qt::NoModifier));
  };
  send(QEvent::MouseButtonPress, button);
  send(QEvent::MouseButtonRelease, Qt::NoButton);
}

void SendKey(QWidget& target, Key key) {
  static const std::map<KeyCode, int> keys = {{KeyCode::Backspace, Qt::Key_Backspace},
                                              {KeyCode::Tab, Qt::Key_Tab},
                                              {KeyCode::Enter, Qt::Key_Return},
                                              {KeyCode::Escape, Qt::Key_Escape},
                                              {KeyCode::Left, Qt::Key_Left},
                                              {KeyCode::Right, Qt::Key_Right},
                                              {KeyCode::Up, Qt::Key_Up},
                                              {KeyCode::Down, Qt::Key_Down},
                                              {KeyCode::Delete, Qt::Key_Delete}};
  const bool types = key.code == KeyCode::Character;
  const QString text = types ? FromAnsi(std::string_view(&key.character, 1)) : QString();
  // Letters go by the number of their capital.
  const int code = types ? text.toUpper().front().unicode() : keys.at(key.code);
  const bool byKeyboard = !types || text.front().isPrint();
  const QString typed = byKeyboard ? text : QString();
  Deliver(target, QKeyEvent(QEvent::KeyPress, code, Qt::NoModifier, typed));
  if (!byKeyboard) {
    QInputMethodEvent commit;
    commit.setCommitString(text);
    Deliver(target, commit);
  }
  Deliver(target, QKeyEvent(QEvent::KeyRelease, code, Qt::NoModifier, typed));
}

QWidget& WidgetHands::WidgetOf(const Control& control) {
  if (QWidget* widget = screen_.WidgetOf(control)) return *widget;
  throw NotFor(control);
}

void WidgetHands::Settle() { QCoreApplication::processEvents(); }

bool WidgetHands::HasFocus(const QWidget& widget) const {
  const auto& shown = TheDesktop().ShownForms();
  return !shown.empty() && &screen_.WindowOf(*shown.back()) == widget.window() &&
         widget.window()->focusWidget() == &widget;
}

QAction* WidgetHands::OpenEntry(const MenuEntry& entry) const {
  const QMenu* const menu = screen_.OpenMenu();
  if (menu == nullptr || TheDesktop().Popup() == nullptr) return nullptr;
  for (QAction* action : menu->actions()) {
    const bool usable = action->isVisible() && action->isEnabled();
    if (usable && action->objectName() == QString::fromStdString(entry.Name())) return action;
  }
  return nullptr;
}

bool WidgetHands::Reach(const Control& control) {
  if (const auto* entry = dynamic_cast<const MenuEntry*>(&control)) return OpenEntry(*entry);
  if (IsMenu(control)) return control.Reachable();
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

bool WidgetHands::PressMouse(Control& control, MouseButton button) {
  // The numbers of the three buttons are the same.
  const auto qtButton = static_cast<Qt::MouseButton>(button);
  QWidget& widget = WidgetOf(control);
  if (!Approach(control)) return false;
  if (auto* view = qobject_cast<QAbstractItemView*>(&widget)) {
    SendClick(*view->viewport(), QPoint(-1, 0), qtButton);  // left of all rows, where none can be
  } else {
    SendClick(widget, HotSpot(widget), qtButton);
  }
  // The list of a combo is open now, and takes no click on a row before the time of a double click
  // is over.
  if (auto* combo = qobject_cast<QComboBox*>(&widget)) combo->hidePopup();
  return true;
}

bool WidgetHands::PressKey(Control& control, Key key) {
  if (!control.TakesFocus()) throw NotFor(control);
  QWidget& widget = WidgetOf(control);
  if (!Approach(control)) return false;
  widget.setFocus(Qt::OtherFocusReason);
  SendKey(widget, key);
  return true;
}

void WidgetHands::PlaceCaret(TextBox& box, bool markAll) {
  auto& line = dynamic_cast<QLineEdit&>(WidgetOf(box));
  Approach(box);
  line.setFocus(Qt::OtherFocusReason);
  line.end(false);
  if (markAll) line.selectAll();
}

bool WidgetHands::Paste(TextBox& box, const std::string& text) {
  auto& line = dynamic_cast<QLineEdit&>(WidgetOf(box));
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
  if (view == nullptr) throw NotFor(control);
  if (row < 0 || row >= view->model()->rowCount() || !Approach(control)) return false;
  if (combo != nullptr) {
    combo->setFocus(Qt::MouseFocusReason);
    combo->showPopup();
  }
  ClickRow(*view, row);
  if (combo != nullptr) combo->hidePopup();
  return true;
}

bool WidgetHands::ChooseEntry(MenuEntry& entry) {
  QAction* const action = OpenEntry(entry);
  if (action == nullptr) return false;
  QMenu& menu = *screen_.OpenMenu();
  SendClick(menu, menu.actionGeometry(action).center());
  return true;
}

bool WidgetHands::Close(Form& form) {
  QWidget& window = screen_.WindowOf(form);
  if (!InFront(window) || window.windowFlags().testFlag(Qt::FramelessWindowHint)) return false;
  window.close();
  return true;
}

bool WidgetHands::Resize(Form& form, int width, int height) {
  QWidget& window = screen_.WindowOf(form);
  if (!InFront(window) || window.minimumSize() == window.maximumSize()) return false;
  window.resize(width, height);
  return true;
}

Sight WidgetHands::See(const Control& control) {
  if (IsMenu(control)) return Hands::See(control);
  const QWidget& widget = WidgetOf(control);
  Sight sight = {!widget.testAttribute(Qt::WA_ForceDisabled), !widget.isHidden(), HasFocus(widget)};
  if (HasCaption(control)) {
    const bool frame = control.Kind() == ControlKind::Frame;
    sight.caption = ToAnsi(widget.property(frame ? "title" : "text").toString());
    // Marks of access keys are the screen's own matter.
    if (Unmarked(*sight.caption) == Unmarked(control.Caption())) sight.caption = control.Caption();
  }
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  if (button && control.Kind() != ControlKind::Button) sight.ticked = button->isChecked();
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    sight.text = ToAnsi(line->text());
    const bool marked = line->hasSelectedText();
    sight.selection = {marked ? line->selectionStart() : line->cursorPosition(),
                       line->selectionLength()};
  } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    sight.rows = RowsOf(*combo->model(), {});
    sight.row = combo->currentIndex();
  } else if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) {
    const auto* table = dynamic_cast<const ListView*>(&control);
    sight.rows = RowsOf(*view->model(), table ? table->Images() : ImageList());
    if (table) sight.columns = ColumnsOf(dynamic_cast<const QTreeView&>(widget), *table);
    if (view->selectionModel()->hasSelection()) sight.row = view->currentIndex().row();
  }
  return sight;
}

Json WidgetHands::DescribeForm(const Form& form) {
  const QWidget& window = screen_.WindowOf(form);
  const bool shown = window.isVisible();
  const bool modal = shown && window.isModal();
  // A modal window stands above those that stay on top, whatever its form says.
  const bool topmost =
      shown && !modal && window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
  const QPoint corner =
      window.geometry().topLeft() - window.screen()->availableGeometry().topLeft();
  return {{"shown", shown},
          {"modal", modal},
          {"topmost", topmost},
          {"caption", TextOfBytes(shown ? ToAnsi(window.windowTitle()) : form.Caption())},
          {"place", {corner.x(), corner.y(), window.width(), window.height()}}};
}

}  // namespace quillmark
