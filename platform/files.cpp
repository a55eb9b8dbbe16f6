#include "platform/files.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/log.h"
#include "platform/system_path.h"
#include "platform/system_write.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
constexpr char kSeparator = '\\';
#else
constexpr char kSeparator = '/';
#endif
constexpr std::string_view kSeparators = "\\/";

/// What the program alone can say of itself.
struct Surroundings {
  std::string programFolder = ".";
  std::function<bool(const std::string&)> trash;
};

Surroundings& TheProgram() {
  static Surroundings surroundings;
  return surroundings;
}

std::string QuotedPath(std::string_view path) { return "'" + std::string(path) + "'"; }

/// What of a link is to be deleted.
enum class OfLink { Itself, FileBehind };

/// Where `path` stands on disk; the fault if nothing is there, if it is write-protected, which some
/// systems would pass over, if only somebody else may delete it, or if a file number holds it.
fs::path DeletablePath(std::string_view path, OfLink part) {
  fs::path place = PlaceOfFile(path);
  if (place.empty()) {
    throw Fault(FaultKind::File, "there is no file " + QuotedPath(path), std::string(path));
  }
  if (IsWriteProtected(place)) {
    throw Fault(FaultKind::File, "the file " + QuotedPath(path) + " is write-protected",
                std::string(path));
  }
  if (IsKeptForOthers(part == OfLink::Itself ? place : BehindLinks(place))) {
    throw Fault(FaultKind::File, "the file " + QuotedPath(path) + " is somebody else's",
                std::string(path));
  }
  if (Files.IsPathOpen(std::string(path))) {
    throw Fault(FaultKind::File, "the file " + QuotedPath(path) + " is open and can't be deleted",
                std::string(path));
  }
  return place;
}

}  // namespace

std::string PathText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

fs::path SystemPath(std::string_view path) {
  const fs::path plain = FormOfSystem(path);
  const fs::path name = NameOnDisk(plain);
  return name.empty() ? plain : plain.parent_path() / name;
}

fs::path PlaceOfFile(std::string_view path) {
  fs::path place = FormOfSystem(path);
  if (SizeOfFile(place)) return place;
  place = SystemPath(path);
  return SizeOfFile(place) ? place : fs::path();
}

std::string GetPath(std::string_view path) {
  LogWrite("GetPath()");
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
  const fs::path plain = FormOfSystem(path);
  if (plain.filename().empty()) return {};
  const fs::path name = NameOnDisk(plain);
  return !name.empty() && SizeOfFile(plain.parent_path() / name) ? PathText(name) : std::string();
}

std::int64_t FileLength(std::string_view path) {
  const auto size = SizeOfFile(SystemPath(path));
  if (!size)
    throw Fault(FaultKind::File, "the file " + QuotedPath(path) + " has no length",
                std::string(path));
  return static_cast<std::int64_t>(*size);
}

void CheckReplaceable(std::string_view path) { DeletablePath(path, OfLink::FileBehind); }

void EraseFile(std::string_view path) {
  if (const std::error_code error = RemoveFile(DeletablePath(path, OfLink::Itself))) {
    throw Fault(FaultKind::File,
                "the file " + QuotedPath(path) + " can't be deleted: " + error.message(),
                std::string(path));
  }
}

bool PutIntoTrash(const std::string& path) { return HasTrash() && TheProgram().trash(path); }

void SetTrash(std::function<bool(const std::string&)> trash) {
  TheProgram().trash = std::move(trash);
}

bool HasTrash() { return static_cast<bool>(TheProgram().trash); }

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
