#pragma once

#include <cstddef>
#include <string>

namespace quillmark {

/// A text file of delimited fields. It is taken into memory when it is opened.
class FieldReader {
 public:
  /// Throws the file fault if there is no such file or it can't be read.
  explicit FieldReader(std::string path);

  const std::string& Path() const { return path_; }

  /// Whether nothing is left.
  bool AtEnd() const { return position_ >= text_.size(); }

  /// The next field: up to a comma or a line end, or what stands between double quotes, which may
  /// have blanks in front. Throws the file fault if nothing is left.
  std::string ReadField();

 private:
  void PassDelimiter();

  std::string path_;
  std::string text_;
  std::size_t position_ = 0;
};

}  // namespace quillmark
