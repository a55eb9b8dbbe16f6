#pragma once

#include <QInputDialog>
#include <QMessageBox>

#include "driver/driver.h"
#include "ui/qt_screen.h"

namespace quillmark {

/// The display on real windows, with the driver as the person in front of it: whatever waits, the
/// windows' own dialogs included, is shown, read and answered by it.
class WidgetScreen : public QtScreen {
 public:
  explicit WidgetScreen(Driver& driver) : driver_(driver) {}

  std::optional<std::string> AskFile(const FileRequest& request) override;
  /// The clock stands still: only the driver lets a timer elapse.
  void StartTimer(Timer& /*timer*/) override {}
  void StopTimer(Timer& /*timer*/) override {}

 protected:
  void WaitFor(QWidget& window, const std::function<bool()>& over) override;
  std::optional<QString> AskNativeFileDialog(const FileDialog& dialog) override;

 private:
  static OpenBox MessageOf(QMessageBox& box);
  static OpenBox InputOf(QInputDialog& dialog);

  Driver& driver_;
  FileRequest request_;
};

}  // namespace quillmark
