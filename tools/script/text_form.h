#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmark {

/// Bytes of the game's files as text that people read, compare and edit, and back without loss.
///
/// Text is UTF-8. Control characters, and the bytes that the code page leaves undefined, are
/// written as `\x` and two hexadecimal digits. Any other backslash stands for itself; only one that
/// would begin such an escape is written as `\x5C`. Strings and names carry a zero as their last
/// byte, which the text leaves out; one that lacks it ends in `\x--`.

inline constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// A text that stands for no bytes; `what()` tells why.
struct NoBytes : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The bytes as text. Line ends stay as they are if `keepLineEnds` is set.
std::string EscapedText(std::string_view bytes, bool keepLineEnds = false);
/// The same for a string or a name, without its last zero.
std::string EscapedEntry(std::string_view entry, bool keepLineEnds = false);

/// The bytes of a string or name that `EscapedEntry` gives `text` for. Throws `NoBytes` for a
/// character outside of the code page.
std::string EntryBytes(std::string_view text);

/// UTF-8 text in the code page. Throws `NoBytes` for a character outside of it.
std::string InCodePage(std::string_view text);

}  // namespace quillmark
