#include <windows.h>
// What needs the header above stands behind it.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <stdio.h>

#include "platform/console.h"

namespace quillmark {
namespace {

std::string Utf8(const wchar_t* text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
  utf8.resize(utf8.empty() ? 0 : utf8.size() - 1);  // without its terminator
  return utf8;
}

}  // namespace

std::vector<std::string> CommandLineWords(int argc, char** argv) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  if (wide == nullptr) return {argv, argv + argc};
  std::vector<std::string> words;
  for (int i = 0; i < count; ++i) words.push_back(Utf8(wide[i]));
  LocalFree(wide);
  return words;
}

void PrepareConsole() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}

bool OutputIsTerminal() {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(output, &mode) != 0 &&
         SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace quillmark
