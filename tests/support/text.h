#pragma once

#include <istream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmark {

/// A line of input that names something unknown; its text is the answer.
struct CommandError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// `bytes` as a JSON string in its quotes.
std::string Quoted(std::string_view bytes);

// Each takes the next part of a line of input. What is missing or of another kind throws
// `CommandError`.

std::string ReadWord(std::istream& line);
int ReadNumber(std::istream& line);
/// The JSON string that the rest of the line is, as UTF-8, or as the bytes that its characters
/// stand for.
std::string ReadText(std::istream& line);
std::string ReadBytes(std::istream& line);
void ExpectEnd(std::istream& line);

/// `text` with `with` wherever `what` stood.
std::string Replaced(std::string text, const std::string& what, const std::string& with);

/// The bytes that hexadecimal digits stand for; blanks are passed over.
std::string Hex(std::string digits);

/// The same the other way, with a blank behind each byte.
std::string HexOf(std::string_view bytes);
std::string Zeros(std::size_t count);
std::string Word(int value);

/// What a file holds; throws `std::runtime_error` if it can't be read, or made.
std::string Bytes(const std::string& path);
void MakeFile(const std::string& path, std::string_view bytes);

}  // namespace quillmark
