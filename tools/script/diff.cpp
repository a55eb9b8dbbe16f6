#include "tools/script/diff.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <iterator>
#include <set>

#include "platform/console.h"
#include "tools/script/commands.h"
#include "tools/script/field_text.h"
#include "tools/script/json_form.h"
#include "tools/script/progress.h"
#include "tools/script/save_losses.h"
#include "tools/script/script_scan.h"

namespace quillmark {
namespace {

template <class Record>
bool IsSame(const Record& one, const Record& other, const NumberField<Record>& field) {
  for (std::size_t i = 0; i < field.count; ++i) {
    if (field.get(one, i) != field.get(other, i)) return false;
  }
  return true;
}

template <class Record>
bool IsSame(const Record& one, const Record& other) {
  const auto fields = FieldsOf(one);
  return std::all_of(fields.begin(), fields.end(),
                     [&](const auto& field) { return IsSame(one, other, field); });
}

bool IsSame(const std::string& one, const std::string& other) { return one == other; }

class Comparison {
 public:
  Comparison(const ScriptValue& first, const ScriptValue& second)
      : first_(first), second_(second) {}

  std::vector<Difference> Run() {
    TellProgress("Comparing the scripts");
    CompareHead();
    CompareLevels();
    CompareLanguages();
    CompareLosses();
    CompareBytes();
    return std::move(differences_);
  }

 private:
  void Add(const std::string& part, const std::string& name, std::optional<std::string> first,
           std::optional<std::string> second) {
    differences_.push_back({part, name, std::move(first), std::move(second)});
  }
  void AddIfNotSame(const std::string& part, const std::string& name, const std::string& first,
                    const std::string& second) {
    if (first != second) Add(part, name, first, second);
  }

  template <class Record>
  void CompareFields(const std::string& part, const Record& first, const Record& second) {
    for (const NumberField<Record>& field : FieldsOf(first)) {
      if (IsSame(first, second, field)) continue;
      Add(part, std::string(field.name), FieldText(first_, first, field),
          FieldText(second_, second, field));
    }
  }

  void CompareHead() {
    const ScriptModel& first = first_.model;
    const ScriptModel& second = second_.model;
    AddIfNotSame("Script", "Game", std::string(GameName(first.ScriptKind)),
                 std::string(GameName(second.ScriptKind)));
    CompareFields("Script", first, second);
    for (const ExtensionField& field : ExtensionFields()) {
      AddIfNotSame("Script", std::string(field.name), ExtensionText(first.*field.member),
                   ExtensionText(second.*field.member));
    }
    const auto name = [](const ScriptValue&, const std::string& text) {
      return EscapedEntry(text);
    };
    CompareLists("Script", "FileNames", first.FileNames, first.NumFileNames, second.FileNames,
                 second.NumFileNames, name);
    CompareLists("Script", "LanguageNames", first.LanguageNames, kLanguageNameCount,
                 second.LanguageNames, kLanguageNameCount, name);
  }

  /// Compares by the longest list that both have in common, so that an entry put in between is one
  /// difference.
  template <class List, class Text>
  void CompareLists(const std::string& part, const std::string& name, const List& first,
                    int firstCount, const List& second, int secondCount, Text text) {
    const auto width = static_cast<std::size_t>(secondCount) + 1;
    std::vector<int> common((static_cast<std::size_t>(firstCount) + 1) * width);
    const auto at = [&](int i, int k) -> int& {
      return common[static_cast<std::size_t>(i) * width + static_cast<std::size_t>(k)];
    };
    for (int i = firstCount - 1; i >= 0; --i) {
      for (int k = secondCount - 1; k >= 0; --k) {
        at(i, k) = IsSame(first[i], second[k]) ? at(i + 1, k + 1) + 1
                                               : std::max(at(i + 1, k), at(i, k + 1));
      }
    }
    int i = 0;
    int k = 0;
    while (i < firstCount || k < secondCount) {
      const bool both = i < firstCount && k < secondCount;
      if (both && IsSame(first[i], second[k])) {
        ++i;
        ++k;
      } else if (k == secondCount || (both && at(i + 1, k) >= at(i, k + 1))) {
        Add(part, name + ' ' + std::to_string(i), text(first_, first[i]), std::nullopt);
        ++i;
      } else {
        Add(part, name + ' ' + std::to_string(k), std::nullopt, text(second_, second[k]));
        ++k;
      }
    }
  }

