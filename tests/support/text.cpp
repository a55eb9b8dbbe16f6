#include "support/text.h"

#include <fstream>
#include <nlohmann/json.hpp>

#include "tools/json_text.h"

namespace quillmark {

std::string Quoted(std::string_view bytes) { return JsonLine(TextOfBytes(bytes)); }

std::string ReadWord(std::istream& line) {
  std::string word;
  if (!(line >> word)) throw CommandError("the line is too short");
  return word;
}

int ReadNumber(std::istream& line) {
  int number = 0;
  if (!(line >> number)) throw CommandError("no number");
  return number;
}

std::string ReadText(std::istream& line) {
  const auto value = nlohmann::json::parse(line, nullptr, false);
  if (!value.is_string()) throw CommandError("no text in quotes");
  return value.get<std::string>();
}

std::string ReadBytes(std::istream& line) {
  constexpr unsigned kTwoBytes = 0xC0;  // begins a character of two bytes, with its highest bits
  const std::string text = ReadText(line);
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned lead = static_cast<unsigned char>(text[i]);
    if (lead > kTwoBytes + 3) throw CommandError("a character of the text stands for no byte");
    bytes += lead < kTwoBytes ? text[i] : static_cast<char>((lead << 6U) | (text.at(++i) & 0x3F));
  }
  return bytes;
}

void ExpectEnd(std::istream& line) {
  if (!(line >> std::ws).eof()) throw CommandError("too much in the line");
}

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
    text.replace(at, what.size(), with);
  }
  return text;
}

std::string Hex(std::string digits) {
  std::erase(digits, ' ');
  std::string bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

std::string HexOf(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string hex;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    hex += {digits[value / 16], digits[value % 16], ' '};
  }
  return hex;
}

std::string Zeros(std::size_t count) { return std::string(count, '\0'); }

std::string Word(int value) {
  return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}

std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

void MakeFile(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  if (!(file << bytes).flush()) throw std::runtime_error("cannot write " + path);
}

}  // namespace quillmark
