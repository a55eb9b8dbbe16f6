#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// The bytes that hexadecimal digits stand for; blanks are passed over.
std::string Hex(std::string digits);

/// What a file holds; throws `std::runtime_error` if it can't be read, or made.
std::string Bytes(const std::string& path);
void MakeFile(const std::string& path, std::string_view bytes);

}  // namespace quillmark
