#include "core/level_stream.h"
#include "core/object_groups.h"
#include "core/opcode_table.h"
#include "platform/byte_reader.h"

namespace quillmark {
namespace {

void ReadOperands(ByteReader& bytes, LevelRecord& level, const std::vector<Operand>& operands) {
  for (const Operand& operand : operands) {
    std::visit([&](auto member) { bytes.ReadInto(level.*member); }, operand.field);
  }
}

// Each of these takes the place of the opcode in the element's range, from 0. What reaches for a
// list entry does so before any operand is read: a full list faults with nothing stored.

void ReadContent(ByteReader& bytes, LevelRecord& level, const Values& values, int) {
  ReadOperands(bytes, level, values.operands);
  if (values.onWord != nullptr) level.*values.onWord = kOn;
}

void ReadContent(ByteReader& bytes, LevelRecord& level, const Objects& objects, int place) {
  WithGroup(level, objects.kind, [&](Byte& count, auto& entries) {
    auto& entry = entries[count];
    if constexpr (kHasCombo<decltype(entry)>) {
      entry.Id = place / 2 + 1;
      entry.Combo = place % 2 + 1;
    } else {
      entry.Id = place + 1;
    }
    bytes.ReadInto(entry.StringId);
    bytes.ReadInto(entry.Params);
    ++count;
  });
}

void ReadContent(ByteReader& bytes, LevelRecord& level, const CutList&, int place) {
  CutEntry& entry = level.Cuts[level.CutCount];
  entry.Type = place + 1;
  bytes.ReadInto(entry.Value);
  ++level.CutCount;
}

void ReadContent(ByteReader& bytes, LevelRecord& level, const WordList& list, int) {
  bytes.ReadInto((level.*list.words)[level.*list.count]);
  ++(level.*list.count);
}

/// The operand is taken apart as hexadecimal text without leading zeros: its last digit plus 1, and
/// its first digit where that is a decimal one.
void ReadContent(ByteReader& bytes, LevelRecord& level, const MipList&, int) {
  MipEntry& entry = level.Mips[level.MipCount];
  const int operand = bytes.ReadByte();
  const int firstDigit = operand > 0xF ? operand >> 4 : operand;
  entry.Low = (operand & 0xF) + 1;
  entry.High = firstDigit <= 9 ? firstDigit : 0;
}

void ReadContent(ByteReader& bytes, LevelRecord& level, const Closing& closing, int) {
  ReadOperands(bytes, level, closing.operands);
  if (bytes.ReadByte() != kEndOfData) throw MissingEndOfData{};
}

}  // namespace

void ParseStream(ByteReader& bytes, const Int16& length, const StreamFormat& format,
                 LevelRecord& level, LevelRawEntry& opcodes) {
  const Int16 lastElement = length - 1;
  for (int i = 0; i <= lastElement; ++i) {
    const Byte opcode = bytes.ReadByte();
    const Element* element = format.Find(opcode);
    if (element != nullptr) {
      std::visit(
          [&](const auto& content) { ReadContent(bytes, level, content, opcode - element->first); },
          element->content);
      if (std::holds_alternative<Closing>(element->content)) return;
    }
    ++opcodes.Length;
    opcodes.Bytes[i] = opcode;
  }
}

}  // namespace quillmark
