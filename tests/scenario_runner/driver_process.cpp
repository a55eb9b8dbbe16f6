#include "scenario_runner/driver_process.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>

#include "scenario_runner/expectation.h"

namespace quillmark {

namespace {

constexpr unsigned kSecondsToLive = 60;

bool IsPrompt(const std::string& line) {
  return line == "ready" || line == "ended" || line.starts_with("box ") ||
         line.starts_with("input ") || line.starts_with("file ");
}

}  // namespace

DriverProcess::DriverProcess(const std::vector<std::string>& command, const std::string& errors) {
  std::vector<char*> arguments(command.size() + 1, nullptr);
  std::transform(command.begin(), command.end(), arguments.begin(),
                 [](const std::string& word) { return const_cast<char*>(word.c_str()); });
  std::array<int, 2> toDriver{};
  std::array<int, 2> fromDriver{};
  if (pipe2(toDriver.data(), O_CLOEXEC) != 0 || pipe2(fromDriver.data(), O_CLOEXEC) != 0) {
    throw Failure("no pipe for the driver");
  }
  process_ = fork();
  if (process_ < 0) throw Failure("no process for the driver");
  if (process_ == 0) {
    dup2(toDriver[0], STDIN_FILENO);
    dup2(fromDriver[1], STDOUT_FILENO);
    dup2(open(errors.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644), STDERR_FILENO);
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);  // else a read-only file would be none for root
    alarm(kSecondsToLive);
    execv(arguments.front(), arguments.data());
    _exit(EXIT_FAILURE);
  }
  std::signal(SIGPIPE, SIG_IGN);  // a driver that is gone is noticed by what it does not answer
  close(toDriver[0]);
  close(fromDriver[1]);
  input_.reset(fdopen(toDriver[1], "w"));
  output_.reset(fdopen(fromDriver[0], "r"));
}

DriverProcess::~DriverProcess() {
  if (Ended()) return;
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

void DriverProcess::Send(const std::string& line) {
  std::fputs((line + "\n").c_str(), input_.get());
  std::fflush(input_.get());
}

std::string DriverProcess::ReadLine() {
  std::string line;
  for (int next = 0; (next = std::getc(output_.get())) != '\n';) {
    if (next == EOF) throw Failure("the driver ended without a prompt, after: \"" + line + "\"");
    line += static_cast<char>(next);
  }
  if (line.ends_with('\r')) line.pop_back();  // a driver for Windows
  return line;
}

std::vector<std::string> DriverProcess::Answer() {
  std::vector<std::string> lines;
  do {
    lines.push_back(ReadLine());
  } while (!IsPrompt(lines.back()));
  if (lines.back() == "ended") ExpectExit();
  return lines;
}

void DriverProcess::ExpectExit() {
  int status = 0;
  waitpid(process_, &status, 0);
  process_ = -1;
  if (status != 0) throw Failure("the driver left with wait status " + std::to_string(status));
}

}  // namespace quillmark
