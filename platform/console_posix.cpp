#include <unistd.h>

#include "platform/console.h"

namespace quillmark {

std::vector<std::string> CommandLineWords(int argc, char** argv) { return {argv, argv + argc}; }

void PrepareConsole() {}

bool OutputIsTerminal() { return isatty(STDOUT_FILENO) == 1; }

}  // namespace quillmark
