#include "core/stream_file.h"

#include <exception>

#include "core/level_stream.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {
namespace {

constexpr int kStreamNumber = 3;
constexpr const char* kStreamName = "scriptdata.tmp";

struct BatchState {
  bool running = false;
  bool begun = false;      ///< the first stream has gone to the disk
  bool pending = false;    ///< `content` is newer than what the disk has
  bool keepsTail = false;  ///< the file has other letter case: it is never deleted
  std::string content;     ///< what the file holds, or would hold
};

BatchState batch;

/// Opens the file at position 0 and gives what it holds.
std::string OpenOnDisk() {
  const std::string path = ProgramPath(kStreamName);
  if (FindFile(path) == kStreamName) {
    DeleteFile(path);
    Files.MakeBinary(kStreamNumber, path);
    return {};
  }
  Files.OpenBinary(kStreamNumber, path);
  std::string old = Files.ReadText(kStreamNumber, Files.Length(kStreamNumber));
  Files.Seek(kStreamNumber, 0);
  return old;
}

void PutLastOnDisk() {
  if (!batch.pending) return;
  batch.pending = false;
  if (batch.keepsTail) {
    OpenOnDisk();
  } else {
    Files.MakeBinary(kStreamNumber, ProgramPath(kStreamName));
  }
  Files.WriteText(kStreamNumber, batch.content);
  Files.Close(kStreamNumber);
}

}  // namespace

StreamFile::StreamFile() : inMemory_(batch.begun), pendingFaults_(std::uncaught_exceptions()) {
  if (!inMemory_) {
    old_ = OpenOnDisk();
  } else if (batch.keepsTail) {
    old_ = batch.content;
  }
}

StreamFile::~StreamFile() {
  if (std::uncaught_exceptions() == pendingFaults_) return;
  try {
    LeaveFault();
  } catch (const Fault&) {
    return;  // the fault that is on its way tells more than this one
  }
}

void StreamFile::LeaveFault() {
  batch.pending = false;
  if (inMemory_) OpenOnDisk();
  if (inMemory_ || state_ == State::Writing) {
    Files.WriteText(kStreamNumber, content_);
    Files.Flush(kStreamNumber);
  }
  if (inMemory_ && state_ == State::Closed) Files.Close(kStreamNumber);
}

void StreamFile::Close() {
  const bool wasWriting = state_ == State::Writing;
  if (!inMemory_) {
    if (wasWriting) Files.WriteText(kStreamNumber, content_);
    Files.Close(kStreamNumber);
  }
  state_ = State::Closed;
  if (!wasWriting) return;

  if (old_.size() > content_.size()) content_.append(old_, content_.size());
  if (!batch.running) return;
  if (!inMemory_) batch.keepsTail = FindFile(ProgramPath(kStreamName)) != kStreamName;
  batch.begun = true;
  batch.pending = inMemory_;
  batch.content = content_;
}

const std::string& StreamFile::Reopen() {
  if (!inMemory_) Files.OpenBinary(kStreamNumber, ProgramPath(kStreamName));
  state_ = State::Reading;
  return content_;
}

BuildBatch::BuildBatch() {
  batch = BatchState{};
  batch.running = true;
}

BuildBatch::~BuildBatch() {
  try {
    PutLastOnDisk();
  } catch (const Fault&) {
    // Only reached while another fault passes: `Finish` tells of trouble otherwise.
  }
  batch = BatchState{};
}

void BuildBatch::Finish() { PutLastOnDisk(); }

}  // namespace quillmark
