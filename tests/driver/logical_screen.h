#pragma once

#include "controls/form.h"
#include "driver/driver.h"
#include "support/silent_screen.h"

namespace quillmark {

/// A display that shows nothing: what asks a person goes to its driver.
class LogicalScreen : public SilentScreen {
 public:
  Driver& TheDriver() { return driver_; }
  Hands& TheHands() { return hands_; }

  BoxButton AskMessage(const Message& box) override {
    std::optional<BoxButton> pressed;
    const auto take = [&](const std::string& answer, const std::string& /*text*/) {
      for (const BoxButton button : box.buttons) {
        if (answer == "press " + NameOf(button)) pressed = button;
      }
      return pressed.has_value();
    };
    driver_.ServeBox({PromptOf(box), take}, [&] { return pressed.has_value(); });
    return pressed.value_or(BoxButton::Cancel);
  }
  std::optional<std::string> AskText(const InputBox& box) override {
    return driver_.AskText(PromptOf(box), "reply");
  }
  std::optional<std::string> AskFile(const FileRequest& request) override {
    return driver_.AskText(PromptOf(request), "choose");
  }
  void WaitUntilHidden(Form& form) override {
    driver_.ServeUntil([&] { return !form.Shown(); });
  }

 private:
  Hands hands_;
  Driver driver_{hands_};
};

}  // namespace quillmark
