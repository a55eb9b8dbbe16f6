#include "tools/script/fields_from_json.h"

#include "platform/ansi.h"
#include "tools/script/script_json.h"
#include "tools/script/script_value.h"

namespace quillmark {
namespace {

constexpr std::int64_t kNoKind = -1;  // which no limit counts

std::int64_t ReadFlags(JsonReader& reader, const Json& json, const std::string& place) {
  std::uint16_t bits = 0;
  if (!json.is_array()) {
    reader.Error("wrong-type", place, "a list of names is needed");
    return 0;
  }
  ForEachEntry(json, place, [&](std::size_t, const Json& name, const std::string& at) {
    const auto bit = reader.ReadWord(name, at, FlagNames());
    if (bit) bits = static_cast<std::uint16_t>(bits | 1U << *bit);
  });
  return static_cast<std::int16_t>(bits);
}

std::int64_t ReadKindName(JsonReader& reader, const Json& json, const std::string& place) {
  const auto kind = reader.ReadWord(json, place, KindNames());
  return kind ? static_cast<std::int64_t>(*kind) : kNoKind;
}

template <class Record>
void ReadArray(JsonReader& reader, const Json& json, const std::string& place,
               const NumberField<Record>& field, Record& record) {
  const Json& list = reader.ListOfExactly(field.count, "numbers", json, place);
  ForEachEntry(list, place, [&](std::size_t i, const Json& entry, const std::string& at) {
    const auto number = reader.ReadNumber(entry, at, field.lowest, field.highest);
    if (number && i < field.count) field.set(record, i, *number);
  });
}

template <class Record>
void ReadField(JsonReader& reader, const Json& json, const std::string& place,
               const NumberField<Record>& field, Record& record) {
  if (field.isArray) return ReadArray(reader, json, place, field, record);
  switch (field.meaning) {
    case Meaning::OnOff:
      return field.set(record, 0, reader.ReadOnOff(json, place));
    case Meaning::Flags:
      return field.set(record, 0, ReadFlags(reader, json, place));
    case Meaning::Kind:
      return field.set(record, 0, ReadKindName(reader, json, place));
    default:
      const auto number = reader.ReadNumber(json, place, field.lowest, field.highest);
      if (number) field.set(record, 0, *number);
  }
}

template <class Record>
void LoseFields(JsonReader& reader, const std::string& place, Record& record) {
  reader.Error("wrong-type", place, "an object is needed");
  reader.MarkMembersFailed(place);
  for (const NumberField<Record>& field : FieldsOf(record)) {
    if (field.meaning == Meaning::Kind) field.set(record, 0, kNoKind);
  }
}

/// As much of it as an export writes; of what is no text at all, that much is said.
Json ShownComment(const Json& comment) {
  if (comment.is_null()) return comment;
  if (!comment.is_string()) return "(no text)";
  return AnsiToUtf8(ShownPart(Utf8ToAnsi(comment.get<std::string>())));
}

}  // namespace

template <class Record>
bool ReadFields(JsonReader& reader, const Json& object, const std::string& place, Record& record,
                JsonReader::Names& known) {
  if (!object.is_object()) {
    LoseFields(reader, place, record);
    return false;
  }
  for (const NumberField<Record>& field : FieldsOf(record)) {
    if (!HasField(reader.Game(), field.games)) continue;
    known.emplace(field.name);
    const std::string at = place + '/' + std::string(field.name);
    const Json* member = Member(object, field.name);
    if (member != nullptr) ReadField(reader, *member, at, field, record);
    if (field.meaning != Meaning::String && field.meaning != Meaning::FileName) continue;
    known.insert(CommentName(field.name));
    const Json* comment = Member(object, CommentName(field.name));
    if (comment == nullptr) continue;
    reader.KeepComment({at, field.meaning, field.get(record, 0), ShownComment(*comment)});
  }
  return true;
}

template bool ReadFields(JsonReader&, const Json&, const std::string&, ScriptModel&,
                         JsonReader::Names&);
template bool ReadFields(JsonReader&, const Json&, const std::string&, LevelRecord&,
                         JsonReader::Names&);
template bool ReadFields(JsonReader&, const Json&, const std::string&, LevelObject&,
                         JsonReader::Names&);
template bool ReadFields(JsonReader&, const Json&, const std::string&, CutEntry&,
                         JsonReader::Names&);

}  // namespace quillmark
