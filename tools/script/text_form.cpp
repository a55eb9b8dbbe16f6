#include "tools/script/text_form.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/ansi.h"

namespace quillmark {
namespace {

constexpr std::string_view kEscape = "\\x";
constexpr std::string_view kUnterminated = "\\x--";
constexpr std::size_t kEscapeLength = 4;

/// The bytes without a character that can be seen, beside those below a blank.
constexpr std::array<unsigned, 6> kUnseen = {0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D};

bool IsSeen(unsigned byte) {
  return byte >= ' ' && std::find(kUnseen.begin(), kUnseen.end(), byte) == kUnseen.end();
}

bool IsHexPair(std::string_view digits) {
  return digits.size() == 2 &&
         digits.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

bool BeginsEscape(std::string_view text) {
  return text.starts_with(kUnterminated) ||
         (text.starts_with(kEscape) && IsHexPair(text.substr(kEscape.size(), 2)));
}

/// The bytes of `text`, escapes apart, and what it says of its own end.
std::string Unescaped(std::string_view text) {
  std::string bytes;
  std::size_t plainFrom = 0;
  const auto takePlain = [&](std::size_t to) {
    bytes += InCodePage(text.substr(plainFrom, to - plainFrom));
  };
  for (std::size_t at = text.find('\\'); at != std::string_view::npos; at = text.find('\\', at)) {
    const std::string_view digits = text.substr(at).substr(0, kEscapeLength);
    if (!BeginsEscape(digits) || digits == kUnterminated) {
      ++at;
      continue;
    }
    takePlain(at);
    unsigned byte = 0;
    std::from_chars(digits.data() + kEscape.size(), digits.data() + digits.size(), byte, 16);
    bytes += static_cast<char>(static_cast<unsigned char>(byte));
    at += kEscapeLength;
    plainFrom = at;
  }
  takePlain(text.size());
  return bytes;
}

}  // namespace

std::string EscapedText(std::string_view bytes, bool keepLineEnds) {
  std::string text;
  text.reserve(bytes.size());
  std::size_t seenFrom = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const unsigned byte = static_cast<unsigned char>(bytes[at]);
    if (bytes[at] == '\\' ? !BeginsEscape(bytes.substr(at, kEscapeLength)) : IsSeen(byte)) continue;
    if (keepLineEnds && bytes[at] == '\n') continue;
    text += AnsiToUtf8(bytes.substr(seenFrom, at - seenFrom));
    text += {'\\', 'x', kHexDigits[byte >> 4U], kHexDigits[byte & 0xFU]};
    seenFrom = at + 1;
  }
  return text += AnsiToUtf8(bytes.substr(seenFrom));
}

std::string EscapedEntry(std::string_view entry, bool keepLineEnds) {
  if (!entry.ends_with('\0')) {
    return EscapedText(entry, keepLineEnds) + std::string(kUnterminated);
  }
  return EscapedText(entry.substr(0, entry.size() - 1), keepLineEnds);
}

std::string EntryBytes(std::string_view text) {
  if (!text.ends_with(kUnterminated)) return Unescaped(text) + '\0';
  return Unescaped(text.substr(0, text.size() - kUnterminated.size()));
}

std::string InCodePage(std::string_view text) {
  std::string bytes = Utf8ToAnsi(text);
  if (AnsiToUtf8(bytes) == text) return bytes;
  // Name the first letter that has no byte: the longest start that survives ends in front of it.
  std::size_t start = 0;
  std::size_t end = 0;
  while (end < text.size()) {
    start = end++;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) ++end;
    const std::string_view letter = text.substr(start, end - start);
    if (AnsiToUtf8(Utf8ToAnsi(letter)) != letter) {
      throw NoBytes("the letter '" + std::string(letter) + "' is not in the code page");
    }
  }
  throw NoBytes("the text is no UTF-8");
}

}  // namespace quillmark
