#include <iostream>
#include <nlohmann/json.hpp>

#include "platform/ansi.h"
#include "tools/script/commands.h"
#include "tools/script/json_form.h"
#include "tools/script/output.h"
#include "tools/script/save_losses.h"
#include "tools/script/script_json.h"
#include "tools/script/script_scan.h"

namespace quillmark {
namespace {

Json FlagsToJson(std::int64_t bits) {
  Json names = Json::array();
  for (std::size_t bit = 0; bit < FlagNames().size(); ++bit) {
    if ((static_cast<std::uint64_t>(bits) >> bit & 1U) != 0) names.push_back(FlagNames()[bit]);
  }
  return names;
}

template <class Record>
Json FieldToJson(const Record& record, const NumberField<Record>& field) {
  const auto number = [&](std::size_t i) { return field.get(record, i); };
  if (field.isArray) {
    Json list = Json::array();
    for (std::size_t i = 0; i < field.count; ++i) list.push_back(number(i));
    return list;
  }
  switch (field.meaning) {
    case Meaning::OnOff:
      return number(0) == kOn;
    case Meaning::Flags:
      return FlagsToJson(number(0));
    case Meaning::Kind:
      return KindNames()[static_cast<std::size_t>(number(0))];
    default:
      return number(0);
  }
}

template <class Record>
void PutFields(const ScriptValue& value, const Record& record, Json& object) {
  for (const NumberField<Record>& field : FieldsOf(record)) {
    if (!HasField(value.model.ScriptKind, field.games)) continue;
    const std::int64_t number = field.get(record, 0);
    if (field.meaning == Meaning::Combo && number == 0) continue;
    Append(object, field.name, FieldToJson(record, field));
    const bool named = field.meaning == Meaning::FileName ||
                       (field.meaning == Meaning::String && !LoadedLanguages(value).empty());
    if (named) Append(object, CommentName(field.name), ReferenceText(value, field.meaning, number));
  }
}

template <class Record>
Json RecordToJson(const ScriptValue& value, const Record& record) {
  if constexpr (std::is_same_v<Record, Int16>) {
    return FieldToJson(record, FieldsOf(record).front());
  } else {
    Json object = ObjectFor(FieldsOf(record).size() + 1);  // and a text beside one of them
    PutFields(value, record, object);
    return object;
  }
}

Json LevelToJson(const ScriptValue& value, const LevelRecord& level) {
  constexpr std::size_t kTextsAndLists = 7;
  Json object = ObjectFor(FieldsOf(level).size() + kTextsAndLists);
  PutFields(value, level, object);
  WithEachList(level, [&](const char* name, Games games, const auto& count, const auto& entries) {
    if (!HasField(value.model.ScriptKind, games)) return;
    Json list = Json::array();
    for (const auto& entry : entries.First(count)) list.push_back(RecordToJson(value, entry));
    Append(object, name, std::move(list));
  });
  return object;
}

Json LanguageToJson(const LanguageSlot& slot) {
  Json strings = Json::array();
  for (int i = 0; i < slot.Total; ++i) strings.push_back(EntryToJson(slot.Strings[i]));
  return {{"Count1", slot.Count1.value()},
          {"Count2", slot.Count2.value()},
          {"Count3", slot.Count3.value()},
          {"Strings", std::move(strings)}};
}

template <class Names>
Json NamesToJson(const Names& names, int count) {
  Json list = Json::array();
  for (int i = 0; i < count; ++i) list.push_back(EntryToJson(names[i]));
  return list;
}

/// Without the filling, which `build` puts back.
std::string PlainExtension(std::string_view extension) {
  return AnsiToUtf8(extension.substr(0, extension.find_last_not_of('\0') + 1));
}

}  // namespace

std::string CommentName(std::string_view field) { return std::string(field) + "Text"; }

Json ReferenceText(const ScriptValue& value, Meaning meaning, std::int64_t number) {
  const auto text =
      meaning == Meaning::FileName ? LevelFileName(value.model, number) : StringOf(value, number);
  return text ? Json(AnsiToUtf8(ShownPart(*text))) : Json();
}

Json ScriptToJson(const ScriptValue& value, const Findings& losses) {
  const ScriptModel& model = value.model;
  Json json = {{"Format", kFormatName},
               {"Version", kFormatVersion},
               {"ScriptKind", model.ScriptKind.value()}};
  PutFields(value, model, json);
  for (const ExtensionField& field : ExtensionFields()) {
    json[std::string(field.name)] = PlainExtension(model.*field.member);
  }
  json["FileNames"] = NamesToJson(model.FileNames, model.NumFileNames);
  json["LanguageNames"] = NamesToJson(model.LanguageNames, kLanguageNameCount);
  Json levels = Json::array();
  for (int i = 0; i < model.NumLevels; ++i) levels.push_back(LevelToJson(value, model.Levels[i]));
  json["Levels"] = std::move(levels);
  Json languages = Json::object();
  for (const Language language : LoadedLanguages(value)) {
    languages[std::string(LanguageName(language))] =
        LanguageToJson(value.languages[static_cast<int>(language)]);
  }
  json["Languages"] = std::move(languages);
  Json lost = Json::array();
  for (const Finding& loss : losses) lost.push_back(FindingToJson(loss));
  json["lost"] = std::move(lost);
  return json;
}

int RunExport(const Arguments& arguments) {
  const ScriptValue value =
      ReadScript(OpenSource(arguments.positional.front()), arguments.game, Beside::Languages);
  RequireLanguages(value);
  const Findings losses =
      SaveLosses(value, ScanScript(value.source.bytes, FormatOf(value.model.ScriptKind)));
  const std::string text = JsonDocument(ScriptToJson(value, losses));
  PutOut(text, arguments, value.source);
  for (const Finding& loss : losses) std::cerr << "lost: " << FindingLine(loss) << '\n';
  return kDone;
}

}  // namespace quillmark
