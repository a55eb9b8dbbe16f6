#include "tools/script/script_scan.h"

#include <algorithm>
#include <span>
#include <utility>

#include "core/script_head.h"

namespace quillmark {
namespace {

std::size_t WidthOf(const Operand& operand) {
  return std::visit([](auto member) { return sizeof(LevelRecord().*member); }, operand.field);
}

std::size_t WidthOf(const std::vector<Operand>& operands) {
  std::size_t width = 0;
  for (const Operand& operand : operands) width += WidthOf(operand);
  return width;
}

std::size_t OperandWidth(const Values& values) { return WidthOf(values.operands); }
std::size_t OperandWidth(const Closing& closing) { return WidthOf(closing.operands); }
std::size_t OperandWidth(const Objects&) {
  return sizeof(ObjectEntry::StringId) + sizeof(ObjectEntry::Params);
}
std::size_t OperandWidth(const CutList&) { return sizeof(CutEntry::Value); }
std::size_t OperandWidth(const WordList&) { return sizeof(Int16); }
std::size_t OperandWidth(const MipList&) { return sizeof(Byte); }

std::size_t OperandWidth(const Element& element) {
  return std::visit([](const auto& content) { return OperandWidth(content); }, element.content);
}

void Skip(ByteReader& bytes, std::int64_t count) { bytes.ReadText(count); }

std::int64_t TakeWord(ByteReader& bytes) {
  Int16 word;
  bytes.ReadInto(word);
  return word.value();
}

std::size_t WidthOf(const HeadField& field) {
  return std::visit(
      [](auto member) -> std::size_t {
        if constexpr (std::is_same_v<decltype(member), std::monostate>) {
          return 1;
        } else if constexpr (std::is_same_v<decltype(member), std::string ScriptModel::*>) {
          return kExtensionLength;
        } else {
          return sizeof(std::declval<ScriptModel&>().*member);
        }
      },
      field.member);
}

struct Counts {
  std::size_t levels = 0;
  std::size_t fileNames = 0;
};

/// Notes the numbers of the head that the walk needs, by the description of its fields.
Counts ScanHead(ByteReader& bytes, ScriptScan& scan) {
  Counts counts;
  for (const auto fields : {HeadFlags(), HeadCounts(), HeadSizesAndExtensions()}) {
    for (const HeadField& field : fields) {
      const Stretch place{bytes.Position(), WidthOf(field)};
      ByteReader value = bytes;
      Skip(bytes, static_cast<std::int64_t>(place.length));
      if (const auto* byte = std::get_if<Byte ScriptModel::*>(&field.member)) {
        if (*byte == &ScriptModel::NumLevels) counts.levels = value.ReadByte();
        if (*byte == &ScriptModel::NumFileNames) counts.fileNames = value.ReadByte();
      } else if (const auto* word = std::get_if<Int16 ScriptModel::*>(&field.member)) {
        if (*word == &ScriptModel::FileNamesSize) scan.fileNamesSize = TakeWord(value);
        if (*word == &ScriptModel::ScriptDataSize) scan.scriptDataSize = TakeWord(value);
      }
      if (!field.written) scan.reserved.push_back(place);
    }
  }
  return counts;
}

std::vector<std::int64_t> TakeOffsets(ByteReader& bytes, std::size_t count) {
  std::vector<std::int64_t> offsets(count);
  for (std::int64_t& offset : offsets) offset = TakeWord(bytes);
  return offsets;
}

std::int64_t LengthOfEntry(const std::vector<std::int64_t>& offsets, std::size_t i,
                           std::int64_t blockSize) {
  return (i + 1 < offsets.size() ? offsets[i + 1] : blockSize) - offsets[i];
}

void ScanLanguageNames(std::string_view bytes, std::size_t from, ScriptScan& scan) {
  for (int i = 0; i < kLanguageNameCount; ++i) {
    const std::size_t begin = std::min(from, bytes.size());
    const std::size_t end = std::min(bytes.find('\0', begin), bytes.size());
    scan.languageNames.push_back({begin, end - begin});
    from = end + 1;
  }
  scan.tail = std::min(from, bytes.size());
}

}  // namespace

ScannedStream ScanStream(ByteReader& bytes, std::int64_t most, const StreamFormat& format) {
  ScannedStream stream;
  stream.begin = bytes.Position();
  for (std::int64_t i = 0; i < most && !stream.closed && !bytes.Rest().empty(); ++i) {
    const std::size_t at = bytes.Position();
    const Element* element = format.Find(bytes.ReadByte());
    if (element != nullptr) Skip(bytes, static_cast<std::int64_t>(OperandWidth(*element)));
    stream.elements.push_back({at, bytes.Position() - at, element});
    stream.closed = element != nullptr && std::holds_alternative<Closing>(element->content);
  }
  if (stream.closed) stream.endMissing = bytes.ReadByte() != kEndOfData;
  stream.end = bytes.Position();
  return stream;
}

ScriptScan ScanScript(std::string_view script, const StreamFormat& format) {
  ScriptScan scan;
  ByteReader bytes(script);
  const Counts counts = ScanHead(bytes, scan);
  scan.headLength = bytes.Position();
  scan.fileNameOffsets = TakeOffsets(bytes, counts.fileNames);
  for (std::size_t i = 0; i < counts.fileNames; ++i) {
    Skip(bytes, LengthOfEntry(scan.fileNameOffsets, i, scan.fileNamesSize));
  }
  scan.levelOffsets = TakeOffsets(bytes, counts.levels);
  scan.levelBlock = bytes.Position();
  for (std::size_t i = 0; i < counts.levels; ++i) {
    const std::int64_t most = LengthOfEntry(scan.levelOffsets, i, scan.scriptDataSize) - 1;
    scan.levels.push_back(ScanStream(bytes, most, format));
  }
  scan.endsEarly = bytes.Position() > script.size();
  ScanLanguageNames(script, bytes.Position(), scan);
  return scan;
}

}  // namespace quillmark
