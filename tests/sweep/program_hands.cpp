// Lets the real program take acts from standard input and answer as the driver does, as far as the
// sweep needs it. It is loaded into the program, which knows nothing of it.

#include <dlfcn.h>

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QSessionManager>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>

namespace quillmark {
namespace {

QString Caption(const QAbstractButton& button) { return button.text().remove('&'); }

class Hands {
 public:
  Hands() {
    QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] { Look(); });
    clock_.start(2);
  }

 private:
  /// Says once what the program waits for, then does what the next line says.
  void Look() {
    auto* const modal = QApplication::activeModalWidget();
    if (auto* const box = qobject_cast<QMessageBox*>(modal)) {
      // The dialog's own question whether the file is to be replaced.
      if (qobject_cast<QFileDialog*>(box->parentWidget()) != nullptr) return Press(*box, "Yes");
      if (box == done_) return;
      QString buttons;
      for (const auto* button : box->buttons()) buttons += Caption(*button) + ' ';
      const bool good = box->icon() == QMessageBox::Information;
      return Ask(*box, (good ? "box information " : "box critical ") + buttons + '"' +
                           box->text().replace('\n', ' ') + '"');
    }
    if (qobject_cast<QFileDialog*>(modal) != nullptr) {
      if (modal != done_) Ask(*modal, "file dialog");
    } else if (QWidget* const window = Front(modal)) {
      Ask(*window, "ready");
    }
  }

  /// The form that an act can reach; none while an act is under way.
  QWidget* Front(QWidget* modal) const {
    if (modal != nullptr) return modal;
    return acts_ == 0 ? Window("frmEditor") : nullptr;
  }

  static QWidget* Window(const QString& form) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == form + "Window" && window->isVisible()) return window;
    }
    return nullptr;
  }

  void Ask(QWidget& waiting, const QString& prompt) {
    done_ = nullptr;
    std::cout << prompt.toStdString() << std::endl;
    std::string line;
    if (!std::getline(std::cin, line)) std::_Exit(EXIT_SUCCESS);
    const QString text = QString::fromStdString(line);
    const QString rest = text.section(' ', 1);
    if (text.startsWith("click ")) return Click(rest.section('.', 0, 0), rest.section('.', 1));
    if (text.startsWith("timer")) return;
    if (text.startsWith("logout")) return EndSession();
    done_ = &waiting;
    if (auto* const dialog = qobject_cast<QFileDialog*>(&waiting)) {
      if (rest.isEmpty()) return dialog->reject();
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText(rest.mid(1, rest.size() - 2));
      QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    } else if (auto* const box = qobject_cast<QMessageBox*>(&waiting)) {
      Press(*box, rest);
    }
  }

  /// What the desktop does when the person logs out.
  static void EndSession() {
    emit qGuiApp->commitDataRequest(*qGuiApp->findChild<QSessionManager*>());
  }

  static void Press(const QMessageBox& box, const QString& caption) {
    for (auto* button : box.buttons()) {
      if (Caption(*button) == caption) return button->click();
    }
  }

  void Click(const QString& form, QString control) {
    QWidget* const window = Window(form);
    control.replace('(', '_').remove(')');  // the widget of one of several controls
    auto* const button = window == nullptr ? nullptr : window->findChild<QAbstractButton*>(control);
    if (button == nullptr) return;
    ++acts_;
    // Not from here: no timer elapses within its own event, and the act may open a dialog.
    QMetaObject::invokeMethod(
        &clock_,
        [this, button] {
          button->click();
          // Over only when the program waits again: it may have been its last act.
          QObject::connect(
              QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
              &clock_, [this] { --acts_; }, Qt::SingleShotConnection);
        },
        Qt::QueuedConnection);
  }

  QTimer clock_;
  QPointer<QWidget> done_;  ///< what has had its answer and may still be in sight
  int acts_ = 0;
};

void Begin() {
  static Hands* const hands = new Hands;
  (void)hands;
  std::atexit([] { std::cout << "ended" << std::endl; });
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Begin)

// The splash form is for people.
extern "C" void StartTimer(QTimer* timer, int milliseconds) __asm__("_ZN6QTimer5startEi");
extern "C" void StartTimer(QTimer* timer, int milliseconds) {
  static const auto next =
      reinterpret_cast<void (*)(QTimer*, int)>(dlsym(RTLD_NEXT, "_ZN6QTimer5startEi"));
  next(timer, milliseconds > 1000 ? 1 : milliseconds);
}

}  // namespace quillmark
