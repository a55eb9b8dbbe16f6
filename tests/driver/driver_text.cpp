#include "driver/driver_text.h"

#include <charconv>

namespace quillmark {

namespace {

constexpr unsigned kFirstTwoByteCharacter = 0x80;
constexpr unsigned kFirstPrintable = 0x20;
constexpr unsigned kDeleteCharacter = 0x7F;

std::string Escape(unsigned character) {
  constexpr std::string_view digits = "0123456789abcdef";
  return std::string("\\u00") + digits[character >> 4U] + digits[character & 0xFU];
}

unsigned ByteAt(std::string_view text, std::size_t place) {
  return static_cast<unsigned char>(text.at(place));
}

}  // namespace

std::string TextOfBytes(std::string_view bytes) {
  std::string text;
  for (const char character : bytes) {
    const unsigned byte = static_cast<unsigned char>(character);
    if (byte < kFirstTwoByteCharacter) {
      text += character;
    } else {
      text += static_cast<char>(0xC0U | (byte >> 6U));
      text += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return text;
}

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

std::string JsonLine(const Json& value) {
  const std::string dumped = value.dump(-1, ' ', false, Json::error_handler_t::replace);
  std::string line;
  for (std::size_t i = 0; i < dumped.size(); ++i) {
    const unsigned byte = ByteAt(dumped, i);
    if (byte == '\\') {
      const std::string_view shortForms = "bfnrt";
      const std::string_view characters = "\b\f\n\r\t";
      const std::size_t form = shortForms.find(dumped.at(++i));
      if (form == std::string_view::npos) {
        line.append(dumped, i - 1, 2);
      } else {
        line += Escape(ByteAt(characters, form));
      }
    } else if (byte == kDeleteCharacter) {
      line += Escape(byte);
    } else if (byte == 0xC2 && ByteAt(dumped, i + 1) < kFirstTwoByteCharacter + kFirstPrintable) {
      line += Escape(ByteAt(dumped, ++i));
    } else {
      line += dumped[i];
    }
  }
  return line;
}

std::string Quoted(std::string_view bytes) { return JsonLine(TextOfBytes(bytes)); }

void CommandLine::SkipBlanks() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r"), rest_.size()));
}

std::string CommandLine::Word() {
  if (AtEnd()) throw CommandError("the line is too short");
  const std::string word(rest_.substr(0, rest_.find_first_of(" \t\r")));
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
