#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "driver/driver_text.h"
#include "scenario_runner/directives.h"
#include "scenario_runner/driver_process.h"
#include "scenario_runner/expectation.h"
#include "scenario_runner/failure.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr int kSkipped = 77;
constexpr auto kTimeLimit = std::chrono::seconds(60);

struct Arguments {
  std::string driver;
  std::string programFolder;
  std::string samples;
  bool widgets = false;
  std::string scenario;
  /// What starts a driver for Windows, and shows it the files of this machine as drive Z.
  std::string emulator = {};
};

/// A line of a scenario, and where it stands.
struct Line {
  std::string place;
  std::string text;
};

/// The scenario's lines without comments, blank lines and the indirection of `@ include`. A command
/// may carry the first line of its answer behind an arrow: "> get CONTROL => {"row": 3}".
std::vector<Line> ReadScenario(const fs::path& path) {
  std::ifstream file(path);
  if (!file) throw Failure("cannot read " + path.string());
  std::vector<Line> lines;
  std::string text;
  constexpr std::string_view arrow = " => ";
  for (int number = 1; std::getline(file, text); ++number) {
    constexpr std::string_view include = "@ include ";
    if (text.empty() || text.starts_with('#')) continue;
    if (text.starts_with(include)) {
      for (Line& line : ReadScenario(path.parent_path() / text.substr(include.size()))) {
        lines.push_back(std::move(line));
      }
    } else {
      const std::string place = path.filename().string() + ":" + std::to_string(number);
      const std::size_t answer = text.starts_with('>') ? text.find(arrow) : std::string::npos;
      lines.push_back({place, text.substr(0, answer)});
      if (answer != std::string::npos) lines.push_back({place, text.substr(answer + arrow.size())});
    }
  }
  return lines;
}

/// The entries of a compiled interface table: behind four bytes, each with a zero byte at its end.
std::vector<std::string> ReadInterfaceTable(const std::string& path) {
  const std::string bytes = FileBytes(path);
  std::vector<std::string> entries;
  for (std::size_t start = 4; start < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\0', start), bytes.size());
    entries.push_back(bytes.substr(start, end - start));
    start = end + 1;
  }
  return entries;
}

std::string Unquoted(const std::string& text) { return text.substr(1, text.size() - 2); }

