#include "ui/qt_screen.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <set>

#include "controls/desktop.h"
#include "controls/form.h"
#include "controls/menus.h"
#include "controls/rows_control.h"
#include "controls/timer.h"
#include "ui/ansi_text.h"
#include "ui/file_filters.h"
#include "ui/program_style.h"

namespace quillmark {
namespace {

/// The width that a title bar needs to show the title of `box` whole, beside icon and buttons.
int WidthOfTitle(const QWidget& box) {
  constexpr int buttons = 140;
  QFont font = box.font();
  font.setBold(true);
  return buttons + QFontMetrics(font).horizontalAdvance(box.windowTitle());
}

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::None:
      return QMessageBox::NoIcon;
    case BoxIcon::Critical:
      return QMessageBox::Critical;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Information:
      return QMessageBox::Information;
    case BoxIcon::Warning:
      return QMessageBox::Warning;
  }
  return QMessageBox::NoIcon;
}

QPushButton* AddButton(QMessageBox& box, BoxButton button, const QString& caption) {
  switch (button) {
    case BoxButton::OK:
      return box.addButton(QMessageBox::Ok);
    case BoxButton::Yes:
      return box.addButton(QMessageBox::Yes);
    case BoxButton::No:
      return box.addButton(QMessageBox::No);
    case BoxButton::Cancel:
      return box.addButton(QMessageBox::Cancel);
    case BoxButton::End:
      return box.addButton(caption, QMessageBox::DestructiveRole);
    case BoxButton::Continue:
      return box.addButton(caption, QMessageBox::AcceptRole);
  }
  return nullptr;
}

/// Where the first dialog of a kind starts: the working folder if a script lies there.
QString FirstFolder() {
  const QDir working = QDir::current();
  const bool fits = !working.entryList({QStringLiteral("SCRIPT.DAT")}, QDir::Files).isEmpty();
  return fits ? working.absolutePath() : QDir::homePath();
}

/// Whether to save as `path`: the file that the dialog stood on is meant to be replaced, and any
/// other only if the person says so, in the words of the desktop's own dialogs.
bool MayWrite(const FileDialog& dialog, const QString& path, QWidget* owner) {
  if (!QFileInfo::exists(path) || QFileInfo(path) == QFileInfo(dialog.start)) return true;
  const QString question =
      QCoreApplication::translate("QFileDialog", "%1 already exists.\nDo you want to replace it?");
  return QMessageBox::warning(owner, dialog.title, question.arg(QDir::toNativeSeparators(path)),
                              QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) == QMessageBox::Yes;
}

/// The button that closing the box by its frame presses.
BoxButton ButtonOfFrame(const Message& box) {
  for (const BoxButton wanted :
       {BoxButton::Cancel, BoxButton::No, BoxButton::Continue, BoxButton::OK}) {
    if (std::find(box.buttons.begin(), box.buttons.end(), wanted) != box.buttons.end()) {
      return wanted;
    }
  }
  return BoxButton::End;
}

}  // namespace

QtScreen::QtScreen() {
  QApplication::setQuitOnLastWindowClosed(false);
  auto* const style = new ProgramStyle(QApplication::style()->name());
  style->setParent(QApplication::instance());
  QApplication::setStyle(style);
  clock_.setSingleShot(true);
  clock_.setTimerType(Qt::PreciseTimer);  // no timer may fire before its time
  QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] {
    if (timer_ != nullptr) timer_->Elapse();
  });
}

QtScreen::~QtScreen() { QtScreen::SetPointer(Pointer::Default); }

