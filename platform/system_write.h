#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace quillmark {

/// What a safe write asks of the system; each system has its own file of these routines. None of
/// them throws but for want of memory.

/// What came of writing a file.
struct WriteResult {
  std::error_code error;
  bool begun = false;  ///< the file may hold something else than before
};

/// The file that a symbolic link at `place` leads to, or `place` itself; empty if the system does
/// not tell.
std::filesystem::path BehindLinks(const std::filesystem::path& place);

/// Who may read a new file: those whom the user lets read new files, or nobody else as long as it
/// has not got the rights of the file whose name it takes.
enum class Readers { Usual, UsAlone };

/// Makes an empty file; the error if anything has that name already or the system refuses.
std::error_code MakeNewFile(const std::filesystem::path& path, Readers readers = Readers::UsAlone);

/// Writes over the file at `path`, which has to exist, gives it the length of `content` and flushes
/// it to the disk.
WriteResult WriteToDisk(const std::filesystem::path& path, std::string_view content);

/// Gives `to` the owner, the group and the access rights of `from` as far as the system lets us.
void CopyRights(const std::filesystem::path& from, const std::filesystem::path& to);

/// Gives the file at `path` a second name where the system can do that ahead of `TakeName`; success
/// without one where `TakeName` does it in one go.
std::error_code GiveSecondName(const std::filesystem::path& path,
                               const std::filesystem::path& second);

/// Gives `fresh` the name of `target` in one step. Where `GiveSecondName` gave none, the old file
/// stands at `second` from then on.
std::error_code TakeName(const std::filesystem::path& fresh, const std::filesystem::path& target,
                         const std::filesystem::path& second);

/// Flushes what happened to the names in the folder of `path`.
std::error_code FlushFolderOf(const std::filesystem::path& path);

/// Whether the error says that this can't be done here at all, and not that it went wrong.
bool IsRefusal(const std::error_code& error);

}  // namespace quillmark
