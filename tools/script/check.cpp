#include "tools/script/check.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <set>

#include "tools/script/commands.h"
#include "tools/script/json_form.h"
#include "tools/script/save_losses.h"
#include "tools/script/script_fields.h"
#include "tools/script/script_rules.h"
#include "tools/script/script_scan.h"
#include "tools/script/text_form.h"

namespace quillmark {
namespace {

class Check {
 public:
  Check(const ScriptSource& source, std::uint8_t game)
      : game_(game), scan_(ScanScript(source.bytes, FormatOf(game))) {
    value_.source = source;
  }

  Findings Run() {
    CheckFile();
    CheckClosingPairs();
    CheckFullGroups();
    const std::string trouble = LoadAs(value_.source, game_, value_.model);
    if (!trouble.empty()) {
      Add("load-fails", Severity::Error, "", "the editor can't load it: " + trouble);
      return std::move(findings_);
    }
    ReadLanguages(value_);
    Take(LimitFindings(value_));
    Take(ReferenceFindings(value_));
    CheckFileNames();
    CheckLanguageNames();
    CheckLanguages();
    Take(SaveLosses(value_, scan_));
    return std::move(findings_);
  }

 private:
  void Add(std::string_view id, Severity severity, const std::string& place,
           const std::string& sentence) {
    findings_.push_back({id, severity, place, sentence});
  }
  void Take(Findings more) {
    findings_.insert(findings_.end(), std::make_move_iterator(more.begin()),
                     std::make_move_iterator(more.end()));
  }

  void CheckFile() {
    if (!scan_.endsEarly) return;
    Add("file-truncated", Severity::Error, "",
        "the file ends in front of its language names; what is missing reads as zeros");
  }

  void CheckClosingPairs() {
    for (std::size_t i = 0; i < scan_.levels.size(); ++i) {
      const ScannedStream& stream = scan_.levels[i];
      if (stream.closed && !stream.endMissing) continue;
      Add("closing-missing", Severity::Error, LevelPlace(static_cast<int>(i)),
          stream.closed ? "the byte behind the closing element is not the end of data: the editor "
                          "ends when it loads this"
                        : "the stream has no closing pair");
    }
  }

  /// Groups that have more entries than the model has places, which no load gets past.
  void CheckFullGroups() {
    for (std::size_t i = 0; i < scan_.levels.size(); ++i) {
      std::map<const Element*, std::int64_t> counts;
      for (const ScannedElement& scanned : scan_.levels[i].elements) {
        if (scanned.element != nullptr) ++counts[scanned.element];
      }
      for (const auto& [element, count] : counts) {
        const std::int64_t most = PlacesFor(*element);
        if (most == 0 || count <= most) continue;
        Add("group-full", Severity::Error, LevelPlace(static_cast<int>(i)),
            std::to_string(count) + " elements " + std::string(element->name) + "; " +
                std::to_string(most) + " are the most");
      }
    }
  }

  static std::int64_t PlacesFor(const Element& element) {
    if (const auto* objects = std::get_if<Objects>(&element.content)) {
      return GroupPlaces(objects->kind);
    }
    if (std::holds_alternative<CutList>(element.content)) return kCutPlaces;
    return std::holds_alternative<WordList>(element.content) ? kTr5ListPlaces : 0;
  }

  void CheckFileNames() {
    const ScriptModel& model = value_.model;
    if (model.NumFileNames == 0) {
      Add("no-file-names", Severity::Warning, "/FileNames",
          "there is no file name; a save writes one offset for it all the same, and the result "
          "can't be read back");
    }
    std::set<int> used;
    for (int i = 0; i < model.NumLevels; ++i) {
      const int number = model.Levels[i].FileNameIndex;
      used.insert(number);
      const auto name = LevelFileName(model, number);
      if (i > 0 && name && (name->empty() || name->front() == '\0')) {
        Add("level-without-file", Severity::Warning, LevelPlace(i, "FileNameIndex"),
            "its file name " + std::to_string(number) + " is empty");
      }
    }
    for (int i = 0; i < model.NumFileNames; ++i) {
      if (used.contains(i)) continue;
      Add("file-name-unused", Severity::Note, "/FileNames/" + std::to_string(i),
          "no level uses '" +
              EscapedText(
                  std::string_view(model.FileNames[i]).substr(0, model.FileNames[i].find('\0'))) +
              "'");
    }
  }

