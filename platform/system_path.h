#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace quillmark {

/// The paths of `platform/files` as the system takes them, and what it is asked of them. Each
/// system has its own file of these routines, but for the first three.

/// The system's form of a UTF-8 path, with the letter case that its last component has on disk.
std::filesystem::path SystemPath(std::string_view path);

/// A path under which the file at `path` can be opened, the given one if it will do; empty if there
/// is no file.
std::filesystem::path PlaceOfFile(std::string_view path);

/// The UTF-8 form of a path of the system.
std::string PathText(const std::filesystem::path& path);

/// The system's form of a UTF-8 path and, where the system needs it, the one without a limit of
/// length. Bytes that are no UTF-8 pass as they are, or as ANSI text where paths are characters.
std::filesystem::path FormOfSystem(std::string_view path);

/// The name on disk of what stands at `path`, the exact one if it is there and otherwise one that
/// differs in letter case alone; empty if there is none.
std::filesystem::path NameOnDisk(const std::filesystem::path& path);

/// Whether a file or a folder stands there.
bool IsThere(const std::filesystem::path& path);

/// Whether anything has that name, be it a link that leads nowhere; nothing if the system does not
/// tell.
std::optional<bool> IsNameTaken(const std::filesystem::path& path);

/// The bytes of the file at `path`; nothing if there is none or it is a folder.
std::optional<std::uint64_t> SizeOfFile(const std::filesystem::path& path);

/// Whether both paths lead to one file that is there.
bool IsSameFile(const std::filesystem::path& one, const std::filesystem::path& other);

/// Whether the file at `path` is there and marked as one that is not to be changed.
bool IsWriteProtected(const std::filesystem::path& path);

/// Whether the folder of `path` lets what stands there, be it a link, be deleted by those alone who
/// own one of the two, and we don't.
bool IsKeptForOthers(const std::filesystem::path& path);

/// Deletes the file; the error if the system refuses.
std::error_code RemoveFile(const std::filesystem::path& path);

}  // namespace quillmark
