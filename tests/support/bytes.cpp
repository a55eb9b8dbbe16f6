#include "support/bytes.h"

#include <fstream>
#include <stdexcept>

namespace quillmark {

std::string Hex(std::string digits) {
  std::erase(digits, ' ');
  std::string bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
  }
  return bytes;
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
