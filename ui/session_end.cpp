#include "ui/session_end.h"

#include <QGuiApplication>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#endif

namespace quillmark {
namespace {

#ifdef Q_OS_UNIX

/// A signal may come in the middle of anything, so it is only noted in the one end, and met in the
/// event loop at the other.
std::array<int, 2> signalEnds{};

void NoteSignal(int number) {
  const int error = errno;
  const char byte = static_cast<char>(number);
  // If that fails a second signal ends the process, which the system meets by itself.
  (void)!write(signalEnds[0], &byte, 1);
  errno = error;
}

void MeetSignal(void (*ending)()) {
  char byte = 0;
  if (read(signalEnds[1], &byte, 1) != 1) return;
  ending();
  std::raise(byte);
}

void CallAtSignals(QGuiApplication& application, void (*ending)()) {
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalEnds.data()) != 0) return;
  auto* const notifier = new QSocketNotifier(signalEnds[1], QSocketNotifier::Read, &application);
  QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                   [ending] { MeetSignal(ending); });
  struct sigaction once {};
  once.sa_handler = NoteSignal;
  once.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
  for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
    struct sigaction former {};
    sigaction(number, nullptr, &former);
    // What is passed over at the start stays so.
    if (former.sa_handler == SIG_DFL) sigaction(number, &once, nullptr);
  }
}

#else

void CallAtSignals(QGuiApplication&, void (*)()) {
  // The system announces the end to the application.
}

#endif

}  // namespace

void CallAtEndOfSession(QGuiApplication& application, void (*ending)()) {
  QObject::connect(&application, &QGuiApplication::commitDataRequest, ending);
  QObject::connect(&application, &QCoreApplication::aboutToQuit, ending);
  CallAtSignals(application, ending);
}

}  // namespace quillmark
