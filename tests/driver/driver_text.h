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

/// The bytes that the characters of a UTF-8 text stand for; throws `CommandError` for a character
/// that stands for none.
std::string BytesOfText(std::string_view text);

/// `bytes` as a JSON string in its quotes.
std::string Quoted(std::string_view bytes);

/// The words of one line of input, taken one after the other.
class CommandLine {
 public:
  explicit CommandLine(std::string_view line) : rest_(line) { SkipBlanks(); }

  bool AtEnd() const { return rest_.empty(); }
  /// The next word; throws `CommandError` if there is none.
  std::string Word();
  int Number();
  /// The JSON string that the rest of the line is, as UTF-8; `Bytes` as what it stands for.
  std::string Text();
  std::string Bytes() { return BytesOfText(Text()); }
  bool AtQuote() const { return !AtEnd() && rest_.front() == '"'; }
  /// Throws `CommandError` unless all was taken.
  void ExpectEnd() const;

 private:
  void SkipBlanks();

  std::string_view rest_;
};

}  // namespace quillmark
