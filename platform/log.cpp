#include "platform/log.h"

#include <ctime>
#include <iomanip>
#include <locale>
#include <sstream>

#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {
namespace {

constexpr int kLogNumber = 6;

std::string NowInTheSystemsForm() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
#ifdef _WIN32
  localtime_s(&parts, &now);
#else
  localtime_r(&now, &parts);
#endif
  std::ostringstream text;
  try {
    text.imbue(std::locale(""));
  } catch (const std::runtime_error&) {
    text.imbue(std::locale::classic());  // a system whose own locale is not installed
  }
  text << std::put_time(&parts, "%x %X");
  return text.str();
}

}  // namespace

void LogOpen() {
  Files.OpenOutput(kLogNumber, ProgramPath("log.txt"));
  Files.PrintLine(kLogNumber, "[" + NowInTheSystemsForm() + "] Quillmark begins loading");
}

}  // namespace quillmark
