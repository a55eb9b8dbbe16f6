#include "platform/log.h"

#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {

void LogOpen() {
  Files.OpenOutput(kLogNumber, ProgramPath("log.txt"));
  Files.PrintLine(kLogNumber, "[" + PresentTime() + "] Quillmark begins loading");
}

}  // namespace quillmark