BoxButton QtScreen::AskMessage(const Message& box) {
  QMessageBox shown(IconOf(box.icon), FromAnsi(box.title), paths_.MakeWhole(FromAnsi(box.text)),
                    QMessageBox::NoButton, FrontWindow());
  shown.setTextFormat(Qt::PlainText);
  std::map<QAbstractButton*, BoxButton> answers;
  const BoxButton ofFrame = ButtonOfFrame(box);
  for (const BoxButton button : box.buttons) {
    const auto caption = box.captions.find(button);
    QPushButton* const pressed = AddButton(
        shown, button, caption == box.captions.end() ? QString() : FromAnsi(caption->second));
    answers[pressed] = button;
    if (button == box.defaultButton) shown.setDefaultButton(pressed);
    if (button == ofFrame) shown.setEscapeButton(pressed);
  }
  // A message box sizes itself; its grid can be given the width that its title needs.
  if (auto* const grid = qobject_cast<QGridLayout*>(shown.layout())) {
    grid->addItem(new QSpacerItem(WidthOfTitle(shown), 0), grid->rowCount(), 0, 1,
                  grid->columnCount());
  }
  shown.setWindowModality(Qt::ApplicationModal);
  shown.show();
  RaiseAboveTopmost(shown);
  WaitFor(shown, [&] { return !shown.isVisible(); });
  const auto answer = answers.find(shown.clickedButton());
  return answer == answers.end() ? ofFrame : answer->second;
}

std::optional<std::string> QtScreen::AskText(const InputBox& box) {
  QInputDialog shown(FrontWindow());
  shown.setWindowTitle(FromAnsi(box.title));
  shown.setLabelText(FromAnsi(box.prompt));
  shown.setTextValue(FromAnsi(box.text));
  // The dialog's layout would undo a width of its own.
  if (auto* const prompt = shown.findChild<QLabel*>()) {
    prompt->setMinimumWidth(WidthOfTitle(shown));
  }
  shown.setWindowModality(Qt::ApplicationModal);
  shown.show();
  RaiseAboveTopmost(shown);
  WaitFor(shown, [&] { return !shown.isVisible(); });
  if (shown.result() != QDialog::Accepted) return std::nullopt;
  return ToAnsi(shown.textValue());
}

std::optional<std::string> QtScreen::AskFile(const FileRequest& request) {
  QString& folder = folders_[{request.save, request.filter}];
  const QString filters = FileFilters(FromAnsi(request.filter));
  if (folder.isEmpty()) folder = FirstFolder();
  const auto path = AskNativeFileDialog(
      {request.save, FromAnsi(request.title),
       request.proposed.empty() ? folder : QString::fromStdString(request.proposed), filters});
  if (!path || path->isEmpty()) return std::nullopt;
  folder = QFileInfo(*path).absolutePath();
  const QString native = QDir::toNativeSeparators(*path);
  paths_.Note(native);
  return native.toStdString();
}

std::optional<QString> QtScreen::AskNativeFileDialog(const FileDialog& dialog) {
  QWidget* const owner = FrontWindow();
  QString start = dialog.start;
  while (true) {
    const QString path =
        dialog.save ? QFileDialog::getSaveFileName(owner, dialog.title, start, dialog.filters,
                                                   nullptr, kSaveDialogOptions)
                    : QFileDialog::getOpenFileName(owner, dialog.title, start, dialog.filters,
                                                   nullptr, kFileDialogOptions);
    if (path.isEmpty()) return std::nullopt;
    if (!dialog.save || MayWrite(dialog, path, owner)) return path;
    start = path;
  }
}

void QtScreen::FormShown(Form& form) {
  QWidget* const owner = FrontWindow();
  FormWindow& window = WindowOf(form);
  Refresh();
  window.RefreshFocus();
  window.Open(owner == &window ? nullptr : owner);
}

void QtScreen::FormHidden(Form& form) {
  WindowOf(form).Conceal();
  if (QWidget* const front = FrontWindow()) front->activateWindow();
}

void QtScreen::FormChanged(Form& form) { WindowOf(form).FollowForm(); }

void QtScreen::WaitUntilHidden(Form& form) {
  WaitFor(WindowOf(form), [&] { return !form.Shown(); });
}

