#include "tools/script/languages_from_json.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <utility>

#include "tools/script/script_rules.h"

namespace quillmark {
namespace {

constexpr std::int64_t kLowestWord = std::numeric_limits<std::int16_t>::min();
constexpr std::int64_t kHighestWord = std::numeric_limits<std::int16_t>::max();
constexpr std::array<std::pair<const char*, Int16 LanguageSlot::*>, 3> kCounts = {
    {{"Count1", &LanguageSlot::Count1},
     {"Count2", &LanguageSlot::Count2},
     {"Count3", &LanguageSlot::Count3}}};

/// Without one of them nobody knows which strings there are.
void LoseLanguage(JsonReader& reader, std::string_view id, const std::string& place,
                  const std::string& sentence) {
  reader.Error(id, place, sentence);
  reader.MarkFailed(kLanguagesPlace);
}

/// The strings of all groups; nothing if a count can't be read.
std::optional<std::int64_t> ReadCounts(JsonReader& reader, const Json& json,
                                       const std::string& place, LanguageSlot& slot) {
  std::int64_t total = 0;
  bool areRight = true;
  for (const auto& [name, count] : kCounts) {
    const Json* member = Member(json, name);
    if (member == nullptr) continue;
    const auto number = reader.ReadNumber(*member, place + '/' + name, kLowestWord, kHighestWord);
    if (number) {
      slot.*count = *number;
      total += *number;
    } else {
      areRight = false;
    }
  }
  return areRight ? std::optional(total) : std::nullopt;
}

void ReadStrings(JsonReader& reader, const Json& list, const std::string& place, std::int64_t total,
                 LanguageSlot& slot) {
  slot.Total = std::min<std::int64_t>(total, kOffsetPlaces);
  slot.Strings.Redim(slot.Total);
  slot.Offsets.Redim(kOffsetPlaces - 1);
  slot.Loaded = kOn;
  ForEachEntry(list, place, [&](std::size_t i, const Json& entry, const std::string& at) {
    const std::string text = reader.ReadEntryText(entry, at);
    if (text.find(kMaskCharacter) != std::string::npos) {
      reader.Error("mask-character", at,
                   "a language file can't hold a backslash: it would read as a zero");
    }
    if (std::cmp_less(i, slot.Total.value())) slot.Strings.Set(i, text);
  });
}

void ReadLanguage(JsonReader& reader, const Json& json, const std::string& place,
                  LanguageSlot& slot) {
  reader.RefuseOthers(json, place, {"Count1", "Count2", "Count3", "Strings"});
  const std::string at = place + "/Strings";
  const Json* member = Member(json, "Strings");
  const std::optional<std::int64_t> total = ReadCounts(reader, json, place, slot);
  const Json& list = reader.ListOf(member, at, kOffsetPlaces);
  if (total != std::ssize(list)) {
    for (const auto& [name, count] : kCounts) slot.*count = 0;  // nobody knows where they end
    if (total && (member == nullptr || member->is_array())) {
      reader.Error("wrong-count", at,
                   "Count1, Count2 and Count3 make " + std::to_string(*total) + " strings, not " +
                       std::to_string(list.size()));
    }
  }
  // If they do not agree, no string is missing that one of them knows.
  ReadStrings(reader, list, at, std::max(total.value_or(0), std::ssize(list)), slot);
}

}  // namespace

void ReadLanguages(JsonReader& reader, const Json* languages, ScriptValue& value) {
  if (languages == nullptr) return;
  if (!languages->is_object()) {
    return reader.Error("wrong-type", kLanguagesPlace, "an object is needed");
  }
  for (const auto& member : languages->items()) {
    const std::string place = MemberPlace(kLanguagesPlace, member.key());
    Language language{};
    LanguageSlot noPlace;
    const bool isKnown = FindLanguage(member.key() + ".DAT", language);
    if (!isKnown) LoseLanguage(reader, "unknown-language", place, "there is no such language");
    if (!member.value().is_object()) {
      LoseLanguage(reader, "wrong-type", place, "an object is needed");
    } else {
      ReadLanguage(reader, member.value(), place,
                   isKnown ? value.languages[static_cast<int>(language)] : noPlace);
    }
  }
}

}  // namespace quillmark
