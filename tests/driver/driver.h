#pragma once

#include <functional>
#include <string>

#include "driver/driver_text.h"
#include "driver/hands.h"
#include "platform/desktop.h"

namespace quillmark {

/// A box that waits for a person: its prompt line, and what takes the answer. `answer` returns
/// false for a command that is none of the box's own.
struct OpenBox {
  std::string prompt;
  std::function<bool(const std::string& command, CommandLine& line)> answer;
};

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

  /// The prompt lines of the boxes, and the name that a button has in them.
  static OpenBox MessagePrompt(const MessageBox& box, std::function<void(BoxButton)> press);
  static OpenBox InputPrompt(const InputBox& box, std::function<void(std::string)> reply,
                             std::function<void()> cancel);
  static OpenBox FilePrompt(const FileRequest& request, std::function<void(std::string)> choose,
                            std::function<void()> cancel);

 private:
  void Obey(const std::string& input);
  bool AnswerQuestion(const std::string& word, CommandLine& line);
  /// Carries out one act; false if it was refused.
  bool Act(const std::string& word, CommandLine& line);
  Json WholeControl(const Control& control);
  Json WholeForm(const Form& form);

  Hands& hands_;
  const OpenBox* box_ = nullptr;
};

}  // namespace quillmark
