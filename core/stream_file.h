#pragma once

#include <string>

namespace quillmark {

/// The way of built streams, one after the other, through `scriptdata.tmp` in the program's folder,
/// on file number 3, which has to be free. Each stream goes through four steps:
///
///     file.Begin() += ...;   // the stream is made
///     file.Write();          // from here on the file counts as closed
///     file.Read();           // and from here on as open again
///     file.Close();
///
/// A file of exactly that name is deleted first. One that stands there in other letter case stays:
/// each stream is written over its first bytes, and its old length counts.
///
/// The file stays open from one stream to the next: the disk sees the first one, and the last one
/// in `Finish`. What ends earlier by a fault is put on disk as far as it was made, and leaves file
/// number 3 open unless the file counted as closed at that moment.
class StreamFile {
 public:
  StreamFile() = default;
  ~StreamFile();
  StreamFile(const StreamFile&) = delete;
  StreamFile& operator=(const StreamFile&) = delete;

  /// Opens the file for the next stream and gives the place to make it in. Throws the file fault.
  std::string& Begin();
  /// Writes the stream and gives what the file holds then, the tail of an older one included.
  /// Throws the file fault.
  const std::string& Write();
  void Read();
  void Close();
  /// Puts the last stream on disk and lets go of the file; throws the file fault if that fails.
  /// Nothing happens without a stream.
  void Finish();

 private:
  enum class State { NotOpen, Writing, Closed, Reading };
  void LeaveFault();
  void Open();
  /// What opening the file once more would do to it.
  void StartAgain();

  std::string content_;
  State state_ = State::NotOpen;
  bool keepsTail_ = false;  ///< the file has other letter case: it is never emptied
  bool isFirst_ = false;    ///< the stream is the one that opened the file
};

}  // namespace quillmark
