#pragma once

#include <filesystem>
#include <random>
#include <string>

#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {

/// A new folder that is the program's own, gone with the object.
class TemporaryFolder {
 public:
  TemporaryFolder()
      : path_(std::filesystem::temp_directory_path() /
              ("quillmark_bench_" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directory(path_);
    SetProgramFolder(path_.string());
  }
  ~TemporaryFolder() {
    Files.CloseAll();
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::string File(const char* name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace quillmark
