#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// Whether what stands at `path` is neither a file nor a folder, but a pipe or a device.
bool IsStream(std::string_view path);

/// The bytes of the file or stream at `path`. Throws the file fault if there is none, if it has
/// more than `most` bytes or can't be read.
std::string ReadWholeFile(std::string_view path, std::int64_t most);
/// The same for standard input.
std::string ReadStandardInput(std::int64_t most);

struct NewFile {
  std::string path;
  std::string bytes;
};

/// Writes to what `IsStream`. Throws the file fault.
void WriteStream(std::string_view path, std::string_view bytes);

/// Puts all files in their places or none: each is written whole beside its place, and then they
/// take their names, in place of what stood there. If one can't, the others get their former
/// content back. Throws the file fault.
void WriteWholeFiles(const std::vector<NewFile>& files);

}  // namespace quillmark
