#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <iomanip>
#include <locale>
#include <sstream>
#include <stdexcept>

#include "platform/ansi.h"
#include "platform/files.h"
#include "platform/system_path.h"

namespace quillmark {

namespace fs = std::filesystem;

fs::path FormOfSystem(std::string_view path) { return path; }

fs::path NameOnDisk(const fs::path& path) {
  if (IsThere(path)) return path.filename();
  const std::string wanted = UpperCased(PathText(path.filename()));
  const fs::path folder = path.parent_path();
  std::error_code error;
  fs::path found;
  for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error), end;
       !error && entry != end; entry.increment(error)) {
    const fs::path candidate = entry->path().filename();
    if (UpperCased(PathText(candidate)) != wanted) continue;
    if (found.empty() || candidate < found) found = candidate;
  }
  return found;
}

std::vector<std::string> FindFiles(std::string_view folder,
                                   std::span<const std::string_view> names) {
  std::vector<std::string> found(names.size());
  std::error_code error;
  for (fs::directory_iterator entry(FormOfSystem(JoinPath(folder, "")), error), end;
       !error && entry != end; entry.increment(error)) {
    std::string name = entry->path().filename().string();
    const auto wanted = std::find(names.begin(), names.end(), UpperCased(name));
    if (wanted == names.end() || !entry->is_regular_file(error)) continue;
    std::string& best = found[static_cast<std::size_t>(wanted - names.begin())];
    if (best != *wanted && (best.empty() || name == *wanted || name < best)) best = std::move(name);
  }
  return found;
}

bool IsThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

std::optional<bool> IsNameTaken(const fs::path& path) {
  std::error_code error;
  const fs::file_status about = fs::symlink_status(path, error);
  return fs::status_known(about) ? std::optional(fs::exists(about)) : std::nullopt;
}

std::optional<std::uint64_t> SizeOfFile(const fs::path& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  return error ? std::nullopt : std::optional<std::uint64_t>(size);
}

bool IsSameFile(const fs::path& one, const fs::path& other) {
  std::error_code error;
  return fs::equivalent(one, other, error) && !error;
}

bool IsWriteProtected(const fs::path& path) {
  std::error_code error;
  const fs::perms modes = fs::status(path, error).permissions();
  return !error && (modes & fs::perms::owner_write) == fs::perms::none;
}

bool IsKeptForOthers(const fs::path& path) {
  std::error_code error;
  const fs::path above = fs::absolute(path, error).parent_path();
  struct stat file {};
  struct stat folder {};
  if (lstat(path.c_str(), &file) != 0 || stat(above.c_str(), &folder) != 0) return false;
  const uid_t user = geteuid();
  const bool isOurs = user == 0 || user == file.st_uid || user == folder.st_uid;
  return (folder.st_mode & S_ISVTX) != 0 && !isOurs;
}

std::error_code RemoveFile(const fs::path& path) {
  std::error_code error;
  fs::remove(path, error);
  return error;
}

namespace {

std::tm LocalTime() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  return parts;
}

}  // namespace

std::string PresentTime() {
  const std::tm parts = LocalTime();
  std::ostringstream text;
  try {
    text.imbue(std::locale(""));
  } catch (const std::runtime_error&) {
    text.imbue(std::locale::classic());  // a system whose own locale is not installed
  }
  text << std::put_time(&parts, "%x %X");
  return Utf8ToAnsi(text.str());
}

std::string PresentTimeAsName() {
  const std::tm parts = LocalTime();
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::put_time(&parts, "%Y-%m-%d %H.%M.%S");
  return text.str();
}

}  // namespace quillmark
