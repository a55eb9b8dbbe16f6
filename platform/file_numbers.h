#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "platform/binary_file.h"
#include "platform/bounded_array.h"
#include "platform/checked_integer.h"
#include "platform/field_reader.h"
#include "platform/line_writer.h"

namespace quillmark {

inline constexpr int kLogNumber = 6;  ///< the one that belongs to the log

/// Small fixed numbers that stand for open files, 1 to 10: binary files, texts of fields and texts
/// that are written line by line. Every operation on a number outside 1 to 10, on a number that is
/// not open, or of the wrong kind of file throws the file fault; so does whatever the system
/// refuses.
class FileNumbers {
 private:
  // In front of the public routines, which deduce their types from these.
  using OpenFile = std::variant<std::monostate, BinaryFile, FieldReader, LineWriter>;

  [[noreturn]] static void ThrowNoSuchNumber(int number);
  [[noreturn]] static void ThrowWrongKind(int number);

  /// What stands behind `number` of `self`, which may be constant.
  template <class Self>
  static auto& Behind(Self& self, int number) {
    if (number < 1 || number > 10) ThrowNoSuchNumber(number);
    return self.files_[number];
  }
  template <class Kind, class Self>
  static auto& Opened(Self& self, int number) {
    auto* const file = std::get_if<Kind>(&Behind(self, number));
    if (file == nullptr) ThrowWrongKind(number);
    return *file;
  }

 public:
  // Opening throws also if the number is open already.

  /// Opens for reading and writing, as `BinaryFile::Open`.
  void OpenBinary(int number, const std::string& path);
  /// The same with a file made anew, as `BinaryFile::Make`.
  void MakeBinary(int number, const std::string& path);
  /// Opens for writing in the place of an old file, as `BinaryFile::Replace`.
  void ReplaceBinary(int number, const std::string& path);
  /// Opens for `ReadField`, as `FieldReader`.
  void OpenInput(int number, const std::string& path);
  /// Opens for `PrintLine`, as `LineWriter`.
  void OpenOutput(int number, const std::string& path);

  bool IsOpen(int number) const;
  /// Tells whether any number has `path` open; compared as the system resolves it.
  bool IsPathOpen(const std::string& path) const;

  /// Flushes and closes; nothing happens if the number is not open.
  void Close(int number);
  /// Closes the numbers 1 to 5 and 7 to 10. Number 6 belongs to the log.
  void CloseFiles();
  /// Closes one number; what is not on disk yet is given up.
  void Abandon(int number) noexcept;
  /// `CloseFiles` for an act that was broken off: what is not on disk yet is given up.
  void AbandonFiles() noexcept;
  /// Abandons all ten, at the end of the process.
  void CloseAll() noexcept;

  Byte ReadByte(int number) { return ReadNumber<Byte>(number); }
  Int16 ReadInt16(int number) { return ReadNumber<Int16>(number); }
  Int32 ReadInt32(int number) { return ReadNumber<Int32>(number); }
  /// As many numbers as `values` has places for.
  template <std::integral Raw>
  void ReadNumbers(int number, std::span<CheckedInteger<Raw>> values) {
    Opened<BinaryFile>(*this, number).ReadNumbers(values);
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

  /// The next field, as `FieldReader` has it.
  std::string ReadField(int number);

  /// `text` and the system's line end.
  void PrintLine(int number, std::string_view text);

 private:
  OpenFile& Free(int number);
  template <class Number>
  Number ReadNumber(int number) {
    Number value;
    ReadNumbers(number, std::span(&value, 1));
    return value;
  }
  template <class Number>
  void WriteNumber(int number, Number value);

  FixedArray<OpenFile, 11> files_;
};

/// The file numbers of the process.
extern FileNumbers Files;

/// Runs `steps`, which write to the file of `number`. A fault in their data puts on disk what they
/// wrote before it, as if every write had gone through at once. Where the system failed them, the
/// file is abandoned and stays as it was. Either way the fault passes on.
void WriteUpToFault(int number, const std::function<void()>& steps);

}  // namespace quillmark
