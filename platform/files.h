#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// What the program asks of the file system outside of the file numbers. Paths are UTF-8 as the
/// platform gives them. Everything that differs between the systems is decided in this unit:
/// separators, letter case, long paths, the deletion of an open file, the form of the time.

/// The folder part: everything before the last separator, a backslash or a slash. Empty if there
/// is no separator.
std::string GetPath(std::string_view path);

/// What stands behind the last separator.
std::string FileNameOf(std::string_view path);

/// `folder`, the platform's separator, `name`.
std::string JoinPath(std::string_view folder, std::string_view name);

/// Directory search for one path: the name of the file as it stands on disk, or an empty text. The
/// exact name is preferred; otherwise the letter case of the last component does not matter.
std::string FindFile(std::string_view path);

/// The same for several upper-cased names in one folder, by one search.
std::vector<std::string> FindFiles(std::string_view folder,
                                   std::span<const std::string_view> names);

/// Bytes of the file at `path`, found as `FindFile` does. Throws the file fault if there is none.
std::int64_t FileLength(std::string_view path);

/// Throws the file fault if `EraseFile` would, as far as that can be told without trying; but of a
/// link it asks whether the file that it leads to may be deleted.
void CheckReplaceable(std::string_view path);

/// Deletes the file at `path`, found as `FindFile` does. Throws the file fault if there is none, if
/// it is write-protected or open under any file number, or if the system refuses.
void EraseFile(std::string_view path);

/// Names the desktop's trash: a routine that takes a path, and moves the file there or leaves it
/// and gives false. Only the program itself names one; an empty routine takes it away.
void SetTrash(std::function<bool(const std::string& path)> trash);
bool HasTrash();

/// Moves the file to the trash; false if there is none or it refuses.
bool PutIntoTrash(const std::string& path);

/// The program's own folder, set once at start.
const std::string& ProgramFolder();
void SetProgramFolder(std::string folder);

/// The path of `name` in the program's own folder.
std::string ProgramPath(std::string_view name);

/// The present date and time in the system's own short form, as ANSI text.
std::string PresentTime();

/// The present date and time in a form that sorts and that any file may be named by, such as
/// "2004-11-05 18.30.00".
std::string PresentTimeAsName();

/// ASCII letters in capitals; all other bytes stay.
std::string UpperCased(std::string_view text);

}  // namespace quillmark
