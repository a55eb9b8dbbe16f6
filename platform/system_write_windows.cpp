#include <windows.h>

#include <algorithm>
#include <array>
#include <string>

#include "platform/system_write.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

std::error_code ErrorOf(DWORD number) { return {static_cast<int>(number), std::system_category()}; }

std::error_code LastError() { return ErrorOf(GetLastError()); }

/// A file that the system has open.
class OpenHandle {
 public:
  OpenHandle(const fs::path& path, DWORD access, DWORD share, DWORD creation)
      : handle_(CreateFileW(path.c_str(), access, share, nullptr, creation, FILE_ATTRIBUTE_NORMAL,
                            nullptr)) {}
  ~OpenHandle() {
    if (IsOpen()) CloseHandle(handle_);
  }
  OpenHandle(const OpenHandle&) = delete;
  OpenHandle& operator=(const OpenHandle&) = delete;

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Handle() const { return handle_; }

 private:
  HANDLE handle_;
};

bool WriteAll(HANDLE file, std::string_view content) {
  constexpr std::size_t most = 1U << 20U;
  while (!content.empty()) {
    DWORD count = 0;
    const auto size = static_cast<DWORD>(std::min(content.size(), most));
    if (WriteFile(file, content.data(), size, &count, nullptr) == 0) return false;
    content.remove_prefix(count);
  }
  return true;
}

/// A scanner or an indexer that holds a file lets go of it after a moment.
template <class Try>
std::error_code TryForASecond(const Try& attempt) {
  constexpr DWORD pause = 50;
  std::error_code error;
  for (DWORD waited = 0; waited <= 1000; waited += pause) {
    if (waited > 0) Sleep(pause);
    error = attempt();
    if (!error || !IsRefusal(error)) break;
  }
  return error;
}

std::error_code Replace(const fs::path& fresh, const fs::path& target, const fs::path& second) {
  constexpr DWORD flags = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
  if (ReplaceFileW(target.c_str(), fresh.c_str(), second.c_str(), flags, nullptr, nullptr) != 0) {
    return {};
  }
  const std::error_code error = LastError();
  // It may break off with the old file moved away and the new one not yet in its place.
  const bool noTarget = GetFileAttributesW(target.c_str()) == INVALID_FILE_ATTRIBUTES;
  if (noTarget && MoveFileExW(second.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH) == 0) {
    return LastError();
  }
  return error;
}

}  // namespace

fs::path BehindLinks(const fs::path& place) {
  const DWORD attributes = GetFileAttributesW(place.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return place;
  }
  constexpr DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const OpenHandle file(place, 0, share, OPEN_EXISTING);
  std::array<wchar_t, 32768> name{};
  const auto size = static_cast<DWORD>(name.size());
  const DWORD length = file.IsOpen() ? GetFinalPathNameByHandleW(file.Handle(), name.data(), size,
                                                                 FILE_NAME_NORMALIZED)
                                     : 0;
  if (length == 0 || length >= size) return {};
  return std::wstring(name.data(), length);
}

std::error_code MakeNewFile(const fs::path& path, Readers) {
  const OpenHandle file(path, GENERIC_WRITE, 0, CREATE_NEW);
  return file.IsOpen() ? std::error_code() : LastError();
}

WriteResult WriteToDisk(const fs::path& path, std::string_view content) {
  const OpenHandle file(path, GENERIC_WRITE, 0, OPEN_EXISTING);
  if (!file.IsOpen()) return {LastError(), false};
  if (!WriteAll(file.Handle(), content) || SetEndOfFile(file.Handle()) == 0 ||
      FlushFileBuffers(file.Handle()) == 0) {
    return {LastError(), true};
  }
  return {{}, true};
}

void CopyRights(const fs::path&, const fs::path&) {
  // The step in which the new file takes the name brings the old one's rights along.
}

std::error_code GiveSecondName(const fs::path&, const fs::path&) { return {}; }

std::error_code TakeName(const fs::path& fresh, const fs::path& target, const fs::path& second) {
  return TryForASecond([&] { return Replace(fresh, target, second); });
}

std::error_code FlushFolderOf(const fs::path&) { return {}; }

bool IsRefusal(const std::error_code& error) {
  switch (error.value()) {
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_NOT_SUPPORTED:
    case ERROR_INVALID_FUNCTION:
    case ERROR_INVALID_PARAMETER:
    case ERROR_CALL_NOT_IMPLEMENTED:
    case ERROR_CANNOT_MAKE:
    case ERROR_NOT_SAME_DEVICE:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT:
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT_2:
      return true;
    default:
      return false;
  }
}

}  // namespace quillmark
