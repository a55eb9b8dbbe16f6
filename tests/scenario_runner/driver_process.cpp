#include "scenario_runner/driver_process.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "scenario_runner/failure.h"

namespace quillmark {

namespace {

constexpr int kCannotStart = 127;

[[noreturn]] void BecomeDriver(const std::vector<std::string>& command,
                               const std::filesystem::path& folder,
                               const std::filesystem::path& errors) {
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const int log = open(errors.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
  dup2(log, STDERR_FILENO);
  // Without it a read-only file would be none for root.
  prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
  if (chdir(folder.c_str()) == 0) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("HOME", folder.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    execv(arguments.front(), arguments.data());
  }
  _exit(kCannotStart);
}

bool IsPrompt(const std::string& line) {
  return line == "ready" || line == "ended" || line.starts_with("box ") ||
         line.starts_with("input ") || line.starts_with("file ");
}

}  // namespace

DriverProcess::DriverProcess(const std::vector<std::string>& command,
                             const std::filesystem::path& folder,
                             const std::filesystem::path& errors, Deadline deadline)
    : deadline_(deadline) {
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
    BecomeDriver(command, folder, errors);
  }
  close(toDriver[0]);
  close(fromDriver[1]);
  input_ = toDriver[1];
  output_ = fromDriver[0];
}

DriverProcess::~DriverProcess() {
  close(input_);
  close(output_);
  if (process_ > 0) {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
}

void DriverProcess::Send(const std::string& line) {
  std::string_view left = line;
  const std::string whole = line + "\n";
  left = whole;
  while (!left.empty()) {
    const ssize_t written = write(input_, left.data(), left.size());
    if (written <= 0) throw Failure("the driver takes no command any more");
    left.remove_prefix(static_cast<std::size_t>(written));
  }
}

std::string DriverProcess::ReadLine() {
  for (;;) {
    if (const auto end = unread_.find('\n'); end != std::string::npos) {
      std::string line = unread_.substr(0, end);
      unread_.erase(0, end + 1);
      if (line.ends_with('\r')) line.pop_back();  // a driver for Windows
      return line;
    }
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline_ - std::chrono::steady_clock::now());
    pollfd waiting{output_, POLLIN, 0};
    if (left.count() <= 0 || poll(&waiting, 1, static_cast<int>(left.count())) == 0) {
      throw Failure("the driver did not answer in time");
    }
    std::array<char, 65536> chunk{};
    const ssize_t count = read(output_, chunk.data(), chunk.size());
    if (count <= 0) throw Failure("the driver ended without a prompt, after: \"" + unread_ + "\"");
    unread_.append(chunk.data(), static_cast<std::size_t>(count));
  }
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
  ended_ = true;
  int status = 0;
  while (waitpid(process_, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline_) throw Failure("the driver does not leave");
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  process_ = -1;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    throw Failure("the driver left with wait status " + std::to_string(status));
  }
}

}  // namespace quillmark
