#include "platform/ansi.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quillmark {
namespace {

constexpr unsigned kFirstSpecial = 0x80;
constexpr char kNoByte = '?';

/// What the bytes 80 to 9F stand for; all others stand for the character of their own number.
constexpr std::array<char32_t, 32> kSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CharacterOf(unsigned byte) {
  const unsigned special = byte - kFirstSpecial;
  return special < kSpecials.size() ? kSpecials[special] : char32_t{byte};
}

char ByteOf(char32_t character) {
  if (character < kFirstSpecial || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(static_cast<unsigned char>(character));
  }
  const auto* const found = std::find(kSpecials.begin(), kSpecials.end(), character);
  if (found == kSpecials.end()) return kNoByte;
  const auto place = static_cast<unsigned>(found - kSpecials.begin());
  return static_cast<char>(static_cast<unsigned char>(kFirstSpecial + place));
}

char CapitalOf(char letter) {
  const auto byte = static_cast<unsigned char>(letter);
  const bool ascii = byte >= 'a' && byte <= 'z';
  const bool accented = byte >= 0xE0 && byte != 0xF7 && byte != 0xFF;  // F7 is a division sign
  if (ascii || accented) return static_cast<char>(byte - 0x20);
  const bool hasCapital16Below = byte == 0x9A || byte == 0x9C || byte == 0x9E;
  if (hasCapital16Below) return static_cast<char>(byte - 0x10);
  return byte == 0xFF ? '\x9F' : letter;
}

struct Decoded {
  char32_t character = 0;
  std::size_t length = 0;  ///< in bytes; 0 for none that is well-formed
};

/// The character that `utf8` begins with.
Decoded Decode(std::string_view utf8) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(utf8[at]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  if (lead < 0xC2 || lead > 0xF4 || utf8.size() < length) return {};
  char32_t character = lead & (0x7FU >> length);
  for (std::size_t at = 1; at < length; ++at) {
    if ((byte(at) & 0xC0U) != 0x80U) return {};
    character = character << 6U | (byte(at) & 0x3FU);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < kSmallest[length] || character > 0x10FFFF || surrogate) return {};
  return {character, length};
}

}  // namespace

std::string AnsiToUtf8(std::string_view ansi) {
  std::string utf8;
  utf8.reserve(ansi.size());
  const auto add = [&](char32_t bits) {
    utf8.push_back(static_cast<char>(static_cast<unsigned char>(bits)));
  };
  for (const char letter : ansi) {
    const char32_t character = CharacterOf(static_cast<unsigned char>(letter));
    if (character < 0x80) {
      add(character);
    } else if (character < 0x800) {
      add(0xC0U | character >> 6U);
      add(0x80U | (character & 0x3FU));
    } else {
      add(0xE0U | character >> 12U);
      add(0x80U | (character >> 6U & 0x3FU));
      add(0x80U | (character & 0x3FU));
    }
  }
  return utf8;
}

std::string Utf8ToAnsi(std::string_view utf8) {
  std::string ansi;
  ansi.reserve(utf8.size());
  while (!utf8.empty()) {
    const Decoded decoded = Decode(utf8);
    ansi.push_back(decoded.length == 0 ? kNoByte : ByteOf(decoded.character));
    utf8.remove_prefix(std::max<std::size_t>(decoded.length, 1));
  }
  return ansi;
}

std::string AnsiInCapitals(std::string_view ansi) {
  std::string capitals(ansi);
  std::transform(capitals.begin(), capitals.end(), capitals.begin(), CapitalOf);
  return capitals;
}

}  // namespace quillmark
