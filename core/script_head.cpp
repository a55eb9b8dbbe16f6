#include "core/script_head.h"

#include <array>

#include "platform/little_endian.h"

namespace quillmark {
namespace {

constexpr std::array<HeadField, 2> kFlags{
    {{&ScriptModel::ScriptFlags}, {&ScriptModel::ScriptFlagsHigh, false}}};

constexpr std::array<HeadField, 5> kCountFields{{{&ScriptModel::ScriptFrameRate},
                                                 {&ScriptModel::ScriptSecurity},
                                                 {&ScriptModel::NumLevels},
                                                 {&ScriptModel::NumFileNames},
                                                 {std::monostate{}, false}}};

constexpr std::array<HeadField, 10> kSizesAndExtensions{{{&ScriptModel::FileNamesSize},
                                                         {&ScriptModel::ScriptDataSize},
                                                         {&ScriptModel::PsxLevelExt},
                                                         {&ScriptModel::PsxCutExt},
                                                         {&ScriptModel::PsxFmvExt},
                                                         {&ScriptModel::ExtReserved, false},
                                                         {&ScriptModel::PcLevelExt},
                                                         {&ScriptModel::PcCutExt},
                                                         {&ScriptModel::PcFmvExt},
                                                         {&ScriptModel::ExtReserved, false}}};

template <class Number>
void Append(std::string& bytes, Number value, bool written) {
  AppendNumber(bytes, written ? value : Number{});
}

void Append(std::string& bytes, std::string text, bool written) {
  if (!written) text.clear();
  text.resize(kExtensionLength, '\0');
  bytes += text;
}

}  // namespace

std::span<const HeadField> HeadFlags() { return kFlags; }
std::span<const HeadField> HeadCounts() { return kCountFields; }
std::span<const HeadField> HeadSizesAndExtensions() { return kSizesAndExtensions; }

void ReadHead(ByteReader& bytes, std::span<const HeadField> fields, ScriptModel& script) {
  for (const HeadField& field : fields) {
    std::visit(
        [&](auto member) {
          if constexpr (std::is_same_v<decltype(member), std::monostate>) {
            bytes.ReadByte();
          } else if constexpr (std::is_same_v<decltype(member), std::string ScriptModel::*>) {
            script.*member = bytes.ReadText(kExtensionLength);
          } else {
            bytes.ReadInto(script.*member);
          }
        },
        field.member);
  }
}

std::string HeadBytes(std::span<const HeadField> fields, const ScriptModel& script) {
  std::string bytes;
  for (const HeadField& field : fields) {
    std::visit(
        [&](auto member) {
          if constexpr (std::is_same_v<decltype(member), std::monostate>) {
            Append(bytes, Byte(), field.written);
          } else {
            Append(bytes, script.*member, field.written);
          }
        },
        field.member);
  }
  return bytes;
}

}  // namespace quillmark
