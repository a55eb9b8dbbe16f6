#include "driver/driver_text.h"

#include <charconv>

namespace quillmark {

namespace {

constexpr std::string_view kBlanks = " \t\r";

}  // namespace

std::string Quoted(std::string_view bytes) { return JsonLine(TextOfBytes(bytes)); }

void CommandLine::SkipBlanks() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
}

std::string CommandLine::Word() {
  if (AtEnd()) throw CommandError("the line is too short");
  std::string word(rest_.substr(0, rest_.find_first_of(kBlanks)));
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

std::string CommandLine::Bytes() {
  constexpr unsigned kTwoBytes = 0xC0;  // begins a character of two bytes, with its highest bits
  const std::string text = Text();
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned lead = static_cast<unsigned char>(text[i]);
    if (lead > kTwoBytes + 3) throw CommandError("a character of the text stands for no byte");
    bytes += lead < kTwoBytes ? text[i] : static_cast<char>((lead << 6U) | (text.at(++i) & 0x3F));
  }
  return bytes;
}

void CommandLine::ExpectEnd() const {
  if (!AtEnd()) throw CommandError("too much in the line: " + std::string(rest_));
}

}  // namespace quillmark
