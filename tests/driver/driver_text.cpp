#include "driver/driver_text.h"

#include <charconv>

namespace quillmark {

namespace {

constexpr unsigned kFirstTwoByteCharacter = 0x80;

unsigned ByteAt(std::string_view text, std::size_t place) {
  return static_cast<unsigned char>(text.at(place));
}

}  // namespace

std::string BytesOfText(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned lead = ByteAt(text, i);
    if (lead < kFirstTwoByteCharacter) {
      bytes += text[i];
    } else if (lead == 0xC2 || lead == 0xC3) {
      bytes += static_cast<char>(((lead & 0x3U) << 6U) | (ByteAt(text, ++i) & 0x3FU));
    } else {
      throw CommandError("a character of the text stands for no byte");
    }
  }
  return bytes;
}

std::string Quoted(std::string_view bytes) { return JsonLine(TextOfBytes(bytes)); }

void CommandLine::SkipBlanks() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r"), rest_.size()));
}

std::string CommandLine::Word() {
  if (AtEnd()) throw CommandError("the line is too short");
  std::string word(rest_.substr(0, rest_.find_first_of(" \t\r")));
  rest_.remove_prefix(word.size());
  SkipBlanks();
  return word;
}

int CommandLine::Number() {
  const std::string word = Word();
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size()) {
    throw CommandError("no number: " + word);
  }
  return number;
}

std::string CommandLine::Text() {
  const auto value = nlohmann::json::parse(rest_, nullptr, false);
  if (!value.is_string()) throw CommandError("no text in quotes: " + std::string(rest_));
  rest_ = {};
  return value.get<std::string>();
}

void CommandLine::ExpectEnd() const {
  if (!AtEnd()) throw CommandError("too much in the line: " + std::string(rest_));
}

}  // namespace quillmark
