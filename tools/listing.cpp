#include "tools/listing.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "core/script_model.h"
#include "strings/language_files.h"

namespace quillmark {
namespace {

template <std::integral Raw>
Json ToJson(CheckedInteger<Raw> number) {
  return number.value();
}

Json ToJson(std::string_view bytes) { return TextOfBytes(bytes); }

template <class Array>
Json ListOf(const Array& array, std::int64_t count);

template <class Type, std::size_t Count>
Json ToJson(const FixedArray<Type, Count>& array) {
  return ListOf(array, Count);
}

Json ToJson(const ObjectEntry& entry) {
  return {{"Params", ToJson(entry.Params)},
          {"Id", ToJson(entry.Id)},
          {"StringId", ToJson(entry.StringId)}};
}

Json ToJson(const ComboEntry& entry) {
  return {{"Params", ToJson(entry.Params)},
          {"Id", ToJson(entry.Id)},
          {"StringId", ToJson(entry.StringId)},
          {"Combo", ToJson(entry.Combo)}};
}

Json ToJson(const LevelObject& object) {
  return {{"Kind", ToJson(object.Kind)},
          {"Id", ToJson(object.Id)},
          {"StringId", ToJson(object.StringId)},
          {"Combo", ToJson(object.Combo)},
          {"Params", ToJson(object.Params)}};
}

Json ToJson(const CutEntry& entry) {
  return {{"Type", ToJson(entry.Type)}, {"Value", ToJson(entry.Value)}};
}

Json ToJson(const MipEntry& entry) {
  return {{"Low", ToJson(entry.Low)}, {"High", ToJson(entry.High)}};
}

Json ToJson(const LevelRawEntry& raw) {
  constexpr std::string_view digits = "0123456789abcdef";
  const int count = std::clamp<int>(raw.Length, 0, kRawPlaces);
  std::string bytes;
  for (int i = 0; i < count; ++i) {
    const unsigned byte = raw.Bytes[i];
    bytes += digits[byte >> 4U];
    bytes += digits[byte & 0xFU];
  }
  return {{"Length", ToJson(raw.Length)}, {"Bytes", bytes}};
}

/// The first `count` entries, as far as there are any.
template <class Array>
Json ListOf(const Array& array, std::int64_t count) {
  const std::int64_t listed = std::clamp<std::int64_t>(count, 0, std::ssize(array));
  Json list = Json::array();
  for (std::int64_t i = 0; i < listed; ++i) list.push_back(ToJson(array[i]));
  return list;
}

/// Lists fields one after the other under their names.
class Record {
 public:
  template <class Type>
  Record& Field(const char* name, const Type& value) {
    return Put(name, ToJson(value));
  }
  template <class Array>
  Record& List(const char* name, const Array& array, std::int64_t count) {
    return Put(name, ListOf(array, count));
  }
  Record& Put(const char* name, Json value) {
    Append(object_, name, std::move(value));
    return *this;
  }
  Json Done() { return std::move(object_); }

 private:
  static constexpr std::size_t kMostFields = 64;

