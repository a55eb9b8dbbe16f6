#include "ui/form_window.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "controls/controls.h"
#include "controls/desktop.h"
#include "ui/ansi_text.h"
#include "ui/colour_swatch.h"
#include "ui/column_label.h"
#include "ui/drawing.h"
#include "ui/shortcuts.h"

namespace quillmark {
namespace {

/// How long a window manager may take to answer a size with its own, in milliseconds.
constexpr int kAnswerTime = 250;

/// What a window's frame adds to the height of its title bar, in pixels.
constexpr int kFrameHeight = 8;

Qt::WindowFlags FlagsOf(const Form& form) {
  if (!form.StartState().framed) return Qt::Window | Qt::FramelessWindowHint;
  const Qt::WindowFlags frame = Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  Qt::WindowFlags flags = frame | (form.StartState().minimisable ? Qt::Window : Qt::Dialog);
  flags.setFlag(Qt::WindowMinimizeButtonHint, form.StartState().minimisable);
  flags.setFlag(Qt::WindowMaximizeButtonHint, form.StartState().sizable);
  return flags;
}

/// What the window manager puts around a window.
QMargins FrameOf(const QWidget& window) {
  const QRect inside = window.geometry();
  const QRect outside = window.frameGeometry();
  return {inside.left() - outside.left(), inside.top() - outside.top(),
          outside.right() - inside.right(), outside.bottom() - inside.bottom()};
}

/// The name that the widget of `control` has in the form's drawing.
QString WidgetName(const Control& control) {
  const QString name = QString::fromStdString(control.Name());
  return control.Index() < 0 ? name : name + QLatin1Char('_') + QString::number(control.Index());
}

/// The path of the one file that is being dragged; empty for anything else.
QString DroppedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  return urls.size() == 1 ? QDir::toNativeSeparators(urls.front().toLocalFile()) : QString();
}

/// Whether the widget is of a kind that only controls are drawn with.
bool LooksLikeControl(const QWidget& widget) {
  if (qobject_cast<const ColumnLabel*>(&widget) != nullptr) return false;
  return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
         qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QComboBox*>(&widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
         qobject_cast<const QLabel*>(&widget) != nullptr ||
         qobject_cast<const QGroupBox*>(&widget) != nullptr;
}

/// What a screen reader is told of a tool button. The toolkit's own answer comes only once all that
/// the press has opened is closed again, and the reader hangs for as long.
class ToolButtonForReaders final : public QAccessibleWidget {
 public:
  explicit ToolButtonForReaders(QToolButton& button)
      : QAccessibleWidget(&button, QAccessible::Button), button_(button) {}

  QStringList actionNames() const override {
    if (!button_.isEnabled()) return {};
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
  }

  void doAction(const QString& action) override {
    if (action == pressAction()) {
      button_.animateClick();
    } else {
      QAccessibleWidget::doAction(action);
    }
  }

 private:
  QToolButton& button_;
};

/// A window is one to a screen reader too, which the toolkit says only of its own dialogs.
QAccessibleInterface* TellReaders(const QString& /*className*/, QObject* object) {
  if (auto* const button = qobject_cast<QToolButton*>(object)) {
    return new ToolButtonForReaders(*button);
  }
  auto* const window = dynamic_cast<FormWindow*>(object);
  if (window == nullptr) return nullptr;
  const bool dialog = (window->windowFlags() & Qt::WindowType_Mask) == Qt::Dialog;
  return new QAccessibleWidget(window, dialog ? QAccessible::Dialog : QAccessible::Window);
}

}  // namespace

FormWindow::FormWindow(Form& form, const ChosenPaths& paths)
    : QWidget(nullptr, FlagsOf(form)),
      form_(form),
      paths_(paths),
      content_(new QWidget),
      area_(new QScrollArea) {
  QAccessible::installFactory(TellReaders);  // which counts once
  setObjectName(QString::fromStdString(form.Name()) + QStringLiteral("Window"));
  DrawForm(form, *content_);
  area_->setWidgetResizable(true);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setWidget(content_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(area_);
  for (Control* control : form.Controls()) {
    auto* widget = content_->findChild<QWidget*>(WidgetName(*control));
    if (widget == nullptr) continue;
    auto binding = MakeBinding(*control, *widget);
    if (binding == nullptr) continue;
    byControl_[control] = binding.get();
    bindings_.push_back(std::move(binding));
  }
  for (ColourSwatch* swatch : content_->findChildren<ColourSwatch*>()) swatch->Follow(*content_);
  for (ColumnLabel* label : content_->findChildren<ColumnLabel*>()) label->Follow(*content_);
  setAcceptDrops(form.onFileDropped != nullptr);
  following_.setSingleShot(true);
  connect(&following_, &QTimer::timeout, this, &FormWindow::FollowFrame);
  for (const auto& binding : bindings_) AddShortcut(*binding);
  accessKeys_ = std::make_unique<AccessKeys>(bindings_);
  RefreshAll();
}

FormWindow::~FormWindow() = default;

QWidget* FormWindow::WidgetOf(const Control& control) const {
  const auto found = byControl_.find(&control);
  return found == byControl_.end() ? nullptr : &found->second->Widget();
}

QSize FormWindow::NaturalSize() const {
  return AtLeastNeeded(kept_.value_or(QSize(form_.StartState().width, form_.StartState().height)));
}

QSize FormWindow::WantedSize() const {
  // Captions that came after the form's start may need more than the form knows of.
  return AtLeastNeeded({form_.Position().width, form_.Position().height});
}

QSize FormWindow::Needed() const {
  // As long as nothing is visible, the outer layouts do not hear what has changed inside of them.
  const auto inside = content_->findChildren<QWidget*>();
  std::for_each(inside.rbegin(), inside.rend(), [](const QWidget* widget) {
    if (QLayout* const layout = widget->layout()) layout->activate();
  });
  content_->layout()->activate();
  return content_->minimumSizeHint();
}

QSize FormWindow::AtLeastNeeded(QSize size) const {
  QSize needed = Needed();
  QSize available = screen()->availableSize();
  if (form_.StartState().framed) {
    // Where points are no whole numbers of pixels, a window may lose one of them by rounding.
    if (devicePixelRatioF() != std::floor(devicePixelRatioF())) needed += QSize(1, 1);
    available -= QSize(0, style()->pixelMetric(QStyle::PM_TitleBarHeight) + kFrameHeight);
  }
  const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  size = size.expandedTo(needed);
  // A side that has to scroll takes room for its bar from the other one.
  if (needed.height() > available.height()) size.rwidth() += scrollBar;
  if (needed.width() > available.width()) size.rheight() += scrollBar;
  return size.boundedTo(available);
}

void FormWindow::Open(QWidget* owner) {
  setWindowModality(form_.Modal() ? Qt::ApplicationModal : Qt::NonModal);
  winId();
  QWindow* above = owner == nullptr ? nullptr : owner->windowHandle();
  windowHandle()->setTransientParent(form_.StartState().minimisable ? nullptr : above);
  // A window that fills the screen needs its place, too, for the time when it does not any more.
  const bool filling = isMaximized();
  setWindowState(Qt::WindowNoState);
  placed_.reset();
  PlaceAbove(owner);
  FollowForm();
  if (filling) setWindowState(Qt::WindowMaximized);
  form_.SetMaximised(filling);
  show();
  if (form_.Modal()) RaiseAboveTopmost(*this);
  activateWindow();
}

void FormWindow::PlaceAbove(QWidget* owner) {
  const Place& place = form_.Position();
  if (place.left != 0 || place.top != 0 || owner == nullptr) return;
  // The window's own frame is known only when it is on the screen, but all frames are alike.
  const QMargins frame = FrameOf(*owner);
  const QRect area = screen()->availableGeometry();
  QRect around(QPoint(), WantedSize().grownBy(frame));
  around.moveCenter(owner->frameGeometry().center());
  const QString over = content_->property("opensOver").toString();
  if (const auto* part = over.isEmpty() ? nullptr : owner->findChild<QWidget*>(over)) {
    around.moveLeft(part->mapToGlobal(part->rect().center()).x() - around.width() / 2);
  }
  around.moveRight(std::min(around.right(), area.right()));
  around.moveBottom(std::min(around.bottom(), area.bottom()));
  around.moveTo(std::max(around.left(), area.left()), std::max(around.top(), area.top()));
  setGeometry(around.marginsRemoved(frame));
  placed_ = QPoint(place.left, place.top);
}

void FormWindow::Conceal() {
  hide();
  // Not before: the window manager would answer, and be heard when it has taken back that the
  // window fills the screen.
  windowHandle()->setFlag(Qt::WindowStaysOnTopHint, false);
}

void FormWindow::FollowCaption() {
  // A path that is chosen later may look like the one in the caption, until a caption is set for
  // it.
  if (titled_ == form_.CaptionsSet()) return;
  titled_ = form_.CaptionsSet();
  setWindowTitle(paths_.MakeWhole(FromAnsi(form_.Caption())));
}

void FormWindow::FollowForm() {
  FollowCaption();
  const auto& place = form_.Position();
  if (!isMaximized()) {
    if (!form_.StartState().sizable) {
      setFixedSize(WantedSize());
    } else {
      // A form that has a say in its size must hear of every other one.
      if (!form_.onResize) setMinimumSize(AtLeastNeeded({}));
      resize(WantedSize());
    }
    const QPoint corner(place.left, place.top);
    // A form's place is that of its inside, as its size is.
    if (placed_ != corner) {
      setGeometry({corner + screen()->availableGeometry().topLeft(), size()});
      placed_ = corner;
    }
  }
  // A flag of the widget would make its window anew and put it on the screen a second time, in a
  // race with the window manager that is about to give the first one its frame.
  if (form_.Topmost()) windowHandle()->setFlag(Qt::WindowStaysOnTopHint);
  // The title bar of a form without a caption would show the name of the executable.
  const QString standIn = form_.Caption().empty() ? FromAnsi(kProgramName) : QString();
  if (!standIn.isEmpty()) windowHandle()->setTitle(standIn);
  setAccessibleName(standIn);
}

void FormWindow::RefreshAll() {
  const RefreshScope scope;
  for (const auto& binding : bindings_) binding->Refresh();
  RefreshNames();
}

void FormWindow::RefreshControl(const Control& control) {
  const auto found = byControl_.find(&control);
  if (found != byControl_.end()) found->second->Refresh();
}

void FormWindow::RefreshFocus() {
  const Control* const focus = form_.Focus();
  QWidget* const widget = focus == nullptr ? nullptr : WidgetOf(*focus);
  if (widget == nullptr || focusWidget() == widget) return;
  widget->setFocus(Qt::OtherFocusReason);
  area_->ensureWidgetVisible(widget);
}

QString FormWindow::AccessibleNameOf(const Control& control) const {
  std::string name = control.SpokenName();
  for (const Control* frame = control.Parent(); name.empty() && frame != nullptr;
       frame = frame->Parent()) {
    name = frame->SpokenName();
  }
  if (name.empty()) name = form_.Caption();
  return FromAnsi(name.empty() ? kProgramName : name);
}

void FormWindow::RefreshNames() {
  accessKeys_->Refresh();
  std::map<std::pair<ControlKind, QString>, std::vector<QWidget*>> named;
  for (const auto& binding : bindings_) {
    const Control& control = binding->TheControl();
    if (!control.TakesFocus() || !control.Visible()) continue;
    named[{control.Kind(), AccessibleNameOf(control)}].push_back(&binding->Widget());
  }
  for (const auto& [kindAndName, widgets] : named) {
    for (std::size_t i = 0; i < widgets.size(); ++i) {
      const QString number = widgets.size() == 1 ? QString() : QStringLiteral(" %1").arg(i + 1);
      const QString name = kindAndName.second + number;
      if (widgets[i]->accessibleName() != name) widgets[i]->setAccessibleName(name);
      if (auto* combo = qobject_cast<QComboBox*>(widgets[i])) {
        combo->view()->setAccessibleName(name);
      }
    }
  }
}

std::string FormWindow::TabOrderError() const {
  std::vector<const Binding*> drawn;
  for (const QWidget* widget = content_->nextInFocusChain(); widget != content_;
       widget = widget->nextInFocusChain()) {
    for (const auto& binding : bindings_) {
      if (&binding->Widget() == widget && binding->TheControl().TakesFocus()) {
        drawn.push_back(binding.get());
      }
    }
  }
  auto place = drawn.begin();
  for (const auto& binding : bindings_) {
    if (!binding->TheControl().TakesFocus()) continue;
    if (place == drawn.end() || *place != binding.get()) {
      return form_.Name() + " draws " + binding->TheControl().FullName() + " out of the tab order";
    }
    ++place;
  }
  return {};
}

std::string FormWindow::LabelError(const Binding& binding) const {
  const auto* const label = qobject_cast<const QLabel*>(&binding.Widget());
  if (label == nullptr || label->buddy() == nullptr) return {};
  const bool leadsOn = std::any_of(bindings_.begin(), bindings_.end(), [&](const auto& box) {
    return &box->Widget() == label->buddy() && box->TheControl().NamedBy() == &binding.TheControl();
  });
  if (leadsOn) return {};
  return form_.Name() + " draws " + binding.TheControl().FullName() +
         " as the label of a box that it does not name";
}

std::vector<std::string> FormWindow::Errors() const {
  std::vector<std::string> errors;
  for (const Control* control : form_.Controls()) {
    const bool menu =
        control->Kind() == ControlKind::PopupMenu || control->Kind() == ControlKind::MenuEntry;
    if (!menu && WidgetOf(*control) == nullptr) {
      errors.push_back("no " + std::string(KindName(control->Kind())) + " is drawn for " +
                       form_.Name() + "." + control->FullName());
    }
  }
  for (const QWidget* widget : content_->findChildren<QWidget*>()) {
    // What a widget is made of inside has no name, or one of the toolkit's own.
    const QString name = widget->objectName();
    if (!LooksLikeControl(*widget) || name.isEmpty() || name.startsWith(QLatin1String("qt_"))) {
      continue;
    }
    const bool bound = std::any_of(bindings_.begin(), bindings_.end(), [&](const auto& binding) {
      return &binding->Widget() == widget || binding->Widget().isAncestorOf(widget);
    });
    if (!bound) errors.push_back(form_.Name() + " draws the unknown control " + name.toStdString());
  }
  for (const auto& binding : bindings_) {
    if (std::string error = LabelError(*binding); !error.empty()) errors.push_back(error);
  }
  if (std::string error = TabOrderError(); !error.empty()) errors.push_back(std::move(error));
  return errors;
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  form_.Close();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (isVisible()) following_.start();
}

void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || !form_.Shown() || !isVisible()) return;
  form_.SetMaximised(isMaximized());
  FollowFrame();
}

void FormWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QString path = DroppedFile(*event);
  if (!path.isEmpty() && form_.TakesFile(path.toStdString())) event->acceptProposedAction();
}

void FormWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  // The program that the file comes from must not have to wait for what happens now.
  QMetaObject::invokeMethod(
      this, [this, path = DroppedFile(*event).toStdString()] { form_.DropFile(path); },
      Qt::QueuedConnection);
}

void FormWindow::FollowFrame() {
  if (!form_.Shown() || isMinimized()) return;
  if (size() == WantedSize()) return;
  // A window manager that insists on its own size would go on asking for ever.
  if (size() == refused_ && sinceRefused_.isValid() && sinceRefused_.elapsed() < kAnswerTime)
    return;
  const QSize dragged = size();
  if (!form_.DragTo(dragged.width(), dragged.height())) FollowForm();
  if (size() != dragged) {
    refused_ = dragged;
    sinceRefused_.start();
  } else if (!isMaximized()) {
    kept_ = dragged;
  }
}

void RaiseAboveTopmost(QWidget& window) {
  const auto& shown = TheDesktop().ShownForms();
  const bool hides =
      std::any_of(shown.begin(), shown.end(), [](const Form* form) { return form->Topmost(); });
  window.windowHandle()->setFlag(Qt::WindowStaysOnTopHint, hides);
}

}  // namespace quillmark
