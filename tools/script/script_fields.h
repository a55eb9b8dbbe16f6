#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/script_model.h"

namespace quillmark {

/// The fields of a script under the names that the model gives them. Whatever turns a script into
/// text and back walks over these tables, so that a field is described in one place.

/// How the numbers of a field read as text.
enum class Meaning {
  Number,
  OnOff,  ///< an on/off word
  Hex,
  Flags,     ///< bits of `LevelFlags`
  Kind,      ///< an `ObjectKind`
  Combo,     ///< the second number of a combination; of other objects there is none
  String,    ///< the number of a string of the languages
  FileName,  ///< the number of a file name
};

/// The games whose streams have a place for the field.
enum class Games { Both, Tr4, Tr5 };
/// In place of a game that is not known: it has all fields.
inline constexpr std::uint8_t kAnyGame = 0;
bool HasField(std::uint8_t game, Games games);

/// One number of a record, or an array of them.
template <class Record>
struct NumberField {
  std::string_view name;
  Meaning meaning;
  Games games;
  bool isArray;
  std::size_t count;  ///< of the numbers
  std::int64_t lowest;
  std::int64_t highest;
  std::int64_t (*get)(const Record& record, std::size_t i);
  void (*set)(Record& record, std::size_t i, std::int64_t value);
};

/// The fields that reach the file, in the model's order; the argument only says of which record.
/// Left out are what is counted or rebuilt from others, and what no save writes.
std::span<const NumberField<ScriptModel>> FieldsOf(const ScriptModel& script);
std::span<const NumberField<LevelRecord>> FieldsOf(const LevelRecord& level);
std::span<const NumberField<LevelObject>> FieldsOf(const LevelObject& object);
std::span<const NumberField<CutEntry>> FieldsOf(const CutEntry& cut);
std::span<const NumberField<Int16>> FieldsOf(const Int16& word);

/// Calls `use(name, games, count, entries)` for each list of the level.
template <class Level, class Use>
void WithEachList(Level& level, Use use) {
  use("Cuts", Games::Both, level.CutCount, level.Cuts);
  use("Objects", Games::Both, level.ObjectCount, level.Objects);
  use("Tr5ListA", Games::Tr5, level.Tr5ListACount, level.Tr5ListA);
  use("Tr5ListB", Games::Tr5, level.Tr5ListBCount, level.Tr5ListB);
}

/// A file extension of the script's head.
struct ExtensionField {
  std::string_view name;
  std::string ScriptModel::*member;
};
std::span<const ExtensionField> ExtensionFields();

/// The names of the kinds, in their order.
std::span<const std::string_view> KindNames();
bool IsCombination(ObjectKind kind);

/// The name of each bit of `LevelFlags`, from the lowest; "0x2000" for the one without a name.
std::span<const std::string_view> FlagNames();

/// "TR4" or "TR5".
std::string_view GameName(std::uint8_t game);

}  // namespace quillmark
