// quillmark-script: looks at the scripts of the games, compares, checks and rebuilds them. Its
// manual page tells how.

#include <algorithm>
#include <array>
#include <iostream>
#include <string>
#include <vector>

#include "platform/console.h"
#include "platform/fault.h"
#include "platform/version.h"
#include "tools/listing_command.h"
#include "tools/script/commands.h"
#include "tools/script/progress.h"
#include "tools/script/script_value.h"

namespace {

using namespace quillmark;

struct Command {
  std::string_view name;
  std::string_view usage;    ///< what stands behind the name
  std::string_view options;  ///< those of the usage, parted by blanks
  std::size_t paths;
  int (*run)(const Arguments& arguments);
  Status trouble;  ///< what any trouble ends with, unless it is kDone
};

constexpr std::array<Command, 6> kCommands = {{
    {"show", "FOLDER|SCRIPT.DAT [--game tr4|tr5] [--level N]", "--game --level", 1, RunShow, kDone},
    {"export", "SCRIPT.DAT [--game tr4|tr5] [-o FILE.json]", "--game -o", 1, RunExport, kDone},
    {"build", "FILE.json FOLDER [--force]", "--force", 2, RunBuild, kDone},
    {"diff", "A B [--game tr4|tr5] [--json]", "--game --json", 2, RunDiff, kFaulty},
    {"strings", "SCRIPT.DAT [-o FILE.csv | --take FILE.csv]", "-o --take", 1, RunStrings, kDone},
    {"check", "SCRIPT.DAT [--game tr4|tr5] [--json]", "--game --json", 1, RunCheck, kDone},
}};

std::string Usage() {
  std::string text = "usage:\n";
  for (const Command& command : kCommands) {
    text +=
        "  quillmark-script " + std::string(command.name) + ' ' + std::string(command.usage) + '\n';
  }
  return text +
         "  quillmark-script listing list   tr4|tr5 SCRIPT\n"
         "  quillmark-script listing resave tr4|tr5 SCRIPT TARGET\n"
         "  quillmark-script --help | --version\n"
         "A script alone is read from standard input where its path is \"-\".\n";
}

int Run(const Command& command, const std::vector<std::string>& words) {
  const auto end = [&command](Status status, const std::string& text) {
    std::cerr << "quillmark-script: " << text << '\n';
    return command.trouble == kDone ? status : command.trouble;
  };
  try {
    const int status = WithMemoryFaults(
        [&] { return command.run(ReadArguments(words, command.options, command.paths)); });
    std::cout.flush();
    return std::cout ? status : end(kRefused, "the output can't be written");
  } catch (const Trouble& trouble) {
    return end(trouble.status, trouble.what());
  } catch (const Fault& fault) {
    return end(kRefused, fault.what());
  }
}

int Tell(const std::string& text) {
  std::cout << text << std::flush;
  return std::cout ? kDone : kRefused;
}

}  // namespace

int main(int argc, char** argv) {
  PrepareConsole();
  StartProgress();
  std::vector<std::string> words = CommandLineWords(argc, argv);
  const std::string name = words.size() < 2 ? "" : words[1];
  words.erase(words.begin(), words.begin() + std::min<std::ptrdiff_t>(2, std::ssize(words)));
  if (name == "--help") return Tell(Usage());
  if (name == "--version") return Tell("quillmark-script " + std::string(VersionText()) + '\n');
  if (name == "listing") return RunListing(words);
  for (const Command& command : kCommands) {
    if (command.name == name) return Run(command, words);
  }
  std::cerr << Usage();
  return kUsage;
}
