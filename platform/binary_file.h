#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/checked_integer.h"
#include "platform/little_endian.h"
#include "platform/safe_write.h"

namespace quillmark {

/// A file that is read and written at a position, which starts at 0.
///
/// It is taken into memory once, by the first read: reads walk over it and deliver zero behind its
/// end, writes change it in memory and reach the disk when the file is flushed or closed. A file of
/// the user's then gets its new content whole or not at all, as `Replacement` has it. What was not
/// flushed when the object ends is given up. All numbers are little-endian. Throws the file fault
/// for whatever the system refuses.
class BinaryFile {
 public:
  /// Opens the file, and makes it at once if there is none; that one goes again if its content
  /// can't be written. It is never truncated. One that may not be written is opened for reading
  /// alone: the first write to it is the fault.
  static BinaryFile Open(const std::string& path);
  /// A file of the program's own, made anew under exactly this name, and emptied if it stands
  /// there. It is written in place.
  static BinaryFile Make(const std::string& path);
  /// An empty file in the place of the one at `path`, which stands there until the first flush and
  /// is discarded then. Throws if there is none or if it could not be deleted.
  static BinaryFile Replace(const std::string& path);

  const std::string& Path() const { return path_; }

  /// As many numbers as `values` has places for. Most of a script is read by this, so it stands
  /// where it can be inlined.
  template <std::integral Raw>
  void ReadNumbers(std::span<CheckedInteger<Raw>> values) {
    static_assert(sizeof(CheckedInteger<Raw>) == sizeof(Raw));
    if (!whole_) TakeIn();
    const std::size_t count = values.size_bytes();
    if (position_ + count > bytes_.size()) {
      return TakeNumbers(ReadText(static_cast<std::int64_t>(count)), values);
    }
    TakeNumbers(std::string_view(bytes_).substr(position_), values);
    position_ += count;
  }
  /// `count` bytes, zeros for those behind the end.
  std::string ReadText(std::int64_t count);
  /// True once a read has met the end.
  bool MetEnd() const { return metEnd_; }

  void WriteText(std::string_view bytes);

  std::int64_t Position() const { return static_cast<std::int64_t>(position_); }
  /// Throws the file fault for a negative position.
  void Seek(std::int64_t position);
  std::int64_t Length();

  /// Whether nothing of it has reached the disk since it was made.
  bool IsFresh() const { return fresh_; }
  /// Takes back all that was written to a fresh file, and stands at its start.
  void Clear();

  /// Puts on disk what was written so far.
  void Flush();
  /// Flushes and closes.
  void Close();

 private:
  explicit BinaryFile(const std::string& path) : path_(path) {}

  /// Takes the rest of the file into memory, behind what was written already.
  void TakeIn();
  void WriteInPlace(std::size_t from, std::size_t count);
  void PutInPlaceOfOld();

  std::string path_;
  std::filebuf disk_;
  std::string bytes_;
  bool whole_ = false;  ///< `bytes_` is the file; otherwise what was written from its start
  bool fresh_ = false;
  bool inPlace_ = false;
  std::unique_ptr<Replacement> replacement_;  ///< what is to be discarded by the first flush
  bool writable_ = true;
  bool metEnd_ = false;
  std::size_t position_ = 0;
  std::size_t dirtyFrom_ = 0;
  std::size_t dirtyTo_ = 0;
};

}  // namespace quillmark
