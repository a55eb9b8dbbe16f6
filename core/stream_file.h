#pragma once

#include <string>

namespace quillmark {

/// The way of one built stream through `scriptdata.tmp` in the program's folder, on file number 3.
///
/// A file of exactly that name is deleted first. One that stands there in other letter case stays:
/// the stream is written over its first bytes, and its old length counts. During a `BuildBatch` the
/// file stays open from one stream to the next, and all but the first one and the last one are held
/// in memory.
///
/// A fault that passes through puts on disk what was written, and leaves file number 3 open unless
/// the file was closed at that moment.
class StreamFile {
 public:
  /// Opens the file for writing. Throws the file fault.
  StreamFile();
  ~StreamFile();
  StreamFile(const StreamFile&) = delete;
  StreamFile& operator=(const StreamFile&) = delete;

  /// The stream so far; what is put behind it is written.
  std::string& Written() { return content_; }
  /// Closes the file; throws the file fault if it can't be written.
  void Close();
  /// Opens the closed file again and gives what it holds, the tail of an older file included.
  /// Throws the file fault if it can't be opened.
  const std::string& Reopen();

 private:
  enum class State { Writing, Closed, Reading };
  void LeaveFault();

  std::string content_;
  State state_ = State::Writing;
  int pendingFaults_;
};

}  // namespace quillmark
