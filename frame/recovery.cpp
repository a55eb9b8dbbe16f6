#include "frame/recovery.h"

#include <exception>
#include <utility>

#include "controls/desktop.h"
#include "core/script_model.h"
#include "editor/editor_form.h"
#include "frame/recovery_folder.h"
#include "strings/language_files.h"

namespace quillmark {
namespace {

std::vector<FileCopy> CopyOfAll() {
  std::vector<FileCopy> files = CopiesOfLoadedLanguages();
  files.insert(files.begin(), CopyOfScript(TRScript));
  return files;
}

Recovery& TheRecovery() {
  static Recovery recovery;
  return recovery;
}

}  // namespace

Recovery::Recovery(std::function<Clock::time_point()> now)
    : now_(std::move(now)), lastLook_(now_()) {
  Look();
}

void Recovery::ActIsOver() noexcept {
  if (settled_ || now_() - lastLook_ >= kPause) Look();
}

bool Recovery::Look() noexcept {
  if (replacing_ || TheDesktop().BoxIsOpen()) return false;
  lastLook_ = now_();
  try {
    LookNow();
    return true;
  } catch (const std::exception&) {
    return false;  // what is there for the worst case must not become it
  }
}

void Recovery::LookNow() {
  std::vector<FileCopy> files = CopyOfAll();
  if (!settled_ && files == known_) return;
  // Before the first load there are dialogs that change the empty script: nobody misses that.
  if (!settled_ && TRScript.NumLevels > 0) PutIntoRecoveryFolder(files);
  settled_ = false;
  known_ = std::move(files);
}

void Recovery::ReplacementBegins() noexcept {
  keptBefore_ = Look();
  replacing_ = true;
}

void Recovery::ReplacementEnds() noexcept {
  replacing_ = false;
  settled_ = keptBefore_;
}

void KeepRecoveryCopies() {
  Recovery& recovery = TheRecovery();
  TheDesktop().SetActListeners(
      {.actIsOver = [&recovery] { recovery.ActIsOver(); }, .ending = KeepWhatIsUnsaved});
  SetScriptListeners({.replacing = [&recovery] { recovery.ReplacementBegins(); },
                      .replaced = [&recovery] { recovery.ReplacementEnds(); },
                      .saved = [&recovery] { recovery.ScriptIsSaved(); }});
}

void KeepWhatIsUnsaved() { TheRecovery().Look(); }

}  // namespace quillmark
