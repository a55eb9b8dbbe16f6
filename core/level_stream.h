#pragma once

#include <string>

#include "platform/checked_integer.h"

namespace quillmark {

/// The text of the box that a stream without its closing pair ends the process with.
inline constexpr const char* kMissingEnd = "Error: 0x83 opcode (End-of-data) not found!";

/// Thrown by the parsers where the byte behind a `Level` or `Title` element is not `EndOfData`. It
/// is no `Fault`: the whole process ends after the message `kMissingEnd`.
struct MissingEndOfData {};

/// Reads the stream of `Levels[level]` from file number 1, which stands at the stream's first byte,
/// into that record, which has to be fresh. `length` is one less than the stream's bytes, and
/// limits the elements that are read. On return the file stands behind the last byte that was read.
/// Throws the subscript fault for a group that is full and for an element past the 1025th, and
/// `MissingEndOfData`.
void ParseLevelTr4(const Int16& level, const Int16& length);
void ParseLevelTr5(const Int16& level, const Int16& length);

/// Writes the stream of `Levels[level]`, made from its groups, to `scriptdata.tmp` in the program's
/// folder through file number 3, which has to be free, counts `LevelOffsets[level + 1]` on from
/// `LevelOffsets[level]`, and takes the stream into
/// `LevelRaw[level]`. Throws the subscript fault for an index outside the levels and for a stream
/// of more than 1025 bytes, the overflow fault for an offset past 32767, and file faults. A fault
/// may leave file number 3 open.
void BuildLevelTr4(int level);
void BuildLevelTr5(int level);

/// While one of these lives, the streams that are built are collected in memory: the disk sees the
/// first one, and at the end of the batch or at a fault the last one.
class BuildBatch {
 public:
  BuildBatch();
  ~BuildBatch();
  BuildBatch(const BuildBatch&) = delete;
  BuildBatch& operator=(const BuildBatch&) = delete;
  /// Puts the last stream on disk; throws the file fault if that fails.
  void Finish();
};

}  // namespace quillmark
