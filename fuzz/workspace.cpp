#include "fuzz/workspace.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>

#include "platform/files.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

/// Makes the folder and takes it away when the process ends.
class Folder {
 public:
  Folder()
      : path_(fs::temp_directory_path() /
              ("quillmark_fuzz_" + std::to_string(std::random_device()()))) {
    fs::create_directory(path_);
    SetProgramFolder(path_.string());
  }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

 private:
  fs::path path_;
};

}  // namespace

void Require(bool holds, const char* expectation) {
  if (holds) return;
  std::cerr << "not met: " << expectation << '\n';
  std::abort();
}

std::string InWorkspace(std::string_view name) {
  static const Folder folder;
  return ProgramPath(name);
}

void PutFile(std::string_view name, std::string_view bytes) {
  std::ofstream output(InWorkspace(name), std::ios::binary | std::ios::trunc);
  output.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  output.close();
  Require(output.good(), "the workspace can be written");
}

std::string FileBytes(std::string_view name) {
  std::ifstream input(InWorkspace(name), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(input), {});
}

std::string_view InputBytes(const std::uint8_t* data, std::size_t size) {
  return std::string_view(reinterpret_cast<const char*>(data), size);
}

}  // namespace quillmark
