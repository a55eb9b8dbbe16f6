#include "core/level_stream.h"
#include "core/object_groups.h"
#include "core/opcode_table.h"
#include "platform/file_numbers.h"
#include "platform/log.h"

namespace quillmark {
namespace {

constexpr int kScriptFile = 1;

void ReadOperands(LevelRecord& level, const std::vector<Operand>& operands) {
  for (const Operand& operand : operands) {
    std::visit([&](auto member) { Files.ReadInto(kScriptFile, level.*member); }, operand.field);
  }
}

// Each of these takes the place of the opcode in the element's range, from 0. What reaches for a
// list entry does so before any operand is read: a full list faults with nothing stored.

void ReadContent(LevelRecord& level, const Values& values, int) {
  ReadOperands(level, values.operands);
  if (values.onWord != nullptr) level.*values.onWord = kOn;
}

void ReadContent(LevelRecord& level, const Objects& objects, int place) {
  WithGroup(level, objects.kind, [place](Byte& count, auto& entries) {
    auto& entry = entries[count];
    if constexpr (kHasCombo<decltype(entry)>) {
      entry.Id = place / 2 + 1;
      entry.Combo = place % 2 + 1;
    } else {
      entry.Id = place + 1;
    }
    Files.ReadInto(kScriptFile, entry.StringId);
    Files.ReadInto(kScriptFile, entry.Params);
    ++count;
  });
}

void ReadContent(LevelRecord& level, const CutList&, int place) {
  CutEntry& entry = level.Cuts[level.CutCount];
  entry.Type = place + 1;
  Files.ReadInto(kScriptFile, entry.Value);
  ++level.CutCount;
}

void ReadContent(LevelRecord& level, const WordList& list, int) {
  Files.ReadInto(kScriptFile, (level.*list.words)[level.*list.count]);
  ++(level.*list.count);
}

/// The operand is taken apart as hexadecimal text without leading zeros: its last digit plus 1, and
/// its first digit where that is a decimal one.
void ReadContent(LevelRecord& level, const MipList&, int) {
  MipEntry& entry = level.Mips[level.MipCount];
  const int operand = Files.ReadByte(kScriptFile);
  const int firstDigit = operand > 0xF ? operand >> 4 : operand;
  entry.Low = (operand & 0xF) + 1;
  entry.High = firstDigit <= 9 ? firstDigit : 0;
}

void ReadContent(LevelRecord& level, const Closing& closing, int) {
  ReadOperands(level, closing.operands);
  if (Files.ReadByte(kScriptFile) != kEndOfData) throw MissingEndOfData{};
}

void ParseLevel(const Int16& level, const Int16& length, const StreamFormat& format) {
  LogWrite("Parsing ", format.Game(), " script data for level #", level.value());
  LevelRecord& record = TRScript.Levels[level];
  const Int16 lastElement = length - 1;
  for (int i = 0; i <= lastElement; ++i) {
    const Byte opcode = Files.ReadByte(kScriptFile);
    const Element* element = format.Find(opcode);
    if (element != nullptr) {
      std::visit(
          [&](const auto& content) { ReadContent(record, content, opcode - element->first); },
          element->content);
      if (std::holds_alternative<Closing>(element->content)) return;
    }
    LevelRawEntry& raw = TRScript.LevelRaw[level];
    ++raw.Length;
    raw.Bytes[i] = opcode;
  }
}

}  // namespace

void ParseLevelTr4(const Int16& level, const Int16& length) {
  ParseLevel(level, length, Tr4Format());
}

void ParseLevelTr5(const Int16& level, const Int16& length) {
  ParseLevel(level, length, Tr5Format());
}

}  // namespace quillmark
