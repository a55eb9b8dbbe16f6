#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <string>

#include "controls/desktop.h"
#include "controls/timer.h"
#include "driver/widget_screen.h"
#include "forms/interface_texts.h"
#include "frame/startup.h"
#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {

/// The program with its main form on the screen, in one of the interface's languages.
class RunningProgram {
 public:
  static inline std::filesystem::path files;  ///< a program's own folder, which is copied

  explicit RunningProgram(const std::string& language = "ENGLISH") {
    const std::filesystem::path own = folder_.path().toStdString();
    std::filesystem::copy(files, own, std::filesystem::copy_options::recursive);
    std::filesystem::rename(own / (language + ".BIN"), own / "language.bin");
    SetProgramFolder(own.string());
    StartProcess();
    if (TheDesktop().RunningTimer() != nullptr) TheDesktop().RunningTimer()->Elapse();
  }
  ~RunningProgram() {
    Files.CloseAll();
    InterfaceTable = {};
    for (Form* form : TheDesktop().Forms()) form->onLoad = form->onShow = form->onUnload = nullptr;
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;

  /// Brings what the controls say onto the screen.
  void Settle() {
    screen.Refresh();
    screen.TheHands().Settle();
  }

  WidgetScreen screen;

 private:
  QTemporaryDir folder_;
};

}  // namespace quillmark
