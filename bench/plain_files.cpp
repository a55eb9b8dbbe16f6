#include "bench/plain_files.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace quillmark {
namespace {

namespace fs = std::filesystem;

/// Ends the benchmark: figures of work that failed are worth nothing.
void Require(bool holds, const PlainFile& file) {
  if (!holds) throw std::runtime_error("no plain access to " + file.path);
}

}  // namespace

PlainFile TakeFile(const std::string& path, bool deleted) {
  std::ifstream input(path, std::ios::binary);
  return {path, std::string(std::istreambuf_iterator<char>(input), {}), deleted};
}

void ReadPlainly(const PlainFile& file) {
  std::string bytes(fs::file_size(file.path), '\0');
  std::ifstream input(file.path, std::ios::binary);
  input.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  Require(input.good() && bytes.size() == file.bytes.size(), file);
}

void WritePlainly(const PlainFile& file) {
  if (file.deleted) Require(fs::remove(file.path), file);
  // Opened for reading too, so that a file that stays is not emptied first.
  const std::ios::openmode kept = file.deleted ? std::ios::trunc : std::ios::in;
  std::ofstream output(file.path, std::ios::binary | kept);
  output.write(file.bytes.data(), static_cast<std::streamsize>(file.bytes.size()));
  output.close();
  Require(output.good(), file);
}

std::size_t BytesOf(const std::vector<PlainFile>& files) {
  std::size_t bytes = 0;
  for (const PlainFile& file : files) bytes += file.bytes.size();
  return bytes;
}

}  // namespace quillmark
