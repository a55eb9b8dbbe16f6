#include "walk/session.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>
#include <streambuf>

#include "driver/logical_screen.h"
#include "driver/widget_screen.h"
#include "platform/files.h"
#include "scenario_runner/directives.h"
#include "scenario_runner/run_folder.h"
#include "support/text.h"
#include "walk/walker.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr unsigned kMostSeconds = 300;
constexpr const char* kScenario = "walk.scenario";
constexpr std::string_view kNotMet = "# not met: ";
constexpr const char* kErrors = "errors.txt";

/// Where the lines come from: the next one for a driver that waits with this prompt; nothing at the
/// end.
using Source = std::function<std::optional<std::string>(const std::string& prompt)>;

std::string WithoutPlaces(const std::string& text, const std::string& work) {
  return Replaced(Replaced(text, work + "/program", "$PROGRAM"), work, "$WORK");
}

std::string WithPlaces(const std::string& text, const std::string& work) {
  return Replaced(Replaced(text, "$PROGRAM", work + "/program"), "$WORK", work);
}

/// The driver's standard input: whenever the driver waits, what it has done is checked and the next
/// line is made.
class WalkInput : public std::streambuf {
 public:
  WalkInput(Source source, Hands& hands, std::string work)
      : source_(std::move(source)),
        checks_(hands),
        work_(std::move(work)),
        scenario_(work_ + "/" + kScenario, std::ios::app) {
    std::cin.rdbuf(this);
    std::cout.rdbuf(answers_.rdbuf());
  }

 protected:
  int_type underflow() override {
    try {
      if (busy_) throw Finding{"a box opens where nobody has done anything", "# ready"};
      busy_ = true;
      const bool more = GiveLine();
      busy_ = false;
      return more ? traits_type::to_int_type(line_.front()) : traits_type::eof();
    } catch (const Finding& finding) {
      scenario_ << kNotMet << finding.what << '\n'
                << WithoutPlaces(finding.expectation, work_) << std::endl;
      std::_Exit(EXIT_FAILURE);
    }
  }

 private:
  bool GiveLine() {
    std::string answer = answers_.str();
    answers_.str("");
    if (!answer.empty()) answer.pop_back();
    const std::size_t start = answer.rfind('\n') + 1;
    const std::string prompt = answer.substr(start);
    if (!line_.empty()) {
      const std::string told = prompt == "ready" ? answer.substr(0, start) : answer;
      try {
        checks_.After(answer.substr(0, start), prompt);
      } catch (const Finding& finding) {
        // A fault that must not come is left out, so that the scenario fails by it.
        if (finding.expectation != "ready") Note(told);
        throw;
      }
      Note(told);
    }
    const std::optional<std::string> next = source_(prompt);
    if (!next) return false;
    scenario_ << "> " << *next << std::endl;
    line_ = WithPlaces(*next, work_) + "\n";
    checks_.Before(line_.substr(0, line_.size() - 1), prompt);
    setg(line_.data(), line_.data(), line_.data() + line_.size());
    return true;
  }

  void Note(std::string answer) {
    if (answer.empty()) return;
    if (!answer.ends_with('\n')) answer += '\n';
    scenario_ << WithoutPlaces(answer, work_) << std::flush;
  }

  Source source_;
  Checks checks_;
  std::string work_;
  std::ofstream scenario_;
  std::ostringstream answers_;
  std::string line_;
  bool busy_ = false;
};

template <class Screen>
void RunOn(Screen&& screen, const Source& source, const std::string& work) {
  WalkInput input(source, screen.TheHands(), work);
  screen.TheDriver().Run();
  std::_Exit(EXIT_SUCCESS);
}

/// What happens in the process of its own.
void PlayIn(const WalkSettings& settings, const std::string& work,
            const std::vector<std::string>& preparation, const Source& source) {
  alarm(kMostSeconds);
  const int errors = open((work + "/" + kErrors).c_str(), O_WRONLY | O_CREAT, 0600);
  dup2(errors, STDERR_FILENO);
  {
    std::ofstream scenario(work + "/" + kScenario);
    for (const std::string& line : preparation) {
      scenario << line << '\n';
      RunDirective(WithPlaces(line.substr(2), work));
    }
  }
  setenv("HOME", work.c_str(), 1);
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  SetProgramFolder(work + "/program");
  if (settings.widgets) {
    int count = 1;
    std::string name = "walk";
    char* arguments[] = {name.data(), nullptr};
    const QApplication application(count, arguments);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    QApplication::setDoubleClickInterval(0);
    RunOn(WidgetScreen(), source, work);
  } else {
    RunOn(LogicalScreen(), source, work);
  }
}

std::string WhatBroke(const std::string& work, int status) {
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) {
    return "there was no end within " + std::to_string(kMostSeconds) + " seconds";
  }
  std::istringstream errors(Bytes(work + "/" + kErrors));
  std::string words;
  for (std::string line; std::getline(errors, line);) {
    if (line.find("SUMMARY") != std::string::npos || words.empty()) words = line;
  }
  return "the process broke down: " + words;
}

Outcome ReadOutcome(const std::string& work, int status) {
  Outcome outcome;
  outcome.scenario = Bytes(work + "/" + kScenario);
  std::istringstream lines(outcome.scenario);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("@ ") || line.starts_with("> ")) outcome.lines.push_back(line);
    if (!line.starts_with(kNotMet)) continue;
    outcome.finding = Finding{line.substr(kNotMet.size()), ""};
    break;  // what follows has not been done
  }
  if (status == 0 || outcome.finding) return outcome;
  outcome.finding = Finding{WhatBroke(work, status), ""};
  outcome.scenario += std::string(kNotMet) + outcome.finding->what + "\n";
  return outcome;
}

Outcome Play(const WalkSettings& settings, const std::vector<std::string>& preparation,
             const Source& source) {
  const std::string work = MakeRunFolder(settings.programFiles, settings.samples).string();
  const pid_t child = fork();
  if (child == 0) {
    try {
      PlayIn(settings, work, preparation, source);
    } catch (const std::exception& trouble) {
      std::cerr << trouble.what() << std::endl;
    }
    std::_Exit(EXIT_FAILURE);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) < 0) throw std::runtime_error("no process");
  Outcome outcome = ReadOutcome(work, status);
  fs::remove_all(work);
  return outcome;
}

}  // namespace

Outcome Walk(const WalkSettings& settings, std::uint32_t seed, int steps) {
  Walker walker(seed);
  return Play(settings, walker.Preparation(),
              [&walker, steps](const std::string& prompt) mutable -> std::optional<std::string> {
                if (--steps < 0) return {};
                return walker.NextLine(prompt);
              });
}

Outcome Replay(const WalkSettings& settings, const std::vector<std::string>& lines) {
  std::vector<std::string> preparation;
  std::vector<std::string> acts;
  for (const std::string& line : lines) {
    (line.starts_with('@') ? preparation : acts).push_back(line);
  }
  return Play(
      settings, preparation,
      [acts, next = std::size_t{0}](const std::string&) mutable -> std::optional<std::string> {
        if (next == acts.size()) return {};
        return acts[next++].substr(2);
      });
}

}  // namespace quillmark
