#pragma once

#include <string>

#include "core/opcode_table.h"
#include "core/script_model.h"
#include "platform/byte_reader.h"
#include "platform/checked_integer.h"

namespace quillmark {

/// The text of the box that a stream without its closing pair ends the process with.
inline constexpr const char* kMissingEnd = "Error: 0x83 opcode (End-of-data) not found!";

/// Thrown by the parser where the byte behind a `Level` or `Title` element is not `EndOfData`. It
/// is no `Fault`: the whole process ends after the message `kMissingEnd`.
struct MissingEndOfData {};

/// Reads a stream of `format` into `level`, which has to be fresh, and counts its opcodes into
/// `opcodes`. The stream begins where `bytes` stands; `length` is one less than its bytes, and
/// limits the elements that are read. Leaves `bytes` behind the last byte that was read, after a
/// fault too. Throws the subscript fault for a group that is full and for an element past the
/// 1025th, the overflow fault for the lowest `length` and for a count of opcodes past its type, and
/// `MissingEndOfData`; what was read by then stays.
void ParseStream(ByteReader& bytes, const Int16& length, const StreamFormat& format,
                 LevelRecord& level, LevelRawEntry& opcodes);

/// Puts the stream of `format` that is made from the groups of `level` behind `stream`; `isTitle`
/// tells which closing element it gets. Throws the subscript fault for a count past its places,
/// with the elements in front of the missing entry in `stream`.
void AppendStream(const LevelRecord& level, bool isTitle, const StreamFormat& format,
                  std::string& stream);

}  // namespace quillmark