  /// The levels by their names. The title has no file name, and one that several levels have is
  /// counted.
  static std::vector<std::string> LevelNames(const ScriptModel& model) {
    std::vector<std::string> names;
    for (int i = 0; i < model.NumLevels; ++i) {
      const int number = model.Levels[i].FileNameIndex;
      const auto fileName = LevelFileName(model, number);
      const std::string plain = i == 0     ? "title"
                                : fileName ? EscapedText(ShownPart(*fileName))
                                           : "file " + std::to_string(number);
      std::string name = plain;
      for (int again = 2; IndexOf(names, name) >= 0; ++again) {
        name = plain + " (" + std::to_string(again) + ")";
      }
      names.push_back(name);
    }
    return names;
  }

  /// -1 for a name that is not there.
  static int IndexOf(const std::vector<std::string>& names, const std::string& name) {
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
  }

  void CompareLevels() {
    const std::vector<std::string> first = LevelNames(first_.model);
    const std::vector<std::string> second = LevelNames(second_.model);
    for (std::size_t i = 0; i < first.size(); ++i) {
      const std::string part = "Level " + first[i];
      const int other = IndexOf(second, first[i]);
      if (other < 0) {
        Add(part, "", "level " + std::to_string(i), std::nullopt);
      } else {
        CompareLevel(part, static_cast<int>(i), other);
      }
    }
    for (std::size_t i = 0; i < second.size(); ++i) {
      if (IndexOf(first, second[i]) >= 0) continue;
      Add("Level " + second[i], "", std::nullopt, "level " + std::to_string(i));
    }
  }

  void CompareLevel(const std::string& part, int firstNumber, int secondNumber) {
    const LevelRecord& first = first_.model.Levels[firstNumber];
    const LevelRecord& second = second_.model.Levels[secondNumber];
    AddIfNotSame(part, "Number", std::to_string(firstNumber), std::to_string(secondNumber));
    CompareFields(part, first, second);
    WithEachList(first, [&](std::string_view name, Games, const auto& count, const auto& entries) {
      WithEachList(second, [&](std::string_view otherName, Games, const auto& otherCount,
                               const auto& others) {
        if constexpr (std::is_same_v<decltype(entries), decltype(others)>) {
          if (name != otherName) return;
          CompareLists(
              part, std::string(name), entries, count, others, otherCount,
              [](const ScriptValue& value, const auto& entry) { return EntryText(value, entry); });
        }
      });
    });
  }

  void CompareLanguages() {
    for (int i = 0; i < kLanguageCount; ++i) {
      const auto language = static_cast<Language>(i);
      const std::string part = "Language " + std::string(LanguageName(language));
      const LanguageSlot& first = first_.languages[i];
      const LanguageSlot& second = second_.languages[i];
      if (IsOn(first.Loaded) && IsOn(second.Loaded)) {
        CompareStrings(part, language, first, second);
        continue;
      }
      if (IsOn(first.Loaded)) Add(part, "", StringCount(first), std::nullopt);
      if (IsOn(second.Loaded)) Add(part, "", std::nullopt, StringCount(second));
    }
  }

  static std::string StringCount(const LanguageSlot& slot) {
    return std::to_string(slot.Total.value()) + " strings";
  }

  static std::string Groups(const LanguageSlot& slot) {
    return std::to_string(slot.Count1.value()) + " + " + std::to_string(slot.Count2.value()) +
           " + " + std::to_string(slot.Count3.value());
  }

  static std::optional<std::string> StringText(const ScriptValue& value, Language language,
                                               int number) {
    if (number >= value.languages[static_cast<int>(language)].Total) return std::nullopt;
    return EscapedEntry(StringInFile(value, language, number));
  }

