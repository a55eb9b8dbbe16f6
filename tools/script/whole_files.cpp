#include "tools/script/whole_files.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <list>
#include <system_error>

#include "platform/fault.h"
#include "platform/system_path.h"
#include "platform/system_write.h"

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
class Arrival {
 public:
  explicit Arrival(const NewFile& file)
      : name_(file.path),
        place_(BehindLinks(SystemPath(file.path))),
        fresh_(place_),
        former_(place_) {
    fresh_ += ".quillmark-new";
    former_ += ".quillmark-old";
    const bool isNew = !IsThere(place_);
    if (!isNew && !fs::is_regular_file(place_)) ThrowFile(name_, "is no file to be written over");
    RefuseLeftover(fresh_);
    if (!isNew) RefuseLeftover(former_);
    Refuse(MakeNewFile(fresh_, isNew ? Readers::Usual : Readers::UsAlone));
    if (const std::error_code error = WriteToDisk(fresh_, file.bytes).error) {
      RemoveFile(fresh_);
      Refuse(error);
    }
    if (!isNew) CopyRights(place_, fresh_);
  }
  ~Arrival() {
    if (arrived_) TakeBack();
    RemoveFile(fresh_);
  }
  Arrival(const Arrival&) = delete;
  Arrival& operator=(const Arrival&) = delete;

  void Arrive() {
    std::error_code error;
    if (IsThere(place_)) {
      if (GiveSecondName(place_, former_)) fs::copy_file(place_, former_, error);
      Refuse(error);
      hasFormer_ = true;
      error = TakeName(fresh_, place_, former_);
    } else {
      fs::rename(fresh_, place_, error);
    }
    arrived_ = !error;
    if (error) TakeBack();
    Refuse(error);
  }
  void Stay() {
    arrived_ = false;
    if (hasFormer_) RemoveFile(former_);
    FlushFolderOf(place_);
  }

 private:
  void Refuse(const std::error_code& error) const {
    if (error) ThrowFile(name_, "can't be written: " + error.message());
  }
  void RefuseLeftover(const fs::path& path) const {
    if (!IsNameTaken(path).value_or(false)) return;
    ThrowFile(name_, "can't be written: '" + PathText(path) +
                         "' is in the way; a write that was broken off may have left it: look at "
                         "it and move it away");
  }
  void TakeBack() {
    std::error_code ignored;
    if (hasFormer_) {
      fs::rename(former_, place_, ignored);
    } else if (arrived_) {
      RemoveFile(place_);
    }
  }

  std::string name_;
  fs::path place_;
  fs::path fresh_;
  fs::path former_;
  bool hasFormer_ = false;
  bool arrived_ = false;
};

}  // namespace

bool IsStream(std::string_view path) {
  std::error_code error;
  const fs::file_status about = fs::status(FormOfSystem(path), error);
  return fs::exists(about) && !fs::is_regular_file(about) && !fs::is_directory(about);
}

std::string ReadWholeFile(std::string_view path, std::int64_t most) {
  const fs::path place = IsStream(path) ? FormOfSystem(path) : PlaceOfFile(path);
  if (place.empty()) ThrowFile(path, IsThere(FormOfSystem(path)) ? "is a folder" : "is not there");
  std::ifstream input(place, std::ios::binary);
  if (!input) ThrowFile(path, "can't be opened");
  return ReadUpTo(input, path, most);
}

std::string ReadStandardInput(std::int64_t most) { return ReadUpTo(std::cin, "-", most); }

void WriteStream(std::string_view path, std::string_view bytes) {
  std::ofstream output(FormOfSystem(path), std::ios::binary);
  output.write(bytes.data(), std::ssize(bytes)).flush();
  if (!output) ThrowFile(path, "can't be written");
}

void WriteWholeFiles(const std::vector<NewFile>& files) {
  std::list<Arrival> arrivals;
  for (const NewFile& file : files) arrivals.emplace_back(file);
  for (Arrival& arrival : arrivals) arrival.Arrive();
  for (Arrival& arrival : arrivals) arrival.Stay();
}

}  // namespace quillmark
