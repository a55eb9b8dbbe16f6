#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/system_write.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kForUsAlone = S_IRUSR | S_IWUSR;
constexpr mode_t kForAll = kForUsAlone | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

std::error_code LastError() { return {errno, std::generic_category()}; }

/// A file that the system has open.
class Descriptor {
 public:
  Descriptor(const fs::path& path, int flags, mode_t mode = 0)
      : number_(open(path.c_str(), flags | O_CLOEXEC, mode)) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }
  /// The error if the system tells only now of trouble with what was written.
  std::error_code Close() {
    const int result = close(number_);
    number_ = -1;
    return result == 0 ? std::error_code() : LastError();
  }

 private:
  int number_;
};

/// The system may take less at once than it is given.
std::error_code WriteAll(int number, std::string_view content) {
  while (!content.empty()) {
    const ssize_t count = write(number, content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return LastError();
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return {};
}

/// The finer rights, where the file has any; else those go that the folder gives to new files.
void CopyAccessList(const fs::path& from, const fs::path& to) {
  constexpr const char* kAccessList = "system.posix_acl_access";
  std::array<char, 4096> list{};
  const ssize_t length = getxattr(from.c_str(), kAccessList, list.data(), list.size());
  if (length > 0) {
    setxattr(to.c_str(), kAccessList, list.data(), static_cast<std::size_t>(length), 0);
  } else {
    removexattr(to.c_str(), kAccessList);
  }
}

}  // namespace

fs::path BehindLinks(const fs::path& place) {
  std::error_code error;
  const fs::file_status about = fs::symlink_status(place, error);
  if (!fs::status_known(about)) return {};
  if (!fs::is_symlink(about)) return place;
  return fs::canonical(place, error);
}

std::error_code MakeNewFile(const fs::path& path, Readers readers) {
  Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL,
                  readers == Readers::Usual ? kForAll : kForUsAlone);
  if (!file.IsOpen()) return LastError();
  const std::error_code error = file.Close();
  if (error) unlink(path.c_str());
  return error;
}

WriteResult WriteToDisk(const fs::path& path, std::string_view content) {
  Descriptor file(path, O_WRONLY);
  if (!file.IsOpen()) return {LastError(), false};
  if (const std::error_code error = WriteAll(file.Number(), content)) return {error, true};
  if (ftruncate(file.Number(), static_cast<off_t>(content.size())) != 0 ||
      fsync(file.Number()) != 0) {
    return {LastError(), true};
  }
  return {file.Close(), true};
}

void CopyRights(const fs::path& from, const fs::path& to) {
  struct stat about {};
  if (stat(from.c_str(), &about) != 0) return;
  mode_t mode = about.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
  const bool sameOwner = about.st_uid == geteuid() && about.st_gid == getegid();
  if (!sameOwner && chown(to.c_str(), about.st_uid, about.st_gid) != 0 &&
      chown(to.c_str(), static_cast<uid_t>(-1), about.st_gid) != 0) {
    mode &= ~static_cast<mode_t>(S_IRWXG);  // another group must not get what was the first one's
  }
  CopyAccessList(from, to);
  chmod(to.c_str(), mode);
}

std::error_code GiveSecondName(const fs::path& path, const fs::path& second) {
  return link(path.c_str(), second.c_str()) == 0 ? std::error_code() : LastError();
}

std::error_code TakeName(const fs::path& fresh, const fs::path& target, const fs::path&) {
  return rename(fresh.c_str(), target.c_str()) == 0 ? std::error_code() : LastError();
}

std::error_code FlushFolderOf(const fs::path& path) {
  const fs::path folder = path.parent_path();
  const Descriptor names(folder.empty() ? fs::path(".") : folder, O_RDONLY | O_DIRECTORY);
  return names.IsOpen() && fsync(names.Number()) == 0 ? std::error_code() : LastError();
}

bool IsRefusal(const std::error_code& error) {
  switch (error.value()) {
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case EXDEV:
    case EINVAL:
    case ENOSYS:
    case EOPNOTSUPP:
      return true;
    default:
      return false;
  }
}

}  // namespace quillmark
