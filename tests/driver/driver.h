#pragma once

#include <functional>
#include <optional>
#include <string>

#include "controls/screen.h"
#include "driver/hands.h"

namespace quillmark {

/// A box that waits for a person.
struct OpenBox {
  std::string prompt;
  /// Takes an answer, such as "press Yes", "reply" or "cancel", and the text that goes with it;
  /// false if the box has no such answer.
  std::function<bool(const std::string& answer, const std::string& text)> answer;
};

/// The prompt lines of the boxes.
std::string PromptOf(const Message& box);
std::string PromptOf(const InputBox& box);
std::string PromptOf(const FileRequest& request);
std::string NameOf(BoxButton button);

/// Reads commands from standard input, carries them out with a pair of hands and prints the
/// answers. What waits for a person reads further commands until it is answered.
class Driver {
 public:
  explicit Driver(Hands& hands) : hands_(hands) {}

  /// Everything from the first prompt to the end of the process; returns the exit status.
  int Run();
  /// Serves commands until `done`, or until the process has ended.
  void ServeUntil(const std::function<bool()>& done);
  /// The same with a box open in front of everything.
  void ServeBox(const OpenBox& box, const std::function<bool()>& done);
  /// Serves a box until it is cancelled or has its text, which comes with `answer`.
  std::optional<std::string> AskText(const std::string& prompt, const std::string& answer);

  Hands& TheHands() { return hands_; }
  bool Answer(const std::string& answer, const std::string& text = {});
  /// What can be seen of the control, or of the form with all its controls.
  Json WholeControl(const Control& control);
  Json WholeForm(const Form& form);

 private:
  void Obey(const std::string& input);

  Hands& hands_;
  const OpenBox* box_ = nullptr;
};

}  // namespace quillmark
