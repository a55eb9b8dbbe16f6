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
  bool deleted = false;  ///< the plain write deletes it and makes it anew
};

/// What stands at `path` now.
PlainFile TakeFile(const std::string& path, bool deleted);

/// Asks for the size, opens the file, reads all its bytes with one call and closes it.
void ReadPlainly(const PlainFile& file);

/// Opens the file, writes all its bytes with one call and closes it; deletes it before if it is one
/// that a save deletes.
void WritePlainly(const PlainFile& file);

std::size_t BytesOf(const std::vector<PlainFile>& files);

}  // namespace quillmark