  void CheckLanguageNames() {
    int missing = 0;
    std::map<std::string, int> places;
    for (int i = 0; i < kLanguageNameCount; ++i) {
      const std::string& name = value_.model.LanguageNames[i];
      const std::string place = "/LanguageNames/" + std::to_string(i);
      if (name.size() <= 1) {
        ++missing;
        continue;
      }
      const auto [known, fresh] = places.emplace(name, i);
      if (fresh) continue;
      Add("language-names-doubled", Severity::Warning, place,
          "'" + EscapedEntry(name) + "' is entry " + std::to_string(known->second) +
              " too: a script that was loaded twice in one run of the editor holds several names "
              "in place of each");
    }
    if (missing == 0) return;
    Add("language-names-missing", Severity::Warning, "/LanguageNames",
        std::to_string(missing) + " of " + std::to_string(kLanguageNameCount) +
            " language names are empty or not there");
  }

  void CheckLanguages() {
    for (const Language language : value_.unreadable) {
      Add("language-unreadable", Severity::Error, PlaceOf(language),
          "the file can't be read as a language; a save does not write it");
    }
    const std::vector<Language> loaded = LoadedLanguages(value_);
    if (loaded.empty()) {
      Add("no-language", Severity::Note, "/Languages",
          "no language file was looked at, so nothing is known of the strings");
      return;
    }
    for (const Language language : loaded) {
      CheckCounts(loaded.front(), language);
      CheckEnds(language);
    }
    if (loaded.size() > 1) CheckTails(loaded);
  }

  const LanguageSlot& SlotOf(Language language) const {
    return value_.languages[static_cast<int>(language)];
  }
  static std::string PlaceOf(Language language) {
    return "/Languages/" + std::string(LanguageName(language));
  }
  static std::string CountsOf(const LanguageSlot& slot) {
    return std::to_string(slot.Count1.value()) + " + " + std::to_string(slot.Count2.value()) +
           " + " + std::to_string(slot.Count3.value());
  }

  void CheckCounts(Language first, Language language) {
    const std::string counts = CountsOf(SlotOf(language));
    const std::string expected = CountsOf(SlotOf(first));
    if (counts == expected) return;
    Add("string-counts-differ", Severity::Warning, PlaceOf(language),
        "it has " + counts + " strings, but " + std::string(LanguageName(first)) + " has " +
            expected);
  }

  void CheckEnds(Language language) {
    for (int i = 0; i < SlotOf(language).Total; ++i) {
      const std::string_view text = StringInFile(value_, language, i);
      const std::string place = PlaceOf(language) + "/Strings/" + std::to_string(i);
      const std::size_t end = text.find('\0');
      if (end == std::string_view::npos) {
        Add("string-unterminated", Severity::Warning, place, "the string has no zero at its end");
      } else if (text.find_first_not_of('\0', end) != std::string_view::npos) {
        Add("string-tail", Severity::Warning, place,
            std::to_string(text.size() - end - 1) +
                " bytes stand behind its end, such as the tail of an older, longer file");
      } else if (end + 1 < text.size()) {
        Add("string-zeros", Severity::Note, place,
            std::to_string(text.size() - end - 1) +
                " zeros too many stand at its end; each save in the editor adds one to the last "
                "string");
      }
    }
  }

  void CheckTails(const std::vector<Language>& loaded) {
    for (int i = 0; i < SlotOf(loaded.front()).Total; ++i) {
      std::map<std::string_view, std::pair<Language, std::string_view>> seen;
      for (const Language language : loaded) {
        if (i >= SlotOf(language).Total) continue;
        const std::string_view text = StringInFile(value_, language, i);
        const auto [other, fresh] =
            seen.try_emplace(text.substr(0, text.find('\0')), language, text);
        if (fresh || other->second.second == text) continue;
        Add("strings-differ-in-tail", Severity::Warning,
            PlaceOf(language) + "/Strings/" + std::to_string(i),
            "it differs from that of " + std::string(LanguageName(other->second.first)) +
                " only in what stands behind its end");
      }
    }
  }

  std::uint8_t game_;
  ScriptScan scan_;
  ScriptValue value_;
  Findings findings_;
};

}  // namespace

Findings CheckScript(const ScriptSource& source, std::uint8_t game) {
  return Check(source, game).Run();
}

int RunCheck(const Arguments& arguments) {
  const ScriptSource source = OpenSource(arguments.positional.front());
  const std::uint8_t game = arguments.game ? *arguments.game : ChooseGame(source);
  const Findings findings = CheckScript(source, game);
  if (arguments.json) {
    std::cout << FindingsDocument(game, findings);
  } else {
    for (const Finding& finding : findings) std::cout << FindingLine(finding) << '\n';
  }
  if (HasSeverity(findings, Severity::Error)) return kFaulty;
  return HasSeverity(findings, Severity::Warning) ? kDiffers : kDone;
}

}  // namespace quillmark
