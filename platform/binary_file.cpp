#include "platform/binary_file.h"

#include <algorithm>

#include "platform/disk_access.h"
#include "platform/system_path.h"

namespace quillmark {
namespace {

constexpr std::ios::openmode kRead = std::ios::in | std::ios::binary;
constexpr std::ios::openmode kUpdate = kRead | std::ios::out;
constexpr std::ios::openmode kMake = kUpdate | std::ios::trunc;

}  // namespace

BinaryFile BinaryFile::Open(const std::string& path) {
  const std::filesystem::path place = PlaceOfFile(path);
  if (place.empty()) {
    if (IsThere(SystemPath(path))) ThrowFileFault(path, "can't be opened");
    return Make(path);
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
  file.whole_ = file.fresh_ = true;
  return file;
}

void BinaryFile::TakeIn() {
  std::string onDisk = ReadWhole(disk_, path_);
  if (bytes_.empty()) {
    bytes_ = std::move(onDisk);
  } else if (bytes_.size() < onDisk.size()) {
    bytes_.append(onDisk, bytes_.size());
  }
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
  if (dirtyFrom_ == dirtyTo_) return;
  const auto from = static_cast<std::streamoff>(dirtyFrom_);
  const auto dirty = std::string_view(bytes_).substr(dirtyFrom_, dirtyTo_ - dirtyFrom_);
  dirtyFrom_ = dirtyTo_ = 0;
  fresh_ = false;
  if (disk_.pubseekpos(from) < 0 || !WriteAtOnce(disk_, dirty)) {
    ThrowFileFault(path_, "can't be written");
  }
}

void BinaryFile::Close() {
  Flush();
  if (disk_.close() == nullptr) ThrowFileFault(path_, "can't be written");
}

}  // namespace quillmark
