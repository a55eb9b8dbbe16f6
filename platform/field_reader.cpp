#include "platform/field_reader.h"

#include <algorithm>
#include <utility>

#include "platform/disk_access.h"
#include "platform/system_path.h"

namespace quillmark {

FieldReader::FieldReader(std::string path) : path_(std::move(path)) {
  std::filebuf disk;
  const std::filesystem::path place = PlaceOfFile(path_);
  if (place.empty() || !OpenOnDisk(disk, place, std::ios::in | std::ios::binary)) {
    ThrowFileFault(path_, "can't be opened");
  }
  text_ = ReadRest(disk, 0, path_);
}

std::string FieldReader::ReadField() {
  if (AtEnd()) ThrowFileFault(path_, "has no further field");
  constexpr const char* kDelimiters = ",\r\n";
  const auto found = [this](std::size_t at) { return std::min(at, text_.size()); };

  const std::size_t filled = found(text_.find_first_not_of(' ', position_));
  std::string field;
  if (text_.compare(filled, 1, "\"") == 0) {
    const std::size_t close = found(text_.find('"', filled + 1));
    field = text_.substr(filled + 1, close - filled - 1);
    position_ = found(text_.find_first_of(kDelimiters, close));
  } else {
    const std::size_t end = found(text_.find_first_of(kDelimiters, position_));
    field = text_.substr(position_, end - position_);
    position_ = end;
  }
  PassDelimiter();
  return field;
}

void FieldReader::PassDelimiter() {
  if (text_.compare(position_, 2, "\r\n") == 0) {
    position_ += 2;
  } else if (!AtEnd()) {
    ++position_;
  }
}

}  // namespace quillmark
