#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/desktop.h"
#include "controls/screen.h"

namespace quillmark {

/// A display that nobody looks at: it notes the boxes, presses their first button, and cancels all
/// that asks for more.
class SilentScreen : public Screen {
 public:
  SilentScreen() { TheDesktop().Attach(*this); }

  std::vector<std::string> boxes;  ///< what all boxes said: of those with buttons, the text alone

  BoxButton AskMessage(const Message& box) override {
    boxes.push_back(box.text);
    return box.buttons.front();
  }
  std::optional<std::string> AskText(const InputBox& box) override {
    boxes.push_back(box.title + "|" + box.prompt + "|" + box.text);
    return {};
  }
  std::optional<std::string> AskFile(const FileRequest& request) override {
    boxes.push_back(request.title);
    return {};
  }
  void FormShown(Form& /*form*/) override {}
  void FormHidden(Form& /*form*/) override {}
  void FormChanged(Form& /*form*/) override {}
  void WaitUntilHidden(Form& /*form*/) override {}
  void OpenPopup(PopupMenu& /*menu*/) override {}
  void ClosePopup() override {}
  void StartTimer(Timer& /*timer*/) override {}
  void StopTimer(Timer& /*timer*/) override {}
  void SetPointer(Pointer /*pointer*/) override {}
  std::pair<int, int> Size() const override { return {1366, 768}; }
  void Refresh() override { TheDesktop().TakeChanged(); }
};

}  // namespace quillmark
