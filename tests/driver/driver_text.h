#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "tools/json_text.h"

namespace quillmark {

/// A line of input that names something unknown; its text is the answer.
struct CommandError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// `bytes` as a JSON string in its quotes.
std::string Quoted(std::string_view bytes);

/// The words of one line of input, taken one after the other. What is missing or of another kind
/// throws `CommandError`.
class CommandLine {
 public:
  explicit CommandLine(std::string_view line) : rest_(line) { SkipBlanks(); }

  bool AtEnd() const { return rest_.empty(); }
  bool AtQuote() const { return rest_.starts_with('"'); }
  std::string Word();
  int Number();
  /// The JSON string that the rest of the line is, as UTF-8; `Bytes` as what its characters stand
  /// for.
  std::string Text();
  std::string Bytes();
  void ExpectEnd() const;

 private:
  void SkipBlanks();

  std::string_view rest_;
};

}  // namespace quillmark
