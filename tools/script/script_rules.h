#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/script_model.h"
#include "tools/script/finding.h"
#include "tools/script/script_value.h"

namespace quillmark {

// What the formats ask of any script, read from a file or about to become one.

/// Levels or file names: the head counts them in a byte.
inline constexpr std::size_t kMostEntries = 255;
/// The one character that a language file can't hold: masked it would read as a zero.
inline constexpr char kMaskCharacter = 0x5C;

/// Counts and sizes: an error above a limit, a warning at it, a note from 80 % of it on.
Findings LimitFindings(const ScriptValue& value);

/// Strings and file names that are referred to and are not there. Without a language nothing is
/// known of the strings.
Findings ReferenceFindings(const ScriptValue& value);

/// The places that a level has for objects of that kind.
std::int64_t GroupPlaces(ObjectKind kind);

/// Whether the game's streams have an opcode for this object when they are read, and when they are
/// written.
enum class OpcodeUse { None, ReadOnly, Both };
OpcodeUse OpcodeOf(const LevelObject& object, std::uint8_t game);

/// Bytes of the strings of each group of a slot, and of all in front of the last one.
struct LanguageSizes {
  std::array<std::int64_t, 3> groups{};
  std::int64_t lastOffset = 0;
};
inline constexpr std::int64_t kMostAreaBytes = 32767;  ///< of each of these
LanguageSizes SizesOf(const LanguageSlot& slot);

}  // namespace quillmark
