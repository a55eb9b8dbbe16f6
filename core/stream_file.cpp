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
constexpr std::size_t kUsualLength = 256;

struct BatchState {
  bool running = false;
  bool holdsFile = false;  ///< the file stays open behind the last stream
  bool keepsTail = false;  ///< the file has other letter case: it is never emptied
};

BatchState batch;

/// Opens the file at position 0.
void OpenOnDisk() {
  const std::string path = ProgramPath(kStreamName);
  const std::string name = FindFile(path);
  batch.keepsTail = !name.empty() && name != kStreamName;
  if (name == kStreamName) {
    DeleteFile(path);
    Files.MakeBinary(kStreamNumber, path);
  } else {
    Files.OpenBinary(kStreamNumber, path);
  }
}

/// What opening the file once more would do to it.
void StartAgain() {
  if (batch.keepsTail) {
    Files.Seek(kStreamNumber, 0);
  } else {
    Files.Empty(kStreamNumber);
  }
}

}  // namespace

StreamFile::StreamFile() : pendingFaults_(std::uncaught_exceptions()) {
  content_.reserve(kUsualLength);
  if (batch.holdsFile) {
    StartAgain();
  } else {
    OpenOnDisk();
  }
}

StreamFile::~StreamFile() {
  if (std::uncaught_exceptions() == pendingFaults_) return;
  batch.holdsFile = false;
  try {
    LeaveFault();
  } catch (const Fault&) {
    return;  // the fault that is on its way tells more than this one
  }
}

void StreamFile::LeaveFault() {
  if (state_ == State::Closed) return Files.Close(kStreamNumber);
  if (state_ == State::Writing) Files.WriteText(kStreamNumber, content_);
  Files.Flush(kStreamNumber);
}

void StreamFile::Close() {
  if (state_ == State::Writing) {
    Files.WriteText(kStreamNumber, content_);
    const std::int64_t tail = Files.Length(kStreamNumber) - Files.Position(kStreamNumber);
    content_ += Files.ReadText(kStreamNumber, tail);
  }
  state_ = State::Closed;
  if (!batch.running) return Files.Close(kStreamNumber);
  if (!batch.holdsFile) Files.Flush(kStreamNumber);
  batch.holdsFile = true;
}

const std::string& StreamFile::Reopen() {
  if (!batch.running) Files.OpenBinary(kStreamNumber, ProgramPath(kStreamName));
  state_ = State::Reading;
  return content_;
}

BuildBatch::BuildBatch() {
  batch = BatchState{};
  batch.running = true;
}

BuildBatch::~BuildBatch() {
  try {
    Finish();
  } catch (const Fault&) {
    // Only reached while another fault passes: `Finish` tells of trouble otherwise.
  }
  batch = BatchState{};
}

void BuildBatch::Finish() {
  if (batch.holdsFile) Files.Close(kStreamNumber);
  batch.holdsFile = false;
}

}  // namespace quillmark
