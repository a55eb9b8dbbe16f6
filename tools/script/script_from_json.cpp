#include <algorithm>
#include <array>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <utility>

#include "platform/ansi.h"
#include "tools/script/progress.h"
#include "tools/script/script_json.h"
#include "tools/script/script_rules.h"
#include "tools/script/text_form.h"

namespace quillmark {
namespace {

constexpr std::size_t kMostFindings = 50'000;

/// What a member that shows a reference's text said, to be looked at when all texts are known.
struct Comment {
  std::string place;  ///< of the reference
  Meaning meaning;
  std::int64_t number;
  Json text;
};

class Reader {
 public:
  explicit Reader(Findings& findings) : findings_(findings) {}

  ScriptValue Read(const Json& json) {
    if (!json.is_object()) {
      Error("wrong-type", "", "a script is an object");
      return std::move(value_);
    }
    TellProgress("Checking the text");
    ReadKind(json);
    ReadHead(json);
    ReadLevels(Member(json, "Levels"));
    ReadLanguages(Member(json, "Languages"));
    CheckScript();
    return std::move(value_);
  }

 private:
  using Names = std::set<std::string, std::less<>>;

  void Add(Finding finding) {
    if (findings_.size() > kMostFindings) return;
    findings_.push_back(std::move(finding));
    if (findings_.size() <= kMostFindings) return;
    findings_.back() = {"too-many", Severity::Error, "",
                        "there is more than " + std::to_string(kMostFindings) +
                            " times something to say; this is not all of it"};
  }
  void Error(std::string_view id, const std::string& place, const std::string& sentence) {
    failed_.insert(place);
    Add({id, Severity::Error, place, sentence});
  }

  bool HasFailed(const std::string& record, std::initializer_list<const char*> members) const {
    return std::any_of(members.begin(), members.end(),
                       [&](const char* member) { return failed_.contains(record + '/' + member); });
  }
  /// Whether anything failed at that place or below it.
  bool HasFailedWithin(std::string_view place) const {
    const auto first = failed_.lower_bound(place);
    return first != failed_.end() && first->starts_with(place);
  }

  /// The member, or null if there is none.
  static const Json* Member(const Json& object, std::string_view name) {
    const auto found = object.find(std::string(name));
    return found == object.end() ? nullptr : &*found;
  }

  void RefuseOthers(const Json& object, const std::string& place, const Names& known) {
    for (const auto& member : object.items()) {
      if (known.contains(member.key())) continue;
      Error("unknown-member", MemberPlace(place, member.key()),
            value_.model.ScriptKind == kAnyGame
                ? "there is no such member"
                : "there is no such member in a script of " +
                      std::string(GameName(value_.model.ScriptKind)));
    }
  }

  void ReadKind(const Json& json) {
    const Json* format = Member(json, "Format");
    const Json* version = Member(json, "Version");
    const Json* kind = Member(json, "ScriptKind");
    if (format == nullptr || *format != kFormatName) {
      Error("wrong-format", "/Format", "it has to be \"" + std::string(kFormatName) + "\"");
    }
    if (version == nullptr || *version != kFormatVersion) {
      Error("wrong-version", "/Version", "it has to be " + std::to_string(kFormatVersion));
    }
    if (kind == nullptr || (*kind != kTr4 && *kind != kTr5)) {
      return Error("wrong-kind", "/ScriptKind", "it has to be 4 for TR4 or 5 for TR5");
    }
    value_.model.ScriptKind = kind->get<int>();
  }

  /// As much of it as an export writes; of what is no text at all, that much is said.
  static Json ShownComment(const Json& comment) {
    if (comment.is_null()) return comment;
    if (!comment.is_string()) return "(no text)";
    return AnsiToUtf8(ShownPart(Utf8ToAnsi(comment.get<std::string>())));
  }

  // Lists. What is no list is read as an empty one.

  template <class Use>
  static void ForEachEntry(const Json& list, const std::string& place, Use use) {
    for (std::size_t i = 0; i < list.size(); ++i) use(i, list[i], place + '/' + std::to_string(i));
  }

  static const Json& ListOrNone(const Json* json) {
    static const Json none = Json::array();
    return json != nullptr && json->is_array() ? *json : none;
  }

