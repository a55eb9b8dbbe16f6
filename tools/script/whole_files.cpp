#include "tools/script/whole_files.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <list>
#include <system_error>

#include "platform/fault.h"
#include "platform/system_path.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void ThrowFile(std::string_view path, const std::string& trouble) {
  throw Fault(FaultKind::File, "the file '" + std::string(path) + "' " + trouble);
}

std::string ReadUpTo(std::istream& input, std::string_view name, std::int64_t most) {
  std::string bytes;
  std::array<char, 1 << 16> block{};
  while (input.read(block.data(), block.size()) || input.gcount() > 0) {
    bytes.append(block.data(), static_cast<std::size_t>(input.gcount()));
    if (std::ssize(bytes) > most) {
      ThrowFile(name, "is too large: more than " + std::to_string(most) + " bytes");
    }
  }
  if (input.bad()) ThrowFile(name, "can't be read");
  return bytes;
}

/// A file on its way to its place, with the one that stood there kept until all is done.
class Replacement {
 public:
  explicit Replacement(const NewFile& file) : name_(file.path), place_(SystemPath(file.path)) {
    fresh_ = place_;
    fresh_ += ".quillmark-new";
    former_ = place_;
    former_ += ".quillmark-old";
    std::ofstream output(fresh_, std::ios::binary | std::ios::trunc);
    output.write(file.bytes.data(), static_cast<std::streamsize>(file.bytes.size()));
    output.close();
    if (output) return;
    Forget();
    ThrowFile(name_, "can't be written");
  }
  ~Replacement() { Forget(); }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  void PutInPlace() {
    std::error_code error;
    if (IsThere(place_)) {
      fs::rename(place_, former_, error);
      if (error) ThrowFile(name_, "can't be replaced: " + error.message());
      hasFormer_ = true;
    }
    fs::rename(fresh_, place_, error);
    if (error) ThrowFile(name_, "can't be put in its place: " + error.message());
    inPlace_ = true;
  }
  void Keep() {
    if (hasFormer_) RemoveFile(former_);
    inPlace_ = hasFormer_ = false;
  }

 private:
  void Forget() {
    if (inPlace_) RemoveFile(place_);
    std::error_code ignored;
    if (hasFormer_) fs::rename(former_, place_, ignored);
    RemoveFile(fresh_);
  }

  std::string name_;
  fs::path place_;
  fs::path fresh_;
  fs::path former_;
  bool hasFormer_ = false;
  bool inPlace_ = false;
};

}  // namespace

std::string ReadWholeFile(std::string_view path, std::int64_t most) {
  const fs::path place = PlaceOfFile(path);
  if (place.empty()) ThrowFile(path, "is not there");
  std::ifstream input(place, std::ios::binary);
  if (!input) ThrowFile(path, "can't be opened");
  return ReadUpTo(input, path, most);
}

std::string ReadStandardInput(std::int64_t most) { return ReadUpTo(std::cin, "-", most); }

void WriteWholeFiles(const std::vector<NewFile>& files) {
  std::list<Replacement> replacements;
  for (const NewFile& file : files) replacements.emplace_back(file);
  for (Replacement& replacement : replacements) replacement.PutInPlace();
  for (Replacement& replacement : replacements) replacement.Keep();
}

}  // namespace quillmark
