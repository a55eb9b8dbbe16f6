#pragma once

#include <functional>

namespace quillmark {

/// A one-shot timer of a form. `TheDesktop().Start` sets it running.
class Timer {
 public:
  explicit Timer(int milliseconds) : milliseconds_(milliseconds) {}

  std::function<void()> onElapse;

  int Milliseconds() const { return milliseconds_; }
  /// The time is over: the timer no longer runs, and its handler runs as one act.
  void Elapse();

 private:
  int milliseconds_;
};

}  // namespace quillmark
