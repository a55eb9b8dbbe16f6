#pragma once

#include <chrono>
#include <functional>
#include <vector>

#include "core/script_copy.h"

namespace quillmark {

/// Keeps copies of a script that nobody has saved, without a word to the user: see
/// `PutIntoRecoveryFolder`. Looking changes nothing of the script, and a copy that can't be written
/// is tried again at the next look. None of these routines throws.
class Recovery {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::seconds kPause{60};

  /// What the script is now counts as kept.
  explicit Recovery(std::function<Clock::time_point()> now = Clock::now);

  /// Looks if the last look is a minute ago.
  void ActIsOver() noexcept;
  /// Writes a copy if the script is not what it was after the last load, save or copy. Does nothing
  /// before there is any level, while a box or a file dialog is open, or while the script is being
  /// replaced. False if something may be left that is not kept.
  bool Look() noexcept;
  /// A load begins, which may leave nothing of the script; looks first.
  void ReplacementBegins() noexcept;
  /// It is over. What is in memory now counts as kept if what was there before is.
  void ReplacementEnds() noexcept;
  void ScriptIsSaved() noexcept { settled_ = true; }

 private:
  void LookNow();

  std::function<Clock::time_point()> now_;
  Clock::time_point lastLook_;
  std::vector<FileCopy> known_;
  bool replacing_ = false;
  bool keptBefore_ = true;  ///< what the replacement began with is kept
  bool settled_ = true;     ///< what is there now shall count as kept
};

/// Keeps recovery copies from now on: of what is unsaved when an act is over, when a load replaces
/// it, and when the process ends.
void KeepRecoveryCopies();

/// The desktop's session ends, and the process with it. Keeps what is unsaved.
void KeepWhatIsUnsaved();

}  // namespace quillmark