  void CompareStrings(const std::string& part, Language language, const LanguageSlot& first,
                      const LanguageSlot& second) {
    AddIfNotSame(part, "Groups", Groups(first), Groups(second));
    for (int i = 0; i < std::max<int>(first.Total, second.Total); ++i) {
      auto before = StringText(first_, language, i);
      auto after = StringText(second_, language, i);
      if (before == after) continue;
      Add(part, "String " + std::to_string(i), std::move(before), std::move(after));
    }
  }

  static std::multiset<std::string> LossLines(const ScriptValue& value) {
    const ScriptScan scan = ScanScript(value.source.bytes, FormatOf(value.model.ScriptKind));
    std::multiset<std::string> lines;
    for (const Finding& loss : SaveLosses(value, scan)) {
      lines.insert((loss.place.empty() ? "" : loss.place + ": ") + loss.sentence);
    }
    return lines;
  }

  /// What the model does not hold.
  void CompareLosses() {
    const auto first = LossLines(first_);
    const auto second = LossLines(second_);
    std::vector<std::string> only;
    std::set_difference(first.begin(), first.end(), second.begin(), second.end(),
                        std::back_inserter(only));
    for (const std::string& line : only) Add(kOutside, "", line, std::nullopt);
    only.clear();
    std::set_difference(second.begin(), second.end(), first.begin(), first.end(),
                        std::back_inserter(only));
    for (const std::string& line : only) Add(kOutside, "", std::nullopt, line);
  }

  void CompareBytes() {
    if (!differences_.empty()) return;
    const auto compare = [this](const std::string& name, const std::string& first,
                                const std::string& second) {
      if (first == second) return;
      Add(kOutside, name, std::to_string(first.size()) + " bytes",
          std::to_string(second.size()) + " bytes");
    };
    compare("the script's file", first_.source.bytes, second_.source.bytes);
    for (int i = 0; i < kLanguageCount; ++i) {
      compare(std::string(LanguageFileName(static_cast<Language>(i))), first_.languageBytes[i],
              second_.languageBytes[i]);
    }
  }

  static constexpr const char* kOutside = "Outside of what the editor holds";

  const ScriptValue& first_;
  const ScriptValue& second_;
  std::vector<Difference> differences_;
};

void PrintLine(const char* colour, char sign, const std::string& name, const std::string& text) {
  const bool coloured = OutputIsTerminal();
  if (coloured) std::cout << colour;
  std::cout << sign << ' ' << name << (name.empty() ? "" : ": ") << text;
  if (coloured) std::cout << "\033[0m";
  std::cout << '\n';
}

void Print(const std::vector<Difference>& differences) {
  std::string part;
  for (const Difference& difference : differences) {
    if (difference.part != part) std::cout << difference.part << '\n';
    part = difference.part;
    if (difference.first) PrintLine("\033[31m", '-', difference.name, *difference.first);
    if (difference.second) PrintLine("\033[32m", '+', difference.name, *difference.second);
  }
}

}  // namespace

std::vector<Difference> Differences(const ScriptValue& first, const ScriptValue& second) {
  return Comparison(first, second).Run();
}

int RunDiff(const Arguments& arguments) {
  if (arguments.positional[0] == kStandardInput && arguments.positional[1] == kStandardInput) {
    throw Trouble(kUsage, "only one of the two can come from standard input");
  }
  std::array<ScriptSource, 2> sources = {OpenSource(arguments.positional[0]),
                                         OpenSource(arguments.positional[1])};
  // Beside a script alone lie no languages: they would all be a difference.
  const bool alone = sources[0].path.empty() || sources[1].path.empty();
  std::array<ScriptValue, 2> values;
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = ReadScript(std::move(sources[i]), arguments.game,
                           alone ? Beside::Nothing : Beside::Languages);
    RequireLanguages(values[i]);
  }
  const std::vector<Difference> differences = Differences(values[0], values[1]);
  if (arguments.json) {
    std::cout << DifferencesDocument(differences);
  } else {
    Print(differences);
  }
  return differences.empty() ? kDone : kDiffers;
}

}  // namespace quillmark