void QtScreen::WaitFor(QWidget& /*window*/, const std::function<bool()>& over) {
  while (!over() && !TheDesktop().Ended()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

void QtScreen::RunUntilEnded() {
  while (!TheDesktop().Ended()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void QtScreen::OpenPopup(PopupMenu& menu) {
  popup_ = std::make_unique<QMenu>();
  popup_->setObjectName(QString::fromStdString(menu.Name()));
  for (MenuEntry* entry : menu.Entries()) {
    QAction* const action = popup_->addAction(FromAnsi(entry->Caption()));
    action->setObjectName(QString::fromStdString(entry->Name()));
    action->setEnabled(entry->Enabled());
    action->setVisible(entry->Visible());
    QObject::connect(action, &QAction::triggered, action, [entry] { entry->Choose(); });
  }
  // The menu hides before it says which entry was chosen, so the news of its end has to wait.
  QObject::connect(
      popup_.get(), &QMenu::aboutToHide, &clock_,
      [&menu] {
        if (TheDesktop().Popup() == &menu) TheDesktop().ClosePopup();
      },
      Qt::QueuedConnection);
  popup_->popup(QCursor::pos());
}

void QtScreen::ClosePopup() {
  // The menu itself may be what is running at this moment.
  if (popup_ == nullptr) return;
  popup_->hide();
  popup_.release()->deleteLater();
}

void QtScreen::StartTimer(Timer& timer) {
  timer_ = &timer;
  clock_.start(timer.Milliseconds());
}

void QtScreen::StopTimer(Timer& /*timer*/) {
  timer_ = nullptr;
  clock_.stop();
}

void QtScreen::SetPointer(Pointer pointer) {
  const bool wanted = pointer == Pointer::Hourglass;
  if (wanted == hourglass_) return;
  hourglass_ = wanted;
  if (wanted) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

std::pair<int, int> QtScreen::Size() const {
  const QSize size = QGuiApplication::primaryScreen()->availableSize();
  return {size.width(), size.height()};
}

std::pair<int, int> QtScreen::NaturalSize(const Form& form) {
  const QSize size = WindowOf(form).NaturalSize();
  return {size.width(), size.height()};
}

void QtScreen::RevealRow(const RowsControl& list, int row) {
  Refresh();
  if (auto* const view = qobject_cast<QAbstractItemView*>(WidgetOf(list))) {
    view->scrollTo(view->model()->index(row, 0));
  }
}

void QtScreen::Refresh() {
  const RefreshScope scope;
  std::set<FormWindow*> touched;
  for (const Control* control : TheDesktop().TakeChanged()) {
    const auto window = windows_.find(&control->Owner());
    if (window == windows_.end()) continue;
    window->second->RefreshControl(*control);
    touched.insert(window->second.get());
  }
  for (FormWindow* window : touched) window->RefreshNames();
  const auto& shown = TheDesktop().ShownForms();
  if (shown.empty()) return;
  FormWindow& front = WindowOf(*shown.back());
  front.RefreshFocus();
  // The program may show a form once more; the person's other programs are none of its business.
  const QWidget* const active = QApplication::activeWindow();
  if (active != nullptr && active != &front && front.isVisible()) {
    front.raise();
    front.activateWindow();
  }
}

QWidget* QtScreen::FrontWindow() const {
  const auto& shown = TheDesktop().ShownForms();
  for (auto form = shown.rbegin(); form != shown.rend(); ++form) {
    const auto window = windows_.find(*form);
    if (window != windows_.end() && window->second->isVisible()) return window->second.get();
  }
  return nullptr;
}

FormWindow& QtScreen::WindowOf(const Form& form) {
  auto& window = windows_[&form];
  if (window == nullptr) {
    Form* const known = TheDesktop().FindForm(form.Name());
    window = std::make_unique<FormWindow>(*known, paths_);
  }
  return *window;
}

QWidget* QtScreen::WidgetOf(const Control& control) {
  return WindowOf(control.Owner()).WidgetOf(control);
}

std::vector<std::string> QtScreen::DrawingErrors() {
  std::vector<std::string> errors;
  for (const Form* form : TheDesktop().Forms()) {
    for (std::string& error : WindowOf(*form).Errors()) errors.push_back(std::move(error));
  }
  return errors;
}

}  // namespace quillmark
