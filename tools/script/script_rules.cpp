#include "tools/script/script_rules.h"

#include <algorithm>
#include <array>

#include "core/object_groups.h"
#include "core/opcode_table.h"
#include "tools/script/script_fields.h"

namespace quillmark {
namespace {

/// Turns the uses of limits into findings.
class Limits {
 public:
  void Use(const std::string& place, const std::string& what, std::int64_t used,
           std::int64_t most) {
    if (5 * used < 4 * most) return;
    const std::string figures = std::to_string(used) + " of " + std::to_string(most) + ' ' + what;
    if (used > most) {
      findings_.push_back(
          {"over-limit", Severity::Error, place,
           std::to_string(used) + ' ' + what + "; " + std::to_string(most) + " are the most"});
    } else if (used == most) {
      findings_.push_back({"at-limit", Severity::Warning, place, figures + " are used"});
    } else {
      findings_.push_back({"near-limit", Severity::Note, place, figures + " are used"});
    }
  }
  Findings Done() { return std::move(findings_); }

 private:
  Findings findings_;
};

/// False if no stream can be built, since a group has more objects than places.
bool UseObjects(const LevelRecord& level, int number, Limits& limits) {
  bool fits = true;
  std::array<std::int64_t, kObjectKindCount> counts{};
  for (int i = 0; i < level.ObjectCount; ++i) {
    const auto kind = static_cast<std::size_t>(level.Objects[i].Kind.value());
    if (kind < counts.size()) ++counts[kind];
  }
  for (std::size_t kind = 0; kind < counts.size(); ++kind) {
    fits = fits && counts[kind] <= GroupPlaces(static_cast<ObjectKind>(kind));
    limits.Use(LevelPlace(number, "Objects"), std::string(KindNames()[kind]) + " objects",
               counts[kind], GroupPlaces(static_cast<ObjectKind>(kind)));
  }
  return fits;
}

void UseLevels(const ScriptModel& model, Limits& limits) {
  std::int64_t blockSize = 0;
  for (int i = 0; i < model.NumLevels; ++i) {
    const LevelRecord& level = model.Levels[i];
    WithEachList(level, [&](std::string_view name, Games, const auto& count, const auto& entries) {
      limits.Use(LevelPlace(i, name), "entries", count.value(), std::ssize(entries));
    });
    if (!UseObjects(level, i, limits) || model.ScriptKind == kAnyGame) continue;
    const std::int64_t size = std::ssize(BuiltStream(model, i));
    limits.Use(LevelPlace(i), "bytes of the level's stream", size, kRawPlaces);
    blockSize += size;
  }
  limits.Use("/Levels", "levels", model.NumLevels.value(), kMostEntries);
  limits.Use("/Levels", "bytes of level streams", blockSize, kMostAreaBytes);
}

void UseFileNames(const ScriptModel& model, Limits& limits) {
  std::int64_t size = 0;
  for (int i = 0; i < model.NumFileNames; ++i) size += std::ssize(model.FileNames[i]);
  limits.Use("/FileNames", "file names", model.NumFileNames.value(), kMostEntries);
  limits.Use("/FileNames", "bytes of file names", size, kMostAreaBytes);
}

void UseLanguage(const LanguageSlot& slot, const std::string& place, Limits& limits) {
  const LanguageSizes sizes = SizesOf(slot);
  for (std::size_t group = 0; group < sizes.groups.size(); ++group) {
    limits.Use(place, "bytes of strings in group " + std::to_string(group + 1), sizes.groups[group],
               kMostAreaBytes);
  }
  limits.Use(place, "bytes of strings in front of the last one", sizes.lastOffset, kMostAreaBytes);
  limits.Use(place, "strings", slot.Total.value(), kOffsetPlaces);
}

/// Looks after the references of one script.
class References {
 public:
  explicit References(const ScriptValue& value)
      : value_(value), languages_(LoadedLanguages(value)) {}

  void Check(int number) {
    const LevelRecord& level = value_.model.Levels[number];
    CheckFields(level, LevelPlace(number), [&](const NumberField<LevelRecord>& field) {
      // The title's closing element keeps neither a name nor a file.
      const bool ofTitle = number == 0 && field.name != "Legend";
      return !ofTitle && (field.name != "Legend" || IsOn(level.LegendOn));
    });
    for (int i = 0; i < level.ObjectCount; ++i) {
      CheckFields(level.Objects[i], LevelPlace(number, "Objects/" + std::to_string(i)),
                  [](const auto&) { return true; });
    }
  }
  Findings Done() { return std::move(findings_); }

