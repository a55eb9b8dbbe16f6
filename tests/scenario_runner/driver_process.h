#pragma once

#include <sys/types.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace quillmark {

/// One run of the driver, spoken to line by line. An end that comes too early and a wrong exit
/// status throw `Failure`.
class DriverProcess {
 public:
  /// Starts `command` without root's right to pass over the modes of files, and with a limit to its
  /// time; what it says on standard error goes to the file `errors`.
  DriverProcess(const std::vector<std::string>& command, const std::string& errors);
  ~DriverProcess();
  DriverProcess(const DriverProcess&) = delete;
  DriverProcess& operator=(const DriverProcess&) = delete;

  void Send(const std::string& line);
  /// The lines up to the next prompt, which is the last of them.
  std::vector<std::string> Answer();
  /// Waits for the end, which has to be one with status 0.
  void ExpectExit();
  bool Ended() const { return process_ < 0; }

 private:
  using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

  std::string ReadLine();

  pid_t process_ = -1;
  Stream input_{nullptr, std::fclose};
  Stream output_{nullptr, std::fclose};
};

}  // namespace quillmark
