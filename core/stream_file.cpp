#include "core/stream_file.h"

#include <cstdint>

#include "core/script_dat.h"
#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {
namespace {

constexpr int kStreamNumber = 3;
constexpr const char* kStreamName = "scriptdata.tmp";

}  // namespace

std::string BuiltStreamPath() { return ProgramPath(kStreamName); }

StreamFile::~StreamFile() {
  try {
    LeaveFault();
  } catch (...) {
    return;  // the fault that is on its way tells more than this one
  }
}

void StreamFile::LeaveFault() {
  if (state_ == State::NotOpen) return;
  if (state_ == State::Closed) return Files.Close(kStreamNumber);
  if (state_ == State::Writing) Files.WriteText(kStreamNumber, content_);
  Files.Flush(kStreamNumber);
}

void StreamFile::Open() {
  const std::string path = BuiltStreamPath();
  const std::string name = FindFile(path);
  keepsTail_ = !name.empty() && name != kStreamName;
  if (keepsTail_) return Files.OpenBinary(kStreamNumber, path);
  if (!name.empty()) EraseFile(path);
  Files.MakeBinary(kStreamNumber, path);
}

void StreamFile::StartAgain() {
  if (keepsTail_) {
    Files.Seek(kStreamNumber, 0);
  } else {
    Files.Empty(kStreamNumber);
  }
}

std::string& StreamFile::Begin() {
  content_.clear();
  isFirst_ = state_ == State::NotOpen;
  if (isFirst_) {
    Open();
  } else {
    StartAgain();
  }
  state_ = State::Writing;
  return content_;
}

const std::string& StreamFile::Write() {
  Files.WriteText(kStreamNumber, content_);
  const std::int64_t tail = Files.Length(kStreamNumber) - Files.Position(kStreamNumber);
  content_ += Files.ReadText(kStreamNumber, tail);
  state_ = State::Closed;
  if (isFirst_) Files.Flush(kStreamNumber);
  return content_;
}

void StreamFile::Read() { state_ = State::Reading; }

void StreamFile::Close() { state_ = State::Closed; }

void StreamFile::Finish() {
  if (state_ == State::NotOpen) return;
  state_ = State::NotOpen;
  Files.Close(kStreamNumber);
}

}  // namespace quillmark
