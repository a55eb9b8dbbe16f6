#include "tools/script/levels_from_json.h"

#include <algorithm>
#include <type_traits>

#include "tools/script/fields_from_json.h"
#include "tools/script/script_rules.h"

namespace quillmark {
namespace {

void Check(JsonReader& reader, const LevelObject& object, const std::string& place) {
  if (reader.Game() == kAnyGame || reader.HasFailed(place, {"Kind", "Id", "Combo"})) return;
  const OpcodeUse use = OpcodeOf(object, reader.Game());
  if (use == OpcodeUse::ReadOnly) {
    reader.Add({"object-without-opcode", Severity::Warning, place,
                "no opcode is written for it, which breaks the stream"});
  } else if (use == OpcodeUse::None) {
    reader.Error("no-such-object", place,
                 std::string(GameName(reader.Game())) +
                     " has no object of this kind with this Id and Combo");
  }
}

void Check(JsonReader& reader, const CutEntry& cut, const std::string& place) {
  if ((cut.Type >= 1 && cut.Type <= 4) || reader.HasFailed(place, {"Type"})) return;
  reader.Error("out-of-range", place + "/Type",
               std::to_string(cut.Type.value()) + " is not in the range from 1 to 4");
}

void ReadEntry(JsonReader& reader, const Json& json, const std::string& place, Int16& word) {
  const NumberField<Int16>& field = FieldsOf(word).front();
  const auto number = reader.ReadNumber(json, place, field.lowest, field.highest);
  if (number) word = *number;
}

template <class Record>
void ReadEntry(JsonReader& reader, const Json& json, const std::string& place, Record& record) {
  JsonReader::Names known;
  if (!ReadFields(reader, json, place, record, known)) return;
  reader.RefuseOthers(json, place, known);
  Check(reader, record, place);
}

/// Gives how many of them have a place.
template <class Entries>
std::size_t ReadEntries(JsonReader& reader, const Json* member, const std::string& place,
                        Entries& entries) {
  const Json& list = reader.ListOf(member, place, entries.size());
  ForEachEntry(list, place, [&](std::size_t i, const Json& entry, const std::string& at) {
    auto noPlace = std::decay_t<decltype(entries[0])>();
    ReadEntry(reader, entry, at, i < entries.size() ? entries[i] : noPlace);
  });
  return std::min(list.size(), entries.size());
}

void ReadLevel(JsonReader& reader, const Json& json, const std::string& place, LevelRecord& level) {
  JsonReader::Names known;
  if (!ReadFields(reader, json, place, level, known)) return;
  WithEachList(level, [&](const char* name, Games games, auto& count, auto& entries) {
    if (!HasField(reader.Game(), games)) return;
    known.emplace(name);
    count = ReadEntries(reader, Member(json, name), place + '/' + name, entries);
  });
  reader.RefuseOthers(json, place, known);
}

}  // namespace

void ReadLevels(JsonReader& reader, const Json* member, ScriptModel& script) {
  if (member == nullptr) reader.Error("missing-member", "/Levels", "a list of levels is needed");
  const Json& list = reader.ListOf(member, "/Levels", kMostEntries);
  const std::size_t count = std::min(list.size(), kMostEntries);
  script.NumLevels = count;
  script.Levels.Redim(count);
  ForEachEntry(list, "/Levels", [&](std::size_t i, const Json& entry, const std::string& at) {
    LevelRecord noPlace;
    ReadLevel(reader, entry, at, i < count ? script.Levels[i] : noPlace);
  });
}

}  // namespace quillmark
