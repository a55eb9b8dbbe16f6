#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "scenario_runner/directives.h"
#include "scenario_runner/driver_process.h"
#include "scenario_runner/expectation.h"
#include "scenario_runner/run_folder.h"
#include "support/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

const std::string kErrors = "driver-errors.txt";

struct Arguments {
  std::string driver;
  std::string programFolder;
  std::string samples;
  bool widgets = false;
  std::string scenario;
  /// What starts a driver for Windows, and shows it the files of this machine as drive Z.
  std::string emulator = {};
};

/// A command or directive of a scenario, where it stands, and the lines that have to be answered.
struct Step {
  std::string place;
  std::string text;
  std::vector<std::string> expected = {};
};

/// What lines stand for: the first line of an answer behind its command, a question with what is to
/// be seen by it, and boxes with what closes them.
const std::vector<std::pair<std::regex, std::string>> kShortForms = {
    {std::regex(R"((> .*) => (.*))"), "$1\n$2"},
    {std::regex(R"((model|state|forms|form \w+) ([/{[].*))"), "> $1\n$2"},
    {std::regex(R"((\w+\.\S+) ([/{].*))"), "> get $1\n$2"},
    {std::regex(R"(error (".*"))"), "box critical OK \"$${0}\" $1\n> press OK"},
    {std::regex(R"xx(fault "(.*)" "(.*)")xx"),
     R"(box critical End,Continue "Quillmark" )"
     R"("\"$1$${194}\u000a\u000a$2\u000a\u000a$${208}\u000a$${209}")"
     "\n> press Continue"},
    {std::regex(R"(question (".*") (Yes|No))"), "box question Yes,No \"$${20}\" $1\n> press $2"},
};

void AddLines(const std::string& text, const std::string& place, std::vector<Step>& steps) {
  for (const auto& [form, meaning] : kShortForms) {
    if (!std::regex_match(text, form)) continue;
    std::istringstream parts(std::regex_replace(text, form, meaning));
    for (std::string part; std::getline(parts, part);) AddLines(part, place, steps);
    return;
  }
  if (text.starts_with('>') || text.starts_with('@')) {
    steps.push_back({place, text});
  } else if (steps.empty()) {
    throw Failure(place + ": an answer without a command");
  } else {
    steps.back().expected.push_back(text);
  }
}

/// `text` with what stands for its places, "%1" for the first.
std::string Filled(std::string text, const std::vector<std::string>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    text = Replaced(text, "%" + std::to_string(i + 1), values[i]);
  }
  return text;
}

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

/// The scenario's steps, without the indirection of short forms, `@ include`, `@ each` and
/// `@ repeat`.
std::vector<Step> ReadScenario(const fs::path& path, const std::vector<std::string>& values = {}) {
  std::ifstream file(path);
  if (!file) throw Failure("cannot read " + path.string());
  static const std::regex include("@ include (\\S+)(.*?)(?: => (.*))?");
  static const std::regex each("@ each (.*) (> .*)");
  static const std::regex repeat("@ repeat ([0-9]+) (> .*)");
  std::vector<Step> steps;
  std::smatch part;
  int number = 0;
  for (std::string text; std::getline(file, text);) {
    const std::string place = path.filename().string() + ":" + std::to_string(++number);
    if (text.empty() || text.starts_with('#')) continue;
    text = Filled(text, values);
    if (text.starts_with("  ") && !steps.empty()) {
      Step& last = steps.back();
      (last.expected.empty() ? last.text : last.expected.back()) += text.substr(1);
    } else if (std::regex_match(text, part, include)) {
      for (const Step& step : ReadScenario(path.parent_path() / part[1].str(), Words(part[2]))) {
        steps.push_back(step);
      }
      if (!part[3].matched) continue;
      steps.back().place = place;
      AddLines(part[3], place, steps);
    } else if (std::regex_match(text, part, each)) {
      for (const std::string& word : Words(part[1]))
        steps.push_back({place, Filled(part[2], {word})});
    } else if (std::regex_match(text, part, repeat)) {
      steps.insert(steps.end(), std::stoul(part[1]), {place, part[2]});
    } else {
      AddLines(text, place, steps);
    }
  }
  return steps;
}

/// The entries of a compiled interface table: behind four bytes, each with a zero byte at its end.
std::vector<std::string> ReadInterfaceTable(const std::string& path) {
  std::istringstream bytes(Bytes(path).substr(4));
  std::vector<std::string> entries;
  for (std::string entry; std::getline(bytes, entry, '\0');) entries.push_back(entry);
  return entries;
}

