#include "unit/script_generator.h"

#include <iterator>
#include <vector>

#include "core/script_model.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

constexpr int kObjectWidth = 14;

/// The bytes of the operands by opcode, but for the closing ones.
std::map<int, int> WidthsOf(std::uint8_t game) {
  std::map<int, int> widths;
  for (int opcode = 0; opcode < 256; ++opcode) {
    const int length = ElementLength(game, opcode);
    if (length > 1) widths[opcode] = length - 1;
  }
  return widths;
}

}  // namespace

std::string ScriptGenerator::RandomBytes(int count, int lowest) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(lowest + Below(256 - lowest));
  return bytes;
}

std::string ScriptGenerator::Stream(const std::map<int, int>& widths, int objects, bool title) {
  std::string stream;
  for (int left = Below(12); left > 0; --left) {
    const auto& [opcode, width] =
        *std::next(widths.begin(), Below(static_cast<int>(widths.size())));
    if (width == kObjectWidth && objects-- <= 0) continue;
    stream += static_cast<char>(opcode);
    stream += Rarely() ? Zeros(static_cast<std::size_t>(width)) : RandomBytes(width);
    if (Rarely()) stream += static_cast<char>(Below(0x80));
  }
  if (Rarely()) title = !title;
  return stream + (title ? '\x82' : '\x81') + RandomBytes(title ? 4 : 5) + '\x83';
}

std::string ScriptGenerator::Script(std::uint8_t game) {
  const std::map<int, int> widths = WidthsOf(game);
  std::vector<std::string> names(static_cast<std::size_t>(Below(6)));
  for (std::string& name : names) name = RandomBytes(Below(12), Rarely() ? 0 : 1) + '\0';
  std::vector<std::string> streams(static_cast<std::size_t>(Below(5)));
  for (std::string& stream : streams) stream = Stream(widths, 13, &stream == streams.data());

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
