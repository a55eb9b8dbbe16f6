#pragma once

#include <string>
#include <vector>

namespace quillmark {

/// What a program without windows asks of the system.

/// The words of the command line as UTF-8, the program itself in front. `argc` and `argv` are those
/// of the main routine.
std::vector<std::string> CommandLineWords(int argc, char** argv);

/// Lets bytes pass through the standard streams as they are, and text show as UTF-8.
void PrepareConsole();

/// Whether standard output is a terminal that understands colours.
bool OutputIsTerminal();

}  // namespace quillmark
