#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// The ANSI code page of all texts in controls and of all bytes in the game's files: Windows-1252,
/// made total. The five bytes that it leaves undefined (81, 8D, 8F, 90 and 9D) stand for the
/// control characters of the same number, so that all 256 bytes survive a way there and back.

/// The UTF-8 form of ANSI text. Never fails.
std::string AnsiToUtf8(std::string_view ansi);

/// The ANSI form of UTF-8 text. Never fails: a character that has no byte becomes "?", and so does
/// every byte that belongs to no well-formed character.
std::string Utf8ToAnsi(std::string_view utf8);

/// ANSI text with all letters that have a capital in the code page as capitals.
std::string AnsiInCapitals(std::string_view ansi);

}  // namespace quillmark