  /// A list that should have `count` entries.
  const Json& ListOfExactly(std::size_t count, const char* what, const Json& json,
                            const std::string& place) {
    if (!json.is_array() || json.size() != count) {
      Error("wrong-type", place, "a list of " + std::to_string(count) + ' ' + what + " is needed");
    }
    return ListOrNone(&json);
  }

  /// A list, if there is one, that should have at most `most` entries.
  const Json& ListOf(const Json* member, const std::string& place, std::size_t most) {
    if (member != nullptr && !member->is_array()) Error("wrong-type", place, "a list is needed");
    const Json& list = ListOrNone(member);
    if (list.size() > most) {
      Error("over-limit", place,
            std::to_string(list.size()) + " entries; " + std::to_string(most) + " are the most");
    }
    return list;
  }

  // Numbers.

  bool ReadNumber(const Json& json, const std::string& place, std::int64_t lowest,
                  std::int64_t highest, std::int64_t& number) {
    const std::string range = std::to_string(lowest) + " to " + std::to_string(highest);
    if (!json.is_number_integer()) {
      Error("wrong-type", place, "a whole number from " + range + " is needed");
      return false;
    }
    const bool beyond = json.is_number_unsigned() && json.get<std::uint64_t>() > kLargest;
    number = beyond ? highest : json.get<std::int64_t>();
    if (!beyond && number >= lowest && number <= highest) return true;
    Error("out-of-range", place, json.dump() + " is not in the range from " + range);
    return false;
  }

  bool ReadWord(const Json& json, const std::string& place, std::span<const std::string_view> words,
                std::size_t& index) {
    const auto found = std::find(words.begin(), words.end(),
                                 json.is_string() ? json.get<std::string>() : std::string());
    if (found != words.end()) {
      index = static_cast<std::size_t>(found - words.begin());
      return true;
    }
    std::string known;
    for (const std::string_view word : words) known += ' ' + std::string(word);
    Error("unknown-word", place, "one of these words is needed:" + known);
    return false;
  }

  std::int64_t ReadFlags(const Json& json, const std::string& place) {
    std::uint16_t bits = 0;
    if (!json.is_array()) {
      Error("wrong-type", place, "a list of names is needed");
      return 0;
    }
    ForEachEntry(json, place, [&](std::size_t, const Json& name, const std::string& at) {
      std::size_t bit = 0;
      if (ReadWord(name, at, FlagNames(), bit)) bits = static_cast<std::uint16_t>(bits | 1U << bit);
    });
    return static_cast<std::int16_t>(bits);
  }

  std::int64_t ReadOnOff(const Json& json, const std::string& place) {
    if (!json.is_boolean()) Error("wrong-type", place, "true or false is needed");
    return json == true ? kOn : kOff;
  }

  std::int64_t ReadKindName(const Json& json, const std::string& place) {
    constexpr std::int64_t kNoKind = -1;  // which no limit counts
    std::size_t kind = 0;
    const bool isKnown = ReadWord(json, place, KindNames(), kind);
    return isKnown ? static_cast<std::int64_t>(kind) : kNoKind;
  }

  template <class Record>
  void ReadArray(const Json& json, const std::string& place, const NumberField<Record>& field,
                 Record& record) {
    const Json& list = ListOfExactly(field.count, "numbers", json, place);
    ForEachEntry(list, place, [&](std::size_t i, const Json& entry, const std::string& at) {
      std::int64_t number = 0;
      const bool isRight = ReadNumber(entry, at, field.lowest, field.highest, number);
      if (isRight && i < field.count) field.set(record, i, number);
    });
  }

  template <class Record>
  void ReadField(const Json& json, const std::string& place, const NumberField<Record>& field,
                 Record& record) {
    if (field.isArray) return ReadArray(json, place, field, record);
    switch (field.meaning) {
      case Meaning::OnOff:
        return field.set(record, 0, ReadOnOff(json, place));
      case Meaning::Flags:
        return field.set(record, 0, ReadFlags(json, place));
      case Meaning::Kind:
        return field.set(record, 0, ReadKindName(json, place));
      default:
        std::int64_t number = 0;
        if (ReadNumber(json, place, field.lowest, field.highest, number)) {
          field.set(record, 0, number);
        }
    }
  }

  // Records.

