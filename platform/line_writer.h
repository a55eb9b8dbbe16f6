#pragma once

#include <fstream>
#include <string>
#include <string_view>

namespace quillmark {

/// A text file that is written line by line. It stays open in the system too, and each line is on
/// its way to the disk when its call returns.
class LineWriter {
 public:
  /// Empties the file, or makes it. Throws the file fault if the system refuses.
  explicit LineWriter(std::string path);

  const std::string& Path() const { return path_; }

  /// Writes `text` and the system's line end. Throws the file fault if it can't be written.
  void PrintLine(std::string_view text);

  /// Throws the file fault if the system tells of trouble with what was written.
  void Close();

 private:
  std::string path_;
  std::filebuf disk_;
};

}  // namespace quillmark