/// One run of one scenario in its own folder.
class Run {
 public:
  explicit Run(const Arguments& arguments) : arguments_(arguments) {
    std::string pattern = (fs::temp_directory_path() / "quillmark-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw Failure("no temporary folder");
    work_ = pattern;
    fs::create_directory(work_ / "program");
    for (const auto& entry : fs::directory_iterator(arguments.programFolder)) {
      const std::string type = entry.path().extension().string();
      if (type == ".bin" || type == ".BIN" || type == ".h") {
        fs::copy(entry.path(), work_ / "program");
      }
    }
    for (const char* game : {"tr4", "tr5"}) {
      fs::copy(fs::path(arguments.samples) / game, work_ / game);
    }
    for (const auto& entry : fs::recursive_directory_iterator(work_)) {
      fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
    }
    english_ = ReadInterfaceTable((work_ / "program" / "ENGLISH.BIN").string());
  }

  /// Runs the lines; false if the scenario is not for this mode.
  bool Play(const std::vector<Line>& lines) {
    const std::string otherMode = arguments_.widgets ? "@ logical-only" : "@ widgets-only";
    for (std::size_t i = 0; i < lines.size();) {
      place_ = lines[i].place;
      const std::string text = Substituted(lines[i].text);
      if (text == otherMode) return false;
      std::vector<std::string> expected;
      for (++i; i < lines.size() && lines[i].text.front() != '>' && lines[i].text.front() != '@';
           ++i) {
        expected.push_back(Substituted(lines[i].text));
      }
      Step(text, expected);
    }
    place_ += ", the end";
    if (driver_ != nullptr && !driver_->Ended()) {
      driver_->Send("quit");
      driver_->ExpectExit();
    }
    const std::string complaints = FileBytes(Errors().string());
    if (!complaints.empty()) throw Failure("on standard error: " + complaints);
    return true;
  }

  const std::string& Place() const { return place_; }
  const fs::path& Folder() const { return work_; }

 private:
  fs::path Errors() const { return work_ / "driver-errors.txt"; }

  void Step(const std::string& text, const std::vector<std::string>& expected) {
    if (text.starts_with("> ")) {
      if (driver_ == nullptr) Start({});
      if (driver_->Ended()) throw Failure("the driver has ended already");
      driver_->Send(text.substr(2));
      CheckAnswer(expected, driver_->Answer());
    } else if (text == "@ start" || text == "@ restart") {
      if ((driver_ != nullptr) != (text == "@ restart")) throw Failure("not now: " + text);
      if (driver_ != nullptr && !driver_->Ended()) throw Failure("the driver has not ended yet");
      Start(expected);
    } else if (text == "@ widgets-only" || text == "@ logical-only") {
      return;
    } else if (text.starts_with("@ ")) {
      if (!expected.empty()) throw Failure("a directive answers nothing");
      RunDirective(text.substr(2));
    } else {
      throw Failure("an answer without a command: " + text);
    }
  }

  void Start(const std::vector<std::string>& expected) {
    std::vector<std::string> command = {arguments_.driver};
    if (!arguments_.emulator.empty()) command.insert(command.begin(), arguments_.emulator);
    if (arguments_.widgets) command.emplace_back("--widgets");
    command.push_back(DriverPath((work_ / "program").string()));
    driver_.reset();
    driver_ = std::make_unique<DriverProcess>(command, work_, Errors(),
                                              std::chrono::steady_clock::now() + kTimeLimit);
    CheckAnswer(expected, driver_->Answer());
  }

  /// A path of this machine as the driver knows it.
  std::string DriverPath(std::string path) const {
    if (arguments_.emulator.empty()) return path;
    std::replace(path.begin(), path.end(), '/', '\\');
    return "Z:" + path;
  }

  /// Puts in what the names behind "$" stand for. What the driver takes and answers has paths in
  /// quotes and in the driver's form; the runner's own lines have them in that of this machine.
  std::string Substituted(std::string text) const {
    const bool ofDriver = !text.starts_with('@');
    for (std::size_t at = 0; (at = text.find('$', at)) != std::string::npos;) {
      std::string_view name;
      std::string value;
      const std::string_view rest = std::string_view(text).substr(at);
      if (rest.starts_with("$WORK")) {
        name = "$WORK";
        value = work_.string();
      } else if (rest.starts_with("$PROGRAM")) {
        name = "$PROGRAM";
        value = (work_ / "program").string();
      } else if (rest.starts_with("${")) {
        name = rest.substr(0, rest.find('}') + 1);
        value = Unquoted(Quoted(english_.at(std::stoul(std::string(name.substr(2))))));
      } else {
        value = name = rest.substr(0, 1);
      }
      std::size_t length = name.size();
      if (ofDriver && (name == "$WORK" || name == "$PROGRAM")) {
        length = std::min(rest.find_first_of("'\""), rest.size());
        value = Unquoted(Quoted(DriverPath(value.append(rest, name.size(), length - name.size()))));
      }
      text.replace(at, length, value);
      at += value.size();
    }
    return text;
  }

  const Arguments& arguments_;
  fs::path work_;
  std::vector<std::string> english_;
  std::unique_ptr<DriverProcess> driver_;
  std::string place_;
};

int RunScenario(const Arguments& arguments) {
  const std::vector<Line> lines = ReadScenario(arguments.scenario);
  Run run(arguments);
  bool played = false;
  try {
    played = run.Play(lines);
  } catch (const std::exception& trouble) {
    std::cerr << run.Place() << ": " << trouble.what() << "\nThe files are in "
              << run.Folder().string() << "\n";
    return EXIT_FAILURE;
  }
  fs::remove_all(run.Folder());
  return played ? EXIT_SUCCESS : kSkipped;
}

}  // namespace

}  // namespace quillmark

int main(int argc, char** argv) {
  if (argc != 6 && argc != 7) {
    std::cerr << "usage: scenario_runner DRIVER PROGRAM_FILES SAMPLES logical|widgets SCENARIO"
                 " [EMULATOR]\n";
    return 64;
  }
  try {
    return quillmark::RunScenario({std::filesystem::absolute(argv[1]).string(), argv[2], argv[3],
                                   std::string_view(argv[4]) == "widgets", argv[5],
                                   argc == 7 ? argv[6] : ""});
  } catch (const std::exception& trouble) {
    std::cerr << trouble.what() << "\n";
    return EXIT_FAILURE;
  }
}
