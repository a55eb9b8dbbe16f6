#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace quillmark {

/// One run of the driver, spoken to line by line. Everything throws `Failure`: an end that comes
/// too early, a wrong exit status, silence past the deadline.
class DriverProcess {
 public:
  using Deadline = std::chrono::steady_clock::time_point;

  /// Starts `command` in `folder`, without root's right to pass over the modes of files; what it
  /// says on standard error goes to `errors`.
  DriverProcess(const std::vector<std::string>& command, const std::filesystem::path& folder,
                const std::filesystem::path& errors, Deadline deadline);
  ~DriverProcess();
  DriverProcess(const DriverProcess&) = delete;
  DriverProcess& operator=(const DriverProcess&) = delete;

  void Send(const std::string& line);
  /// The lines up to the next prompt, which is the last of them.
  std::vector<std::string> Answer();
  /// Waits for the end, which has to be one with status 0.
  void ExpectExit();

  bool Ended() const { return ended_; }

 private:
  std::string ReadLine();

  Deadline deadline_;
  pid_t process_ = -1;
  int input_ = -1;
  int output_ = -1;
  std::string unread_;
  bool ended_ = false;
};

}  // namespace quillmark
