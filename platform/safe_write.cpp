#include "platform/safe_write.h"

#include <fstream>
#include <utility>

#include "platform/disk_access.h"
#include "platform/files.h"
#include "platform/system_path.h"
#include "platform/system_write.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr int kMostNames = 1000;
/// Leaves room for the endings below in a name of the longest length that systems have.
constexpr std::size_t kLongestStem = 200;

std::vector<KeptContent> keptContents;

/// A name beside `target` that tells whose file it is and what it is.
fs::path NameBeside(const fs::path& target, const char* what, int count) {
  fs::path::string_type name = target.filename().native();
  if (name.size() > kLongestStem) name.resize(kLongestStem);
  fs::path beside = target.parent_path() / name;
  beside += std::string(".quillmark-") + what + "-" + std::to_string(count);
  return beside;
}

/// A system that fails to tell is no reason to leave a file behind.
bool MayBeThere(const fs::path& path) { return IsNameTaken(path).value_or(true); }

}  // namespace

Replacement::Replacement(std::string path, OldFile old, NoNewFile noNewFile)
    : path_(std::move(path)), old_(old), target_(BehindLinks(SystemPath(path_))) {
  if (target_.empty()) ThrowFileFault(path_, "leads nowhere");
  MakeBeside(noNewFile);
}

Replacement::~Replacement() {
  if (!fresh_.empty()) RemoveFile(fresh_);
}

void Replacement::Fail(const std::error_code& error) const {
  ThrowFileFault(path_, "can't be written: " + error.message());
}

void Replacement::MakeBeside(NoNewFile noNewFile) {
  std::error_code error;
  // What an earlier run left behind is the user's, so its names are passed over.
  for (int count = 1; count <= kMostNames; ++count) {
    fresh_ = NameBeside(target_, "new", count);
    second_ = NameBeside(target_, "old", count);
    if (IsNameTaken(second_).value_or(false)) continue;
    error = MakeNewFile(fresh_);
    if (!error) return;
    if (!IsNameTaken(fresh_).value_or(false)) break;
  }
  fresh_.clear();
  if (noNewFile == NoNewFile::Fails || !IsRefusal(error)) Fail(error);
}

void Replacement::Put(std::string_view content) {
  if (fresh_.empty()) {
    if (const WriteResult over = WriteToDisk(target_, content); over.error) Fail(over.error);
    return;
  }
  WriteFresh(content);
  if (old_ == OldFile::Discarded && HasTrash()) KeepOld();
  TakeNameOrWriteOver(content);
  const std::error_code error = FlushFolderOf(target_);
  DiscardOld();
  if (error && !IsRefusal(error)) Fail(error);
}

void Replacement::WriteFresh(std::string_view content) const {
  if (const WriteResult written = WriteToDisk(fresh_, content); written.error) Fail(written.error);
  CopyRights(target_, fresh_);
}

void Replacement::KeepOld() const {
  if (GiveSecondName(target_, second_)) CopyOld();
}

void Replacement::CopyOld() const {
  std::filebuf disk;
  if (!OpenOnDisk(disk, target_, std::ios::in | std::ios::binary)) {
    ThrowFileFault(path_, "can't be read");
  }
  const std::string content = ReadRest(disk, 0, path_);
  std::error_code error = MakeNewFile(second_);
  if (error) Fail(error);
  error = WriteToDisk(second_, content).error;
  if (!error) return CopyRights(target_, second_);
  RemoveFile(second_);
  Fail(error);
}

void Replacement::TakeNameOrWriteOver(std::string_view content) {
  const std::error_code error = TakeName(fresh_, target_, second_);
  if (!error) return fresh_.clear();
  if (!MayBeThere(target_)) {  // the second name is all that is left of the old file
    if (MayBeThere(fresh_)) KeepFresh();
    Fail(error);
  }
  // A second name of the same file would be written over with it.
  RemoveFile(second_);
  if (!IsRefusal(error)) Fail(error);
  if (old_ == OldFile::Discarded && HasTrash()) CopyOld();
  WriteOver(content);
}

void Replacement::WriteOver(std::string_view content) {
  const WriteResult over = WriteToDisk(target_, content);
  if (!over.error) return;
  if (over.begun) {
    KeepFresh();
  } else {
    RemoveFile(second_);
  }
  Fail(over.error);
}

void Replacement::KeepFresh() {
  keptContents.push_back({path_, PathText(fresh_)});
  fresh_.clear();
}

void Replacement::DiscardOld() const {
  if (!MayBeThere(second_)) return;
  if (old_ == OldFile::Discarded && PutIntoTrash(PathText(second_))) return;
  if (const std::error_code error = RemoveFile(second_)) Fail(error);
}

std::vector<KeptContent> TakeKeptContents() { return std::exchange(keptContents, {}); }

}  // namespace quillmark
