#pragma once

#include "controls/desktop.h"
#include "driver/driver.h"
#include "driver/widget_hands.h"
#include "ui/qt_screen.h"

namespace quillmark {

/// The display on real windows, with the driver as the person in front of it: whatever waits, the
/// windows' own dialogs included, is shown, read and answered by it.
class WidgetScreen : public QtScreen {
 public:
  WidgetScreen() { TheDesktop().Attach(*this); }
  ~WidgetScreen() override { TheDesktop().Reset(); }

  Driver& TheDriver() { return driver_; }
  WidgetHands& TheHands() { return hands_; }

  BoxButton AskMessage(const Message& box) override;
  std::optional<std::string> AskFile(const FileRequest& request) override;
  /// The clock stands still: only the driver lets a timer elapse.
  void StartTimer(Timer& /*timer*/) override {}
  void StopTimer(Timer& /*timer*/) override {}

 protected:
  void WaitFor(QWidget& window, const std::function<bool()>& over) override;
  std::optional<QString> AskNativeFileDialog(const FileDialog& dialog) override;

 private:
  WidgetHands hands_{*this};
  Driver driver_{hands_};
  std::string filter_;                         ///< of the file dialog that is open
  std::map<BoxButton, std::string> captions_;  ///< of the message box that is open
};

}  // namespace quillmark
