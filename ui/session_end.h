#pragma once

class QGuiApplication;

namespace quillmark {

/// Has `ending` called when the person's session on the desktop ends: when the desktop announces
/// that, or asks the process to end by a signal, as most desktops of Linux do, which then ends it.
/// It is called once or several times, always by the event loop of the main thread.
void CallAtEndOfSession(QGuiApplication& application, void (*ending)());

}  // namespace quillmark
