#include "platform/files.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/system_path.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
constexpr std::string_view kSeparators = "\\/";
constexpr char kSeparator = '\\';
constexpr std::size_t kLongPath = 248;
#else
constexpr std::string_view kSeparators = "\\/";
constexpr char kSeparator = '/';
#endif

struct Place {
  std::string programFolder = ".";
  std::function<bool(const std::string&)> trash;
};

Place& TheProgram() {
  static Place place;
  return place;
}

fs::path PlainPath(std::string_view path) {
  return fs::path(std::u8string(path.begin(), path.end()));
}

/// Lifts the limit that Windows sets to the length of paths that are not marked.
fs::path Unlimited(fs::path path) {
#ifdef _WIN32
  path.make_preferred();
  if (path.native().size() >= kLongPath && path.is_absolute() &&
      !path.native().starts_with(L"\\\\")) {
    return fs::path(L"\\\\?\\" + path.native());
  }
#endif
  return path;
}

/// The entry of `folder` that is `name` but for its letter case; empty if there is none.
fs::path SameButForCase(const fs::path& folder, const std::string& name) {
  const std::string wanted = UpperCased(name);
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

std::string QuotedPath(std::string_view path) { return "'" + std::string(path) + "'"; }

/// Where `path` stands on disk; the fault if nothing is there or a file number holds it.
fs::path DeletablePath(std::string_view path) {
  if (FindFile(path).empty()) {
    throw Fault(FaultKind::File, "there is no file " + QuotedPath(path));
  }
  if (Files.IsPathOpen(std::string(path))) {
    throw Fault(FaultKind::File, "the file " + QuotedPath(path) + " is open and can't be deleted");
  }
  return SystemPath(path);
}

}  // namespace

std::string PathText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

fs::path SystemPath(std::string_view path) {
  fs::path plain = Unlimited(PlainPath(path));
  std::error_code error;
  if (fs::exists(plain, error)) return plain;
  const fs::path name = SameButForCase(plain.parent_path(), PathText(plain.filename()));
  return name.empty() ? plain : plain.parent_path() / name;
}

std::string GetPath(std::string_view path) {
  const std::size_t separator = path.find_last_of(kSeparators);
  return separator == std::string_view::npos ? std::string()
                                             : std::string(path.substr(0, separator));
}

std::string FileNameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of(kSeparators);
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  return std::string(folder) + kSeparator + std::string(name);
}

std::string FindFile(std::string_view path) {
  const fs::path plain = Unlimited(PlainPath(path));
  std::error_code error;
  const fs::path folder = plain.parent_path();
  const fs::path exact = plain.filename();
  if (exact.empty()) return {};
#ifndef _WIN32
  if (fs::is_regular_file(plain, error)) return PathText(exact);
#endif
  const fs::path found = SameButForCase(folder, PathText(exact));
  return !found.empty() && fs::is_regular_file(folder / found, error) ? PathText(found)
                                                                      : std::string();
}

std::int64_t FileLength(std::string_view path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(SystemPath(path), error);
  if (error) throw Fault(FaultKind::File, "the file " + QuotedPath(path) + " has no length");
  return static_cast<std::int64_t>(size);
}

void DeleteFile(std::string_view path) {
  const fs::path place = DeletablePath(path);
  std::error_code error;
  if (!fs::remove(place, error) || error) {
    throw Fault(FaultKind::File,
                "the file " + QuotedPath(path) + " can't be deleted: " + error.message());
  }
}

void DiscardFile(std::string_view path) {
  const fs::path place = DeletablePath(path);
  const auto& trash = TheProgram().trash;
  std::error_code error;
  if (trash && trash(PathText(place)) && !fs::exists(place, error)) return;
  DeleteFile(path);
}

void SetTrash(std::function<bool(const std::string&)> trash) {
  TheProgram().trash = std::move(trash);
}

const std::string& ProgramFolder() { return TheProgram().programFolder; }

void SetProgramFolder(std::string folder) { TheProgram().programFolder = std::move(folder); }

std::string ProgramPath(std::string_view name) { return JoinPath(ProgramFolder(), name); }

std::string UpperCased(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return result;
}

}  // namespace quillmark
