#include "support/script_generator.h"

#include "core/script_model.h"
#include "support/text.h"

namespace quillmark {
namespace {

constexpr int kObjectWidth = 14;
constexpr int kShown = 4;  // numbers below it have rows in the editor's lists

}  // namespace

OffsetTable Joined(const std::vector<std::string>& entries) {
  OffsetTable table;
  for (const std::string& entry : entries) {
    table.offsets += Word(static_cast<int>(table.entries.size()));
    table.entries += entry;
  }
  return table;
}

int ElementLength(std::uint8_t game, int opcode) {
  struct Range {
    int first, last, tr4, tr5;
  };
  static constexpr Range ranges[] = {
      {0x80, 0x80, 2, 2},  {0x84, 0x88, 2, 2},   {0x89, 0x8a, 5, 5},  {0x8b, 0x8b, 2, 2},
      {0x8c, 0x8c, 2, 1},  {0x8d, 0x8d, 10, 1},  {0x8e, 0x8e, 6, 1},  {0x8f, 0x8f, 4, 1},
      {0x90, 0x90, 2, 2},  {0x91, 0x91, 26, 1},  {0x92, 0x92, 2, 15}, {0x93, 0x99, 15, 15},
      {0x9a, 0x9d, 15, 1}, {0x9e, 0xa5, 15, 15}, {0xa6, 0xa9, 15, 1}, {0xaa, 0xad, 15, 15},
      {0xae, 0xc0, 15, 1}, {0xc1, 0xd0, 15, 15}, {0xd1, 0xd8, 15, 1}, {0xd9, 0xd9, 15, 3},
      {0xda, 0xda, 1, 3}};
  for (const Range& range : ranges) {
    if (opcode >= range.first && opcode <= range.last) return game == kTr4 ? range.tr4 : range.tr5;
  }
  return 1;
}

std::string ScriptGenerator::RandomBytes(int count, int lowest) {
  std::string bytes;
  for (int i = 0; i < count; ++i) {
    const bool any = !forEditor_ || lowest > 0 || Below(100) == 0;
    bytes += static_cast<char>(any ? lowest + Below(256 - lowest) : i % 2 == 0 ? Below(kShown) : 0);
  }
  return bytes;
}

std::string ScriptGenerator::Stream(std::uint8_t game, int objects, bool title) {
  std::string stream;
  for (int left = Below(12); left > 0; --left) {
    int opcode = 0;
    while (ElementLength(game, opcode) == 1) opcode = Below(256);
    const int width = ElementLength(game, opcode) - 1;
    if (width == kObjectWidth && objects-- <= 0) continue;
    stream += static_cast<char>(opcode);
    stream += Rarely() ? Zeros(static_cast<std::size_t>(width)) : RandomBytes(width);
    if (Rarely()) stream += static_cast<char>(Below(0x80));
  }
  if (Rarely()) title = !title;
  return stream + (title ? '\x82' : '\x81') + RandomBytes(title ? 4 : 5) + '\x83';
}

std::string ScriptGenerator::Script(std::uint8_t game) {
  std::vector<std::string> names(static_cast<std::size_t>(Below(6) + (forEditor_ ? kShown : 0)));
  for (std::string& name : names) name = RandomBytes(Below(12), Rarely() ? 0 : 1) + '\0';
  std::vector<std::string> streams(static_cast<std::size_t>(Below(5) + (forEditor_ ? 1 : 0)));
  for (std::string& stream : streams) stream = Stream(game, 13, &stream == streams.data());

  const OffsetTable nameTable = Joined(names);
  const OffsetTable levelTable = Joined(streams);
  const bool reserved = Rarely();
  const auto kept = [&](int count) {
    return reserved ? RandomBytes(count) : Zeros(static_cast<std::size_t>(count));
  };
  std::string script = RandomBytes(2) + Zeros(2) + RandomBytes(5);
  script += static_cast<char>(streams.size());
  script += static_cast<char>(names.size());
  script += kept(1) + Word(static_cast<int>(nameTable.entries.size())) +
            Word(static_cast<int>(levelTable.entries.size()));
  script += RandomBytes(15) + kept(5) + RandomBytes(15) + kept(5);
  script += nameTable.offsets + nameTable.entries + levelTable.offsets + levelTable.entries;
  for (int i = Rarely() ? Below(10) : 8; i > 0; --i) script += RandomBytes(Below(6), 1) + '\0';
  return script + (Rarely() ? RandomBytes(Below(9)) : "");
}

std::string ScriptGenerator::LanguageFile() {
  std::vector<std::string> strings(static_cast<std::size_t>(Below(9)));
  for (std::string& text : strings) text = RandomBytes(Below(9), Rarely() ? 0 : 1) + '\0';
  const OffsetTable table = Joined(strings);
  const int total = static_cast<int>(strings.size());
  const int first = Below(total + 1);
  const int second = Below(total - first + 1);
  return Word(first) + Word(second) + Word(total - first - second) + RandomBytes(6) +
         table.offsets + table.entries + (Rarely() ? RandomBytes(Below(9)) : "");
}

}  // namespace quillmark