  Json object_ = ObjectFor(kMostFields);
};

// Spells a field's name once.
#define FIELD(record, name) Field(#name, (record).name)

Json ListLevel(const LevelRecord& level, const LevelRawEntry& raw) {
  return Record()
      .FIELD(level, PuzzleCount)
      .List("Puzzles", level.Puzzles, level.PuzzleCount)
      .FIELD(level, KeyCount)
      .List("Keys", level.Keys, level.KeyCount)
      .FIELD(level, PuzzleComboCount)
      .List("PuzzleCombos", level.PuzzleCombos, level.PuzzleComboCount)
      .FIELD(level, KeyComboCount)
      .List("KeyCombos", level.KeyCombos, level.KeyComboCount)
      .FIELD(level, PickupCount)
      .List("Pickups", level.Pickups, level.PickupCount)
      .FIELD(level, PickupComboCount)
      .List("PickupCombos", level.PickupCombos, level.PickupComboCount)
      .FIELD(level, ExamineCount)
      .List("Examines", level.Examines, level.ExamineCount)
      .FIELD(level, Fmv)
      .FIELD(level, Cut)
      .FIELD(level, CutCount)
      .List("Cuts", level.Cuts, level.CutCount)
      .FIELD(level, ResetHub)
      .FIELD(level, Layer1On)
      .FIELD(level, Layer2On)
      .FIELD(level, Layer1)
      .FIELD(level, Layer2)
      .FIELD(level, LensFlareOn)
      .FIELD(level, LensFlarePos)
      .FIELD(level, LensFlareColour)
      .FIELD(level, MirrorRoom)
      .FIELD(level, MirrorValue)
      .FIELD(level, MirrorOn)
      .FIELD(level, Camera)
      .FIELD(level, CameraRoom)
      .FIELD(level, NameString)
      .FIELD(level, LevelFlags)
      .FIELD(level, FileNameIndex)
      .FIELD(level, AudioTrack)
      .FIELD(level, MipCount)
      .List("Mips", level.Mips, 1)
      .FIELD(level, UVRotate)
      .FIELD(level, UVRotateOn)
      .FIELD(level, LegendOn)
      .FIELD(level, Legend)
      .FIELD(level, Fog)
      .FIELD(level, FogOn)
      .FIELD(level, ObjectCount)
      .List("Objects", level.Objects, level.ObjectCount)
      .List("Tr5ListA", level.Tr5ListA, level.Tr5ListACount)
      .FIELD(level, Tr5ListACount)
      .List("Tr5ListB", level.Tr5ListB, level.Tr5ListBCount)
      .FIELD(level, Tr5ListBCount)
      .Field("LevelRaw", raw)
      .Done();
}

Json ListLevels() {
  const std::int64_t count =
      std::min<std::int64_t>(TRScript.NumLevels, std::ssize(TRScript.Levels));
  Json list = Json::array();
  for (std::int64_t i = 0; i < count; ++i) {
    list.push_back(ListLevel(TRScript.Levels[i], TRScript.LevelRaw[i]));
  }
  return list;
}

Json ListSlot(const LanguageSlot& slot) {
  return Record()
      .FIELD(slot, Count1)
      .FIELD(slot, Count2)
      .FIELD(slot, Count3)
      .FIELD(slot, Size1)
      .FIELD(slot, Size2)
      .FIELD(slot, Size3)
      .FIELD(slot, Total)
      .List("Offsets", slot.Offsets, slot.Total)
      .List("Strings", slot.Strings, slot.Total)
      .FIELD(slot, Loaded)
      .FIELD(slot, Primary)
      .Done();
}

Json ListLanguages() {
  Record languages;
  for (int i = 0; i < kLanguageCount; ++i) {
    const auto language = static_cast<Language>(i);
    std::string name(LanguageFileName(language));
    name.resize(name.rfind('.'));
    languages.Put(name.c_str(), ListSlot(Slot(language)));
  }
  return languages.Done();
}

}  // namespace

Json ListScript() {
  const ScriptModel& script = TRScript;
  return Record()
      .FIELD(script, ScriptKind)
      .FIELD(script, ScriptFlags)
      .FIELD(script, ScriptFlagsHigh)
      .FIELD(script, ScriptFrameRate)
      .FIELD(script, ScriptSecurity)
      .FIELD(script, NumLevels)
      .FIELD(script, NumFileNames)
      .FIELD(script, FileNamesSize)
      .FIELD(script, ScriptDataSize)
      .FIELD(script, PsxLevelExt)
      .FIELD(script, PsxCutExt)
      .FIELD(script, PsxFmvExt)
      .FIELD(script, ExtReserved)
      .FIELD(script, PcLevelExt)
      .FIELD(script, PcCutExt)
      .FIELD(script, PcFmvExt)
      .List("FileNameOffsets", script.FileNameOffsets, script.NumFileNames)
      .List("FileNames", script.FileNames, script.NumFileNames)
      .List("LevelOffsets", script.LevelOffsets, script.NumLevels)
      .List("LanguageNames", script.LanguageNames, kLanguageNameCount)
      .Put("Levels", ListLevels())
      .Put("Languages", ListLanguages())
      .FIELD(StringsMod, NumStrings)
      .Done();
}

#undef FIELD

}  // namespace quillmark
