#pragma once

#include <span>
#include <string>
#include <variant>

#include "core/script_model.h"
#include "platform/byte_reader.h"

namespace quillmark {

/// A field of the fixed head of `SCRIPT.DAT`. Its type tells the width; a text has five bytes.
struct HeadField {
  std::variant<Byte ScriptModel::*, Int16 ScriptModel::*, Int32 ScriptModel::*,
               std::string ScriptModel::*, std::monostate>
      member;           ///< nothing: one byte that is read and thrown away
  bool written = true;  ///< otherwise zeros stand in its place in a file that is written
};

/// The head in file order, in three runs: the loader tests the file behind the first one, and the
/// writer computes a size in front of the third.
std::span<const HeadField> HeadFlags();
std::span<const HeadField> HeadCounts();
std::span<const HeadField> HeadSizesAndExtensions();

/// Where `ScriptDataSize` stands in the file.
inline constexpr int kScriptDataSizePosition = 14;

/// Reads these fields of the script where `bytes` stands.
void ReadHead(ByteReader& bytes, std::span<const HeadField> fields, ScriptModel& script);
/// What these fields of the script are in the file.
std::string HeadBytes(std::span<const HeadField> fields, const ScriptModel& script);

}  // namespace quillmark
