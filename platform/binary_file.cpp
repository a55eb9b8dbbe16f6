#include "platform/binary_file.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/disk_access.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "platform/system_path.h"
#include "platform/system_write.h"

namespace quillmark {
namespace {

constexpr std::ios::openmode kRead = std::ios::in | std::ios::binary;
constexpr std::ios::openmode kUpdate = kRead | std::ios::out;
constexpr std::ios::openmode kMake = kUpdate | std::ios::trunc;

/// What was made for a content that did not come, also behind a link, which is the user's.
void RemoveIfEmpty(const std::string& path) {
  std::error_code refused;  // then it stays
  const std::filesystem::path place = BehindLinks(FormOfSystem(path));
  if (std::filesystem::file_size(place, refused) == 0) std::filesystem::remove(place, refused);
}

}  // namespace

BinaryFile BinaryFile::Open(const std::string& path) {
  const std::filesystem::path place = PlaceOfFile(path);
  if (place.empty()) {
    if (IsThere(SystemPath(path))) ThrowFileFault(path, "can't be opened");
    BinaryFile made = Make(path);
    made.inPlace_ = false;
    return made;
  }
  BinaryFile file(path);
  if (!OpenOnDisk(file.disk_, place, kUpdate)) {
    file.writable_ = false;
    if (!OpenOnDisk(file.disk_, place, kRead)) ThrowFileFault(path, "can't be opened");
  }
  return file;
}

BinaryFile BinaryFile::Make(const std::string& path) {
  BinaryFile file(path);
  if (!OpenOnDisk(file.disk_, FormOfSystem(path), kMake)) ThrowFileFault(path, "can't be made");
  file.whole_ = file.fresh_ = file.inPlace_ = true;
  return file;
}

BinaryFile BinaryFile::Replace(const std::string& path) {
  CheckReplaceable(path);
  BinaryFile file(path);
  file.replacement_ = std::make_unique<Replacement>(path, Replacement::OldFile::Discarded,
                                                    Replacement::NoNewFile::Fails);
  file.whole_ = true;
  return file;
}

void BinaryFile::TakeIn() {
  bytes_ += ReadRest(disk_, bytes_.size(), path_);
  whole_ = true;
}

std::string BinaryFile::ReadText(std::int64_t count) {
  if (!whole_) TakeIn();
  if (count <= 0) return {};
  const auto wanted = static_cast<std::size_t>(count);
  const std::size_t left = position_ < bytes_.size() ? bytes_.size() - position_ : 0;
  if (wanted > left) metEnd_ = true;
  std::string text;
  text.reserve(wanted);
  text.append(bytes_, bytes_.size() - left, std::min(wanted, left)).resize(wanted, '\0');
  position_ += wanted;
  return text;
}

void BinaryFile::WriteText(std::string_view bytes) {
  if (!writable_) ThrowFileFault(path_, "may not be written");
  if (bytes.empty()) return;
  if (position_ > bytes_.size() && !whole_) TakeIn();
  const std::size_t end = position_ + bytes.size();
  if (position_ > bytes_.size()) bytes_.resize(position_, '\0');
  const std::size_t replaced = std::min(bytes.size(), bytes_.size() - position_);
  std::copy_n(bytes.begin(), replaced, bytes_.begin() + static_cast<std::ptrdiff_t>(position_));
  bytes_.append(bytes.substr(replaced));
  const bool clean = dirtyFrom_ == dirtyTo_;
  dirtyFrom_ = clean ? position_ : std::min(dirtyFrom_, position_);
  dirtyTo_ = std::max(dirtyTo_, end);
  position_ = end;
}

void BinaryFile::Seek(std::int64_t position) {
  if (position < 0) ThrowFileFault(path_, "has no such position");
  position_ = static_cast<std::size_t>(position);
  metEnd_ = false;
}

std::int64_t BinaryFile::Length() {
  if (!whole_) TakeIn();
  return static_cast<std::int64_t>(bytes_.size());
}

void BinaryFile::Clear() {
  bytes_.clear();
  position_ = dirtyFrom_ = dirtyTo_ = 0;
  metEnd_ = false;
}

void BinaryFile::Flush() {
  const std::size_t from = std::exchange(dirtyFrom_, 0);
  const std::size_t to = std::exchange(dirtyTo_, 0);
  if (from == to && replacement_ == nullptr) return;
  const bool made = std::exchange(fresh_, false);
  if (inPlace_) return WriteInPlace(from, to - from);
  try {
    PutInPlaceOfOld();
  } catch (...) {
    if (made) RemoveIfEmpty(path_);
    throw;
  }
}

void BinaryFile::WriteInPlace(std::size_t from, std::size_t count) {
  const auto dirty = std::string_view(bytes_).substr(from, count);
  if (disk_.pubseekpos(static_cast<std::streamoff>(from)) < 0 || !WriteAtOnce(disk_, dirty)) {
    ThrowFileFault(path_, "can't be written");
  }
}

void BinaryFile::PutInPlaceOfOld() {
  if (!whole_) TakeIn();
  disk_.close();  // some systems replace no file that is open
  auto replacement = std::move(replacement_);
  if (replacement == nullptr) {
    replacement = std::make_unique<Replacement>(path_, Replacement::OldFile::Dropped,
                                                Replacement::NoNewFile::WritesInPlace);
  }
  replacement->Put(bytes_);
}

void BinaryFile::Close() {
  Flush();
  if (disk_.is_open() && disk_.close() == nullptr) ThrowFileFault(path_, "can't be written");
}

}  // namespace quillmark
