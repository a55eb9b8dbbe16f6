#pragma once

#include <optional>

#include "driver/driver.h"
#include "platform/desktop.h"
#include "platform/screen.h"

namespace quillmark {

/// A display of 1366 by 768 pixels that shows nothing: what asks a person goes to the driver.
class LogicalScreen : public Screen {
 public:
  explicit LogicalScreen(Driver& driver) : driver_(driver) {}

  BoxButton AskMessage(const MessageBox& box) override {
    std::optional<BoxButton> pressed;
    driver_.ServeBox(Driver::MessagePrompt(box, [&](BoxButton button) { pressed = button; }),
                     [&] { return pressed.has_value(); });
    return pressed.value_or(BoxButton::Cancel);
  }
  std::optional<std::string> AskText(const InputBox& box) override {
    std::optional<std::string> text;
    bool closed = false;
    driver_.ServeBox(Driver::InputPrompt(
                         box, [&](std::string reply) { text = std::move(reply), closed = true; },
                         [&] { closed = true; }),
                     [&] { return closed; });
    return text;
  }
  std::optional<std::string> AskFile(const FileRequest& request) override {
    std::optional<std::string> path;
    bool closed = false;
    driver_.ServeBox(
        Driver::FilePrompt(
            request, [&](std::string chosen) { path = std::move(chosen), closed = true; },
            [&] { closed = true; }),
        [&] { return closed; });
    return path;
  }

  void FormShown(Form& /*form*/) override {}
  void FormHidden(Form& /*form*/) override {}
  void FormChanged(Form& /*form*/) override {}
  void WaitUntilHidden(Form& form) override {
    driver_.ServeUntil([&] { return !form.Shown(); });
  }

  void OpenPopup(PopupMenu& /*menu*/) override {}
  void ClosePopup() override {}
  void StartTimer(Timer& /*timer*/) override {}
  void StopTimer(Timer& /*timer*/) override {}
  void SetPointer(Pointer /*pointer*/) override {}
  std::pair<int, int> Size() const override { return {1366, 768}; }
  void Refresh() override { TheDesktop().TakeChanged(); }

 private:
  Driver& driver_;
};

}  // namespace quillmark
