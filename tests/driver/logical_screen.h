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
    return AskAnything(
        [&](auto answer, auto cancel) { return Driver::InputPrompt(box, answer, cancel); });
  }
  std::optional<std::string> AskFile(const FileRequest& request) override {
    return AskAnything(
        [&](auto answer, auto cancel) { return Driver::FilePrompt(request, answer, cancel); });
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
  /// Opens the box that `open` makes of what takes its answer and its cancellation.
  template <class Open>
  std::optional<std::string> AskAnything(const Open& open) {
    std::optional<std::string> answer;
    bool closed = false;
    driver_.ServeBox(open([&](std::string text) { answer = std::move(text), closed = true; },
                          [&] { closed = true; }),
                     [&] { return closed; });
    return answer;
  }

  Driver& driver_;
};

}  // namespace quillmark
