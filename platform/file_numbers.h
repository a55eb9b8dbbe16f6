#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <span>
#include <string>
#include <string_view>

#include "platform/bounded_array.h"
#include "platform/checked_integer.h"
#include "platform/little_endian.h"

namespace quillmark {

/// Small fixed numbers that stand for open files, 1 to 10.
///
/// A file opened for binary access is taken into memory once, by the first read: reads walk over it
/// and deliver zero behind its end, writes change it in memory and reach the disk when the file is
/// flushed or closed. All numbers are little-endian. Every operation on a number outside 1 to 10,
/// on a number that is not open, or of the wrong mode throws the file fault; so does whatever the
/// system refuses.
class FileNumbers {
 public:
  /// Opens for reading and writing at position 0, and makes the file at once if there is none. It
  /// is never truncated. A file that may not be written is opened for reading alone: the first
  /// write to it is the fault. Throws also if the number is open already.
  void OpenBinary(int number, const std::string& path);
  /// The same with a file made anew under exactly this name, and emptied if it stands there.
  void MakeBinary(int number, const std::string& path);
  /// Opens for `ReadField`. The file has to exist.
  void OpenInput(int number, const std::string& path);
  /// Opens for `PrintLine`, emptied. The file stays open in the system too until it is closed.
  void OpenOutput(int number, const std::string& path);

  bool IsOpen(int number) const;
  /// Tells whether any number has `path` open; compared as the system resolves it.
  bool IsPathOpen(const std::string& path) const;

  /// Flushes and closes; nothing happens if the number is not open.
  void Close(int number);
  /// Closes the numbers 1 to 5 and 7 to 10. Number 6 belongs to the log.
  void CloseFiles();
  /// Closes one number; what can't be written any more is given up.
  void Abandon(int number) noexcept;
  /// `CloseFiles` for an act that was broken off: what can't be written any more is given up.
  void AbandonFiles() noexcept;
  /// Abandons all ten, at the end of the process.
  void CloseAll() noexcept;

  Byte ReadByte(int number) { return ReadNumber<Byte>(number); }
  Int16 ReadInt16(int number) { return ReadNumber<Int16>(number); }
  Int32 ReadInt32(int number) { return ReadNumber<Int32>(number); }
  /// As many numbers as `values` has places for. Most of a script is read by this, so it stands
  /// where it can be inlined.
  template <std::integral Raw>
  void ReadNumbers(int number, std::span<CheckedInteger<Raw>> values) {
    static_assert(sizeof(CheckedInteger<Raw>) == sizeof(Raw));
    OpenFile& file = Readable(number);
    const std::size_t count = values.size_bytes();
    if (file.position + count > file.bytes.size()) {
      return TakeNumbers(ReadText(number, static_cast<std::int64_t>(count)), values);
    }
    TakeNumbers(std::string_view(file.bytes).substr(file.position), values);
    file.position += count;
  }
  template <std::integral Raw>
  void ReadInto(int number, CheckedInteger<Raw>& value) {
    ReadNumbers(number, std::span(&value, 1));
  }
  template <class Number, std::size_t Count>
  void ReadInto(int number, FixedArray<Number, Count>& values) {
    ReadNumbers(number, values.First(Count));
  }
  /// `count` bytes, zeros for those behind the end.
  std::string ReadText(int number, std::int64_t count);
  /// True once a read has met the end of a binary file; of a text file, when nothing is left.
  bool EndOfFile(int number) const;

  void WriteByte(int number, Byte value);
  void WriteInt16(int number, Int16 value);
  void WriteInt32(int number, Int32 value);
  void WriteText(int number, std::string_view bytes);

  /// Position of the next read or write, from 0.
  std::int64_t Position(int number) const;
  /// Throws the file fault for a negative one.
  void Seek(int number, std::int64_t position);
  std::int64_t Length(int number);

  /// Cuts the file down to nothing, and stands at its start. Fails as `MakeBinary` and `Close` do.
  void Empty(int number);

  /// Puts on disk what was written so far.
  void Flush(int number);

  /// The next delimited field of a text file: up to a comma or a line end, or what stands between
  /// double quotes, which may have blanks in front. Throws the file fault at the end of the file.
  std::string ReadField(int number);

  /// `text` and the system's line end.
  void PrintLine(int number, std::string_view text);

 private:
  enum class Mode { Closed, Binary, Input, Output };
  struct OpenFile {
    Mode mode = Mode::Closed;
    std::string path;
    std::filebuf disk;
    std::string bytes;
    bool whole = false;  ///< `bytes` is the file; otherwise what was written from its start
    bool fresh = false;  ///< made anew, and still empty on disk
    std::size_t position = 0;
    bool writable = true;
    bool metEnd = false;
    std::size_t dirtyFrom = 0;
    std::size_t dirtyTo = 0;
  };

  [[noreturn]] static void ThrowNoSuchNumber(int number);
  [[noreturn]] static void ThrowWrongMode(int number);

  OpenFile& Slot(int number) {
    if (number < 1 || number > 10) ThrowNoSuchNumber(number);
    return slots_[number];
  }
  const OpenFile& Slot(int number) const { return const_cast<FileNumbers*>(this)->Slot(number); }
  OpenFile& Free(int number, const std::string& path);
  OpenFile& Opened(int number, Mode mode) {
    OpenFile& file = Slot(number);
    if (file.mode != mode) ThrowWrongMode(number);
    return file;
  }
  const OpenFile& Opened(int number, Mode mode) const {
    return const_cast<FileNumbers*>(this)->Opened(number, mode);
  }
  /// Takes the rest of the file into memory, behind what was written already.
  static void TakeIn(OpenFile& file);
  OpenFile& Readable(int number) {
    OpenFile& file = Opened(number, Mode::Binary);
    if (!file.whole) TakeIn(file);
    return file;
  }
  template <class Number>
  Number ReadNumber(int number) {
    Number value;
    ReadInto(number, value);
    return value;
  }
  template <class Number>
  void WriteNumber(int number, Number value);
  static void WriteOut(OpenFile& file);

  FixedArray<OpenFile, 11> slots_;
};

/// The file numbers of the process.
extern FileNumbers Files;

/// While a fault passes through its scope, the file of `number` is put on disk as far as it was
/// written, so that a fault leaves behind what a write-through would have left.
class FlushOnFault {
 public:
  explicit FlushOnFault(int number);
  ~FlushOnFault();
  FlushOnFault(const FlushOnFault&) = delete;
  FlushOnFault& operator=(const FlushOnFault&) = delete;

 private:
  int number_;
  int pending_;
};

}  // namespace quillmark
