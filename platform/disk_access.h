#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace quillmark {

/// The file fault that says of the file at `path` what the trouble with it is.
[[noreturn]] void ThrowFileFault(const std::string& path, std::string_view trouble);

/// Opens `disk` without a buffer of its own, so that everything goes in one call as it is. False if
/// the system refuses.
bool OpenOnDisk(std::filebuf& disk, const std::filesystem::path& place, std::ios::openmode mode);

/// The bytes of the open file from `from` on. Throws the file fault, with the given path, if they
/// can't be read or the memory has no room for them.
std::string ReadRest(std::filebuf& disk, std::size_t from, const std::string& path);

/// Writes `bytes` at once. False if the system refuses.
bool WriteAtOnce(std::filebuf& disk, std::string_view bytes);

}  // namespace quillmark