/// Bytes as they stand inside of the quotes of a JSON string.
std::string Escaped(const std::string& bytes) {
  const std::string quoted = Quoted(bytes);
  return quoted.substr(1, quoted.size() - 2);
}

/// One run of one scenario in its own folder.
class Run {
 public:
  explicit Run(const Arguments& arguments)
      : arguments_(arguments), work_(MakeRunFolder(arguments.programFolder, arguments.samples)) {
    english_ = ReadInterfaceTable((work_ / "program" / "ENGLISH.BIN").string());
    fs::current_path(work_);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("HOME", work_.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", work_.c_str(), 1);
  }

  void Play(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
      place_ = step.place;
      std::vector<std::string> expected;
      for (const std::string& line : step.expected) expected.push_back(Substituted(line));
      Take(Substituted(step.text), expected);
    }
    place_ += ", the end";
    if (driver_ != nullptr && !driver_->Ended()) {
      driver_->Send("quit");
      driver_->ExpectExit();
    }
    const std::string complaints = Bytes(kErrors);
    if (!complaints.empty()) throw Failure("on standard error: " + complaints);
  }

  const std::string& Place() const { return place_; }
  const fs::path& Folder() const { return work_; }

 private:
  void Take(const std::string& text, const std::vector<std::string>& expected) {
    if (text == "@ restart") {
      if (driver_ != nullptr && !driver_->Ended()) throw Failure("the driver has not ended yet");
      Start(expected);
    } else if (text.starts_with("> ")) {
      if (driver_ == nullptr) Start({});
      if (driver_->Ended()) throw Failure("the driver has ended already");
      driver_->Send(text.substr(2));
      CheckAnswer(expected, driver_->Answer());
    } else {
      RunDirective(text.substr(2));
    }
  }

  void Start(const std::vector<std::string>& expected) {
    std::vector<std::string> command = {arguments_.driver};
    if (!arguments_.emulator.empty()) command.insert(command.begin(), arguments_.emulator);
    if (arguments_.widgets) command.emplace_back("--widgets");
    command.push_back(DriverPath((work_ / "program").string()));
    driver_ = std::make_unique<DriverProcess>(command, kErrors);
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
  std::string Substituted(const std::string& text) const {
    static const std::regex name(R"xx(\$(WORK|PROGRAM)([^'" ]*)|\$\{([0-9]+)\})xx");
    std::string result;
    auto rest = text.begin();
    for (std::sregex_iterator found(text.begin(), text.end(), name), end; found != end; ++found) {
      const std::smatch& match = *found;
      result += match.prefix();
      rest = match[0].second;
      if (match[3].matched) {
        result += Escaped(english_.at(std::stoul(match[3])));
      } else {
        const std::string folder = match[1] == "WORK" ? work_ : work_ / "program";
        const std::string path = folder + match[2].str();
        result += text.starts_with('@') ? path : Escaped(DriverPath(path));
      }
    }
    return result.append(rest, text.end());
  }

  const Arguments& arguments_;
  fs::path work_;
  std::vector<std::string> english_;
  std::unique_ptr<DriverProcess> driver_;
  std::string place_;
};

int RunScenario(const Arguments& arguments) {
  const std::vector<Step> steps = ReadScenario(arguments.scenario);
  Run run(arguments);
  try {
    run.Play(steps);
  } catch (const std::exception& trouble) {
    std::cerr << run.Place() << ": " << trouble.what() << "\nThe files are in "
              << run.Folder().string() << "\n";
    return EXIT_FAILURE;
  }
  fs::remove_all(run.Folder());
  return EXIT_SUCCESS;
}

}  // namespace

}  // namespace quillmark

int main(int argc, char** argv) try {
  if (argc != 6 && argc != 7) {
    std::cerr << "usage: scenario_runner DRIVER PROGRAM_FILES SAMPLES logical|widgets SCENARIO"
                 " [EMULATOR]\n";
    return 64;
  }
  return quillmark::RunScenario({std::filesystem::absolute(argv[1]).string(), argv[2], argv[3],
                                 std::string_view(argv[4]) == "widgets", argv[5],
                                 argc == 7 ? argv[6] : ""});
} catch (const std::exception& trouble) {
  std::cerr << trouble.what() << "\n";
  return EXIT_FAILURE;
}
