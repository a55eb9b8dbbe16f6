#include "platform/line_writer.h"

#include <utility>

#include "platform/disk_access.h"
#include "platform/system_path.h"

namespace quillmark {

LineWriter::LineWriter(std::string path) : path_(std::move(path)) {
  if (!disk_.open(SystemPath(path_), std::ios::out | std::ios::trunc)) {
    ThrowFileFault(path_, "can't be opened for writing");
  }
}

void LineWriter::PrintLine(std::string_view text) {
  if (!WriteAtOnce(disk_, std::string(text) + '\n')) ThrowFileFault(path_, "can't be written");
}

void LineWriter::Close() {
  if (disk_.close() == nullptr) ThrowFileFault(path_, "can't be written");
}

}  // namespace quillmark