  /// Reads the fields that `object` has; those that it lacks stay zero. Their names go to `known`.
  template <class Record>
  void ReadFields(const Json& object, const std::string& place, Record& record, Names& known) {
    for (const NumberField<Record>& field : FieldsOf(record)) {
      if (!HasField(value_.model.ScriptKind, field.games)) continue;
      known.emplace(field.name);
      const std::string at = place + '/' + std::string(field.name);
      const Json* member = Member(object, field.name);
      if (member != nullptr) ReadField(*member, at, field, record);
      if (field.meaning != Meaning::String && field.meaning != Meaning::FileName) continue;
      known.insert(CommentName(field.name));
      const Json* comment = Member(object, CommentName(field.name));
      if (comment == nullptr) continue;
      comments_.push_back({at, field.meaning, field.get(record, 0), ShownComment(*comment)});
    }
  }

  template <class Entry>
  void ReadEntry(const Json& json, const std::string& place, Entry& entry) {
    if constexpr (std::is_same_v<Entry, Int16>) {
      ReadField(json, place, FieldsOf(entry).front(), entry);
    } else if (json.is_object()) {
      Names known;
      ReadFields(json, place, entry, known);
      RefuseOthers(json, place, known);
      Check(entry, place);
    } else {
      Error("wrong-type", place, "an object is needed");
    }
  }

  void ReadLevel(const Json& json, const std::string& place, LevelRecord& level) {
    if (!json.is_object()) return Error("wrong-type", place, "an object is needed");
    Names known;
    ReadFields(json, place, level, known);
    WithEachList(level, [&](const char* name, Games games, auto& count, auto& entries) {
      if (!HasField(value_.model.ScriptKind, games)) return;
      known.emplace(name);
      const std::string at = place + '/' + name;
      const Json& list = ListOf(Member(json, name), at, entries.size());
      ForEachEntry(list, at, [&](std::size_t i, const Json& entry, const std::string& entryAt) {
        auto noPlace = std::decay_t<decltype(entries[0])>();
        ReadEntry(entry, entryAt, i < entries.size() ? entries[i] : noPlace);
      });
      count = std::min(list.size(), entries.size());
    });
    RefuseOthers(json, place, known);
  }

  void Check(const LevelObject& object, const std::string& place) {
    if (value_.model.ScriptKind == kAnyGame || HasFailed(place, {"Kind", "Id", "Combo"})) return;
    const OpcodeUse use = OpcodeOf(object, value_.model.ScriptKind);
    if (use == OpcodeUse::ReadOnly) {
      Add({"object-without-opcode", Severity::Warning, place,
           "no opcode is written for it, which breaks the stream"});
    } else if (use == OpcodeUse::None) {
      Error("no-such-object", place,
            std::string(GameName(value_.model.ScriptKind)) +
                " has no object of this kind with this Id and Combo");
    }
  }

  void Check(const CutEntry& cut, const std::string& place) {
    if ((cut.Type >= 1 && cut.Type <= 4) || HasFailed(place, {"Type"})) return;
    Error("out-of-range", place + "/Type",
          std::to_string(cut.Type.value()) + " is not in the range from 1 to 4");
  }

  // The script.

  std::string ReadEntryText(const Json& json, const std::string& place) {
    const Json* text = &json;
    bool terminated = true;
    if (json.is_object()) {
      text = Member(json, "Text");
      const Json* unterminated = Member(json, "Unterminated");
      terminated =
          unterminated == nullptr || ReadOnOff(*unterminated, place + "/Unterminated") != kOn;
      RefuseOthers(json, place, {"Text", "Unterminated"});
    }
    if (text == nullptr || !text->is_string()) {
      Error("wrong-type", place, "a text is needed");
      return {};
    }
    try {
      return InCodePage(text->get<std::string>()) + (terminated ? std::string(1, '\0') : "");
    } catch (const NoBytes& trouble) {
      Error("code-page", place, trouble.what());
      return {};
    }
  }

  void ReadExtensions(const Json& json, Names& known) {
    for (const ExtensionField& field : ExtensionFields()) {
      known.emplace(field.name);
      const Json* member = Member(json, field.name);
      if (member == nullptr) continue;
      const std::string place = '/' + std::string(field.name);
      std::string text = ReadEntryText(*member, place);
      if (text.ends_with('\0')) text.pop_back();
      if (text.size() > kExtensionLength) {
        Error("over-limit", place, std::to_string(kExtensionLength) + " letters are the most");
        continue;
      }
      text.resize(kExtensionLength, '\0');
      value_.model.*field.member = text;
    }
  }

