#include "platform/log.h"

#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {
namespace {

constexpr int kLogNumber = 6;

}  // namespace

void LogOpen() {
  Files.OpenOutput(kLogNumber, ProgramPath("log.txt"));
  Files.PrintLine(kLogNumber, "[" + PresentTime() + "] Quillmark begins loading");
}

}  // namespace quillmark
