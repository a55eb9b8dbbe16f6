#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillmark {

/// A file and what it holds, as the plain work takes them: by the standard library, with one
/// call for all bytes.
struct PlainFile {
  std::string path;
  std::string bytes;
  bool scratch = false;  ///< no file of the user's: deleted and made anew
};

/// What stands at `path` now.
PlainFile TakeFile(const std::string& path, bool scratch);

/// Asks for the size, opens the file, reads all its bytes with one call and closes it.
void ReadPlainly(const PlainFile& file);

/// Writes all its bytes with one call to a new file beside it, flushes that to the disk and gives
/// it the name, and flushes the folder. A scratch file is deleted and written in its place.
void WritePlainly(const PlainFile& file);

std::size_t BytesOf(const std::vector<PlainFile>& files);

}  // namespace quillmark