  void ReadFileNames(const Json* member) {
    const Json& list = ListOf(member, kFileNames, kMostEntries);
    const std::size_t count = std::min(list.size(), kMostEntries);
    value_.model.NumFileNames = count;
    value_.model.FileNames.Redim(count);
    ForEachEntry(list, kFileNames, [&](std::size_t i, const Json& entry, const std::string& at) {
      std::string name = ReadEntryText(entry, at);
      if (i < count) value_.model.FileNames[i] = std::move(name);
    });
  }

  void ReadLanguageNames(const Json* member) {
    constexpr std::size_t kCount = kUsualLanguageNames.size();
    for (std::size_t i = 0; i < kCount; ++i) {
      value_.model.LanguageNames[i] = std::string(kUsualLanguageNames[i]) + '\0';
    }
    if (member == nullptr) return;
    const Json& list = ListOfExactly(kCount, "names", *member, "/LanguageNames");
    ForEachEntry(list, "/LanguageNames",
                 [&](std::size_t i, const Json& entry, const std::string& at) {
                   std::string name = ReadEntryText(entry, at);
                   if (i < kCount) value_.model.LanguageNames[i] = std::move(name);
                 });
  }

  void ReadHead(const Json& json) {
    Names known = {"Format", "Version",   "ScriptKind", "FileNames", "LanguageNames",
                   "Levels", "Languages", "lost",       "$schema"};
    ReadFields(json, "", value_.model, known);
    ReadExtensions(json, known);
    ReadFileNames(Member(json, "FileNames"));
    ReadLanguageNames(Member(json, "LanguageNames"));
    RefuseOthers(json, "", known);
  }

  void ReadLevels(const Json* member) {
    if (member == nullptr) Error("missing-member", "/Levels", "a list of levels is needed");
    const Json& list = ListOf(member, "/Levels", kMostEntries);
    const std::size_t count = std::min(list.size(), kMostEntries);
    value_.model.NumLevels = count;
    value_.model.Levels.Redim(count);
    ForEachEntry(list, "/Levels", [&](std::size_t i, const Json& entry, const std::string& at) {
      LevelRecord noPlace;
      ReadLevel(entry, at, i < count ? value_.model.Levels[i] : noPlace);
    });
  }

  void ReadLanguages(const Json* languages) {
    if (languages == nullptr) return;
    if (!languages->is_object()) return Error("wrong-type", kLanguages, "an object is needed");
    for (const auto& member : languages->items()) {
      const std::string place = MemberPlace(kLanguages, member.key());
      Language language{};
      LanguageSlot noPlace;
      const bool isKnown = FindLanguage(member.key() + ".DAT", language);
      if (!isKnown) LoseLanguage("unknown-language", place, "there is no such language");
      if (!member.value().is_object()) {
        LoseLanguage("wrong-type", place, "an object is needed");
      } else {
        ReadLanguage(member.value(), place,
                     isKnown ? value_.languages[static_cast<int>(language)] : noPlace);
      }
    }
  }

  /// Without one of them nobody knows which strings there are.
  void LoseLanguage(std::string_view id, const std::string& place, const std::string& sentence) {
    Error(id, place, sentence);
    failed_.insert(kLanguages);
  }

  void ReadLanguage(const Json& json, const std::string& place, LanguageSlot& slot) {
    RefuseOthers(json, place, {"Count1", "Count2", "Count3", "Strings"});
    const std::string at = place + "/Strings";
    const Json* member = Member(json, "Strings");
    const std::optional<std::int64_t> total = ReadCounts(json, place, slot);
    const Json& list = ListOf(member, at, kOffsetPlaces);
    if (total != std::ssize(list)) {
      for (const auto& [name, count] : kCounts) slot.*count = 0;  // nobody knows where they end
      if (total && (member == nullptr || member->is_array())) {
        Error("wrong-count", at,
              "Count1, Count2 and Count3 make " + std::to_string(*total) + " strings, not " +
                  std::to_string(list.size()));
      }
    }
    // If they do not agree, no string is missing that one of them knows.
    ReadStrings(list, at, std::max(total.value_or(0), std::ssize(list)), slot);
  }