 private:
  template <class Record, class IsUsed>
  void CheckFields(const Record& record, const std::string& place, IsUsed isUsed) {
    for (const NumberField<Record>& field : FieldsOf(record)) {
      if (!HasField(value_.model.ScriptKind, field.games) || !isUsed(field)) continue;
      const std::int64_t number = field.get(record, 0);
      if (field.meaning == Meaning::String) CheckString(number, place, field.name);
      if (field.meaning == Meaning::FileName) CheckFileName(number, place, field.name);
    }
  }

  void CheckString(std::int64_t number, const std::string& place, std::string_view name) {
    std::string without;
    for (const Language language : languages_) {
      const Int16 total = value_.languages[static_cast<int>(language)].Total;
      if (number >= 0 && number < total) continue;
      without += (without.empty() ? "" : ", ") + std::string(LanguageName(language));
    }
    if (without.empty()) return;
    const Severity severity = StringOf(value_, number) ? Severity::Warning : Severity::Error;
    findings_.push_back({"string-missing", severity, place + '/' + std::string(name),
                         "there is no string " + std::to_string(number) + " in " + without});
  }

  void CheckFileName(std::int64_t number, const std::string& place, std::string_view name) {
    if (LevelFileName(value_.model, number)) return;
    findings_.push_back({"file-name-missing", Severity::Error, place + '/' + std::string(name),
                         "there is no file name " + std::to_string(number)});
  }

  const ScriptValue& value_;
  std::vector<Language> languages_;
  Findings findings_;
};

}  // namespace

Findings LimitFindings(const ScriptValue& value) {
  Limits limits;
  UseFileNames(value.model, limits);
  UseLevels(value.model, limits);
  for (const Language language : LoadedLanguages(value)) {
    UseLanguage(value.languages[static_cast<int>(language)],
                "/Languages/" + std::string(LanguageName(language)), limits);
  }
  return limits.Done();
}

Findings ReferenceFindings(const ScriptValue& value) {
  References references(value);
  for (int i = 0; i < value.model.NumLevels; ++i) references.Check(i);
  return references.Done();
}

std::int64_t GroupPlaces(ObjectKind kind) {
  static LevelRecord blank;
  std::int64_t places = 0;
  WithGroup(blank, kind, [&](auto&, auto& entries) { places = std::ssize(entries); });
  return places;
}

OpcodeUse OpcodeOf(const LevelObject& object, std::uint8_t game) {
  for (const Element& element : FormatOf(game).Elements()) {
    const auto* objects = std::get_if<Objects>(&element.content);
    if (objects == nullptr || static_cast<int>(objects->kind) != object.Kind) continue;
    const bool combination = IsCombination(objects->kind);
    const int id = object.Id;
    const int combo = object.Combo;
    if (combination ? combo != 1 && combo != 2 : combo != 0) return OpcodeUse::None;
    const int place = combination ? 2 * (id - 1) + combo - 1 : id - 1;
    const int opcode = element.first + place;
    if (place < 0 || opcode > element.last) return OpcodeUse::None;
    return opcode > objects->lastWritten ? OpcodeUse::ReadOnly : OpcodeUse::Both;
  }
  return OpcodeUse::None;
}

LanguageSizes SizesOf(const LanguageSlot& slot) {
  LanguageSizes sizes;
  const int count = slot.Total;
  if (count <= 0) return sizes;
  const std::array<Int16, 3> counts = {slot.Count1, slot.Count2, slot.Count3};
  int next = 0;
  for (std::size_t group = 0; group < counts.size(); ++group) {
    const int end = std::clamp(next + counts[group], next, count);
    sizes.groups[group] =
        static_cast<std::int64_t>(slot.Strings.SizeOfFirst(end) - slot.Strings.SizeOfFirst(next));
    next = end;
  }
  sizes.lastOffset = static_cast<std::int64_t>(slot.Strings.SizeOfFirst(count - 1));
  return sizes;
}

}  // namespace quillmark
