#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quillmark {

/// A one-shot timer of a form. `TheDesktop().Start` sets it running.
class Timer {
 public:
  /// `operation` is the name of what its handler does, for a message about a fault of it.
  Timer(std::string_view operation, int milliseconds)
      : operation_(operation), milliseconds_(milliseconds) {}

  std::function<void()> onElapse;

  int Milliseconds() const { return milliseconds_; }
  /// The time is over: the timer no longer runs, and its handler runs as one act.
  void Elapse();

 private:
  std::string operation_;
  int milliseconds_;
};

}  // namespace quillmark