  /// The strings of all groups; nothing if a count can't be read.
  std::optional<std::int64_t> ReadCounts(const Json& json, const std::string& place,
                                         LanguageSlot& slot) {
    std::int64_t total = 0;
    bool areRight = true;
    for (const auto& [name, count] : kCounts) {
      const Json* member = Member(json, name);
      if (member == nullptr) continue;
      std::int64_t number = 0;
      if (ReadNumber(*member, place + '/' + name, kLowestWord, kHighestWord, number)) {
        slot.*count = number;
        total += number;
      } else {
        areRight = false;
      }
    }
    return areRight ? std::optional(total) : std::nullopt;
  }

  void ReadStrings(const Json& list, const std::string& place, std::int64_t total,
                   LanguageSlot& slot) {
    slot.Total = std::min<std::int64_t>(total, kOffsetPlaces);
    slot.Strings.Redim(slot.Total);
    slot.Offsets.Redim(kOffsetPlaces - 1);
    slot.Loaded = kOn;
    ForEachEntry(list, place, [&](std::size_t i, const Json& entry, const std::string& at) {
      const std::string text = ReadEntryText(entry, at);
      if (text.find(kMaskCharacter) != std::string::npos) {
        Error("mask-character", at,
              "a language file can't hold a backslash: it would read as a zero");
      }
      if (std::cmp_less(i, slot.Total.value())) slot.Strings.Set(i, text);
    });
  }

  void CheckScript() {
    for (Finding& finding : LimitFindings(value_)) {
      if (finding.severity == Severity::Error) Add(std::move(finding));
    }
    if (value_.model.NumFileNames == 0 && !failed_.contains(kFileNames)) {
      Add({"no-file-names", Severity::Warning, kFileNames,
           "there is no file name, and what is built can't be read back"});
    }
    const std::set<std::string> missing = CheckComments();
    for (Finding& finding : ReferenceFindings(value_)) {
      const char* texts = finding.id == "string-missing" ? kLanguages : kFileNames;
      if (failed_.contains(texts) || failed_.contains(finding.place)) continue;
      // What was exported with a reference to nothing is built as it was.
      if (missing.contains(finding.place)) finding.severity = Severity::Warning;
      Add(std::move(finding));
    }
  }

  /// Gives the references to nothing that are said to be just that.
  std::set<std::string> CheckComments() {
    const bool knowsStrings = !LoadedLanguages(value_).empty() && !HasFailedWithin(kLanguages);
    const bool knowsFileNames = !HasFailedWithin(kFileNames);
    std::set<std::string> missing;
    for (const Comment& comment : comments_) {
      if (comment.text.is_null()) missing.insert(comment.place);
      const bool isKnown = comment.meaning == Meaning::String ? knowsStrings : knowsFileNames;
      if (isKnown && !failed_.contains(comment.place)) CompareComment(comment);
    }
    return missing;
  }

  void CompareComment(const Comment& comment) {
    const Json text = ReferenceText(value_, comment.meaning, comment.number);
    if (comment.text == text) return;
    Add({"comment-differs", Severity::Warning, CommentName(comment.place),
         "it is ignored, and says " + comment.text.dump(-1, ' ', false, kReplace) + ", but " +
             std::to_string(comment.number) + " is " + text.dump(-1, ' ', false, kReplace)});
  }

  static constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();
  static constexpr std::int64_t kLowestWord = std::numeric_limits<std::int16_t>::min();
  static constexpr std::int64_t kHighestWord = std::numeric_limits<std::int16_t>::max();
  static constexpr auto kReplace = Json::error_handler_t::replace;
  static constexpr const char* kFileNames = "/FileNames";
  static constexpr const char* kLanguages = "/Languages";
  static constexpr std::array<std::pair<const char*, Int16 LanguageSlot::*>, 3> kCounts = {
      {{"Count1", &LanguageSlot::Count1},
       {"Count2", &LanguageSlot::Count2},
       {"Count3", &LanguageSlot::Count3}}};

  ScriptValue value_;
  Findings& findings_;
  std::vector<Comment> comments_;
  Names failed_;  ///< places of errors: what follows from one of them is not told
};

}  // namespace

ScriptValue ScriptFromJson(const Json& json, Findings& findings) {
  return Reader(findings).Read(json);
}

ScriptValue ScriptFromText(std::string_view text, Findings& findings) {
  const Json json = ParseJson(text, findings);
  return json.is_discarded() ? ScriptValue() : ScriptFromJson(json, findings);
}

}  // namespace quillmark
