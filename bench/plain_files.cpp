#include "bench/plain_files.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "platform/system_write.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

/// Ends the benchmark: figures of work that failed are worth nothing.
void Require(bool holds, const PlainFile& file) {
  if (!holds) throw std::runtime_error("no plain access to " + file.path);
}

void WriteScratch(const PlainFile& file) {
  Require(fs::remove(file.path), file);
  std::ofstream output(file.path, std::ios::binary | std::ios::trunc);
  output.write(file.bytes.data(), static_cast<std::streamsize>(file.bytes.size()));
  output.close();
  Require(output.good(), file);
}

}  // namespace

PlainFile TakeFile(const std::string& path, bool scratch) {
  std::ifstream input(path, std::ios::binary);
  return {path, std::string(std::istreambuf_iterator<char>(input), {}), scratch};
}

void ReadPlainly(const PlainFile& file) {
  std::string bytes(fs::file_size(file.path), '\0');
  std::ifstream input(file.path, std::ios::binary);
  input.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  Require(input.good() && bytes.size() == file.bytes.size(), file);
}

void WritePlainly(const PlainFile& file) {
  if (file.scratch) return WriteScratch(file);
  const fs::path fresh = file.path + ".new";
  Require(!MakeNewFile(fresh) && !WriteToDisk(fresh, file.bytes).error &&
              !TakeName(fresh, file.path, file.path + ".old") && !FlushFolderOf(file.path),
          file);
}

std::size_t BytesOf(const std::vector<PlainFile>& files) {
  std::size_t bytes = 0;
  for (const PlainFile& file : files) bytes += file.bytes.size();
  return bytes;
}

}  // namespace quillmark
