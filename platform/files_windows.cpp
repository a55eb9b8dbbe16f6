#include <windows.h>

#include <algorithm>
#include <array>
#include <iomanip>
#include <locale>
#include <sstream>
#include <utility>

#include "platform/ansi.h"
#include "platform/files.h"
#include "platform/system_path.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

// The library's own looks at a file take the mark of a long path for a wildcard, so this unit asks
// Windows itself.

constexpr std::size_t kLongPath = 248;  // the least of the limits, that of folders
constexpr std::wstring_view kMark = L"\\\\?\\";

std::optional<WIN32_FILE_ATTRIBUTE_DATA> AttributesOf(const fs::path& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == 0) return std::nullopt;
  return data;
}

/// Which file this is, whatever path leads to it: the numbers of its volume and of itself.
std::optional<std::array<DWORD, 3>> IdentityOf(const fs::path& path) {
  constexpr DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(path.c_str(), 0, share, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  BY_HANDLE_FILE_INFORMATION about{};
  const bool known = GetFileInformationByHandle(file, &about) != 0;
  CloseHandle(file);
  if (!known) return std::nullopt;
  return std::array{about.dwVolumeSerialNumber, about.nFileIndexHigh, about.nFileIndexLow};
}

bool IsUtf8(std::string_view text) {
  return text.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(),
                                             static_cast<int>(text.size()), nullptr, 0) > 0;
}

/// What a routine of Windows makes of a time for the user.
std::wstring Formatted(decltype(GetTimeFormatW)& format, DWORD flags, const SYSTEMTIME& time) {
  std::array<wchar_t, 128> text{};
  const int length = format(LOCALE_USER_DEFAULT, flags, &time, nullptr, text.data(),
                            static_cast<int>(text.size()));
  return {text.data(), static_cast<std::size_t>(std::max(length - 1, 0))};
}

}  // namespace

fs::path FormOfSystem(std::string_view path) {
  const std::string text = IsUtf8(path) ? std::string(path) : AnsiToUtf8(path);
  fs::path form(std::u8string(text.begin(), text.end()));
  form.make_preferred();
  if (form.native().size() < kLongPath || form.native().starts_with(kMark)) return form;
  std::error_code error;
  const std::wstring whole = fs::absolute(form, error).lexically_normal().native();
  if (error) return form;
  const bool onNetwork = whole.starts_with(L"\\\\");
  return std::wstring(kMark) + (onNetwork ? L"UNC" + whole.substr(1) : whole);
}

fs::path NameOnDisk(const fs::path& path) {
  if (path.filename().native().find_first_of(L"*?") != std::wstring::npos) return {};
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW(path.c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return {};
  FindClose(search);
  return entry.cFileName;
}

std::vector<std::string> FindFiles(std::string_view folder,
                                   std::span<const std::string_view> names) {
  std::vector<std::string> found;
  for (const std::string_view name : names) found.push_back(FindFile(JoinPath(folder, name)));
  return found;
}

bool IsThere(const fs::path& path) { return AttributesOf(path).has_value(); }

std::optional<bool> IsNameTaken(const fs::path& path) {
  if (AttributesOf(path)) return true;
  const DWORD error = GetLastError();
  const bool isFree = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
  return isFree ? std::optional(false) : std::nullopt;
}

std::optional<std::uint64_t> SizeOfFile(const fs::path& path) {
  const auto data = AttributesOf(path);
  if (!data || (data->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::nullopt;
  return std::uint64_t{data->nFileSizeHigh} << 32U | data->nFileSizeLow;
}

bool IsSameFile(const fs::path& one, const fs::path& other) {
  const auto identity = IdentityOf(one);
  return identity && identity == IdentityOf(other);
}

bool IsWriteProtected(const fs::path& path) {
  const auto data = AttributesOf(path);
  return data && (data->dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool IsKeptForOthers(const fs::path&) { return false; }

std::error_code RemoveFile(const fs::path& path) {
  if (DeleteFileW(path.c_str()) != 0) return {};
  return {static_cast<int>(GetLastError()), std::system_category()};
}

std::string PresentTime() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return Utf8ToAnsi(PathText(Formatted(GetDateFormatW, DATE_SHORTDATE, now) + L' ' +
                             Formatted(GetTimeFormatW, 0, now)));
}

std::string PresentTimeAsName() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::setfill('0') << std::setw(4) << now.wYear;
  for (const auto& [separator, part] :
       {std::pair('-', now.wMonth), std::pair('-', now.wDay), std::pair(' ', now.wHour),
        std::pair('.', now.wMinute), std::pair('.', now.wSecond)}) {
    text << separator << std::setw(2) << part;
  }
  return text.str();
}

}  // namespace quillmark
