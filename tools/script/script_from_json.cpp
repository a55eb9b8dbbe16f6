#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "tools/script/fields_from_json.h"
#include "tools/script/json_reader.h"
#include "tools/script/languages_from_json.h"
#include "tools/script/levels_from_json.h"
#include "tools/script/progress.h"
#include "tools/script/script_json.h"
#include "tools/script/script_rules.h"

namespace quillmark {
namespace {

constexpr auto kReplace = Json::error_handler_t::replace;
constexpr const char* kFileNamesPlace = "/FileNames";

void ReadKind(JsonReader& reader, const Json& json, ScriptModel& script) {
  const Json* format = Member(json, "Format");
  const Json* version = Member(json, "Version");
  const Json* kind = Member(json, "ScriptKind");
  if (format == nullptr || *format != kFormatName) {
    reader.Error("wrong-format", "/Format", "it has to be \"" + std::string(kFormatName) + "\"");
  }
  if (version == nullptr || *version != kFormatVersion) {
    reader.Error("wrong-version", "/Version", "it has to be " + std::to_string(kFormatVersion));
  }
  if (kind == nullptr || (*kind != kTr4 && *kind != kTr5)) {
    return reader.Error("wrong-kind", "/ScriptKind", "it has to be 4 for TR4 or 5 for TR5");
  }
  script.ScriptKind = kind->get<int>();
  reader.SetGame(script.ScriptKind);
}

void ReadExtensions(JsonReader& reader, const Json& json, ScriptModel& script,
                    JsonReader::Names& known) {
  for (const ExtensionField& field : ExtensionFields()) {
    known.emplace(field.name);
    const Json* member = Member(json, field.name);
    if (member == nullptr) continue;
    const std::string place = '/' + std::string(field.name);
    std::string text = reader.ReadEntryText(*member, place);
    if (text.ends_with('\0')) text.pop_back();
    if (text.size() > kExtensionLength) {
      reader.Error("over-limit", place, std::to_string(kExtensionLength) + " letters are the most");
      continue;
    }
    text.resize(kExtensionLength, '\0');
    script.*field.member = text;
  }
}

void ReadFileNames(JsonReader& reader, const Json* member, ScriptModel& script) {
  const Json& list = reader.ListOf(member, kFileNamesPlace, kMostEntries);
  const std::size_t count = std::min(list.size(), kMostEntries);
  script.NumFileNames = count;
  script.FileNames.Redim(count);
  ForEachEntry(list, kFileNamesPlace, [&](std::size_t i, const Json& entry, const std::string& at) {
    std::string name = reader.ReadEntryText(entry, at);
    if (i < count) script.FileNames[i] = std::move(name);
  });
}

void ReadLanguageNames(JsonReader& reader, const Json* member, ScriptModel& script) {
  constexpr std::size_t kCount = kUsualLanguageNames.size();
  for (std::size_t i = 0; i < kCount; ++i) {
    script.LanguageNames[i] = std::string(kUsualLanguageNames[i]) + '\0';
  }
  if (member == nullptr) return;
  const Json& list = reader.ListOfExactly(kCount, "names", *member, "/LanguageNames");
  ForEachEntry(list, "/LanguageNames",
               [&](std::size_t i, const Json& entry, const std::string& at) {
                 std::string name = reader.ReadEntryText(entry, at);
                 if (i < kCount) script.LanguageNames[i] = std::move(name);
               });
}

void ReadHead(JsonReader& reader, const Json& json, ScriptModel& script) {
  JsonReader::Names known = {"Format", "Version",   "ScriptKind", "FileNames", "LanguageNames",
                             "Levels", "Languages", "lost",       "$schema"};
  ReadFields(reader, json, "", script, known);
  ReadExtensions(reader, json, script, known);
  ReadFileNames(reader, Member(json, "FileNames"), script);
  ReadLanguageNames(reader, Member(json, "LanguageNames"), script);
  reader.RefuseOthers(json, "", known);
}

void CompareComment(JsonReader& reader, const ScriptValue& value, const Comment& comment) {
  const Json text = ReferenceText(value, comment.meaning, comment.number);
  if (comment.text == text) return;
  reader.Add({"comment-differs", Severity::Warning, CommentName(comment.place),
              "it is ignored, and says " + comment.text.dump(-1, ' ', false, kReplace) + ", but " +
                  std::to_string(comment.number) + " is " + text.dump(-1, ' ', false, kReplace)});
}

/// Gives the references to nothing that are said to be just that.
std::set<std::string> CheckComments(JsonReader& reader, const ScriptValue& value) {
  const bool knowsStrings =
      !LoadedLanguages(value).empty() && !reader.HasFailedWithin(kLanguagesPlace);
  const bool knowsFileNames = !reader.HasFailedWithin(kFileNamesPlace);
  std::set<std::string> missing;
  for (const Comment& comment : reader.Comments()) {
    if (comment.text.is_null()) missing.insert(comment.place);
    const bool isKnown = comment.meaning == Meaning::String ? knowsStrings : knowsFileNames;
    if (isKnown && !reader.HasFailed(comment.place)) CompareComment(reader, value, comment);
  }
  return missing;
}

void CheckScript(JsonReader& reader, const ScriptValue& value) {
  for (Finding& finding : LimitFindings(value)) {
    if (finding.severity == Severity::Error) reader.Add(std::move(finding));
  }
  if (value.model.NumFileNames == 0 && !reader.HasFailed(kFileNamesPlace)) {
    reader.Add({"no-file-names", Severity::Warning, kFileNamesPlace,
                "there is no file name, and what is built can't be read back"});
  }
  const std::set<std::string> missing = CheckComments(reader, value);
  for (Finding& finding : ReferenceFindings(value)) {
    const char* texts = finding.id == "string-missing" ? kLanguagesPlace : kFileNamesPlace;
    if (reader.HasFailed(texts) || reader.HasFailed(finding.place)) continue;
    // What was exported with a reference to nothing is built as it was.
    if (missing.contains(finding.place)) finding.severity = Severity::Warning;
    reader.Add(std::move(finding));
  }
}

}  // namespace

ScriptValue ScriptFromJson(const Json& json, Findings& findings) {
  JsonReader reader(findings);
  ScriptValue value;
  if (!json.is_object()) {
    reader.Error("wrong-type", "", "a script is an object");
    return value;
  }
  TellProgress("Checking the text");
  ReadKind(reader, json, value.model);
  ReadHead(reader, json, value.model);
  ReadLevels(reader, Member(json, "Levels"), value.model);
  ReadLanguages(reader, Member(json, "Languages"), value);
  CheckScript(reader, value);
  return value;
}

ScriptValue ScriptFromText(std::string_view text, Findings& findings) {
  const Json json = ParseJson(text, findings);
  return json.is_discarded() ? ScriptValue() : ScriptFromJson(json, findings);
}

}  // namespace quillmark
