#include <algorithm>
#include <charconv>
#include <iostream>
#include <map>

#include "platform/fault.h"
#include "platform/files.h"
#include "tools/script/commands.h"
#include "tools/script/csv.h"
#include "tools/script/output.h"
#include "tools/script/progress.h"
#include "tools/script/script_files.h"
#include "tools/script/script_rules.h"
#include "tools/script/string_table.h"
#include "tools/script/text_form.h"
#include "tools/script/whole_files.h"

namespace quillmark {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::int64_t kMostTableBytes = 8 << 20;
constexpr std::size_t kFirstLanguageColumn = 2;

const LanguageSlot& SlotOf(const ScriptValue& value, Language language) {
  return value.languages[static_cast<int>(language)];
}

int GroupOf(const LanguageSlot& slot, int number) {
  if (number < slot.Count1) return 1;
  return number < slot.Count1.value() + slot.Count2.value() ? 2 : 3;
}

int RowCount(const ScriptValue& value) {
  int rows = 0;
  for (const LanguageSlot& slot : value.languages) {
    if (IsOn(slot.Loaded)) rows = std::max<int>(rows, slot.Total);
  }
  return rows;
}

/// Of the first language that has the string.
int GroupOf(const ScriptValue& value, int number) {
  for (const LanguageSlot& slot : value.languages) {
    if (IsOn(slot.Loaded) && number < slot.Total) return GroupOf(slot, number);
  }
  return 0;
}

std::string CellOf(const ScriptValue& value, Language language, int number) {
  if (number >= SlotOf(value, language).Total) return {};
  return EscapedEntry(StringInFile(value, language, number), true);
}

CsvRow HeadRow(const std::vector<Language>& languages) {
  CsvRow row = {"Number", "Group"};
  for (const Language language : languages) row.emplace_back(LanguageName(language));
  return row;
}

/// Takes a table back into the languages.
class Taking {
 public:
  Taking(ScriptValue& value, Findings& findings)
      : value_(value), findings_(findings), rowCount_(RowCount(value)) {}

  void Take(const std::vector<CsvRow>& rows) {
    if (rows.empty()) return Error("no-table", "", "the table is empty");
    TellProgress("Comparing the strings");
    ReadHead(rows.front());
    if (HasSeverity(findings_, Severity::Error)) return;
    for (std::size_t i = 1; i < rows.size(); ++i) ReadRow(rows[i], i + 1);
    for (int number = 0; number < rowCount_; ++number) {
      if (seen_.contains(number)) continue;
      Error("number-missing", "", "there is no row with the number " + std::to_string(number));
    }
    StoreChanges();
  }

  std::vector<Language> Changed() const {
    std::vector<Language> languages;
    for (const auto& [language, cells] : changes_) languages.push_back(language);
    return languages;
  }

 private:
  void Error(std::string_view id, const std::string& place, const std::string& sentence) {
    findings_.push_back({id, Severity::Error, place, sentence});
  }

  void ReadHead(const CsvRow& row) {
    if (row.size() < kFirstLanguageColumn || row[0] != "Number" || row[1] != "Group") {
      const bool otherMark = row.front().find_first_of(";\t") != std::string::npos;
      return Error("no-table", "row 1",
                   otherMark ? "the cells have to be parted by commas"
                             : "the first two columns have to be Number and Group");
    }
    for (std::size_t i = kFirstLanguageColumn; i < row.size(); ++i) {
      Language language{};
      if (!FindLanguage(row[i] + ".DAT", language)) {
        Error("unknown-language", "row 1", "there is no language '" + row[i] + "'");
      } else if (!IsOn(SlotOf(value_, language).Loaded)) {
        Error("unknown-language", "row 1", "there is no file " + row[i] + ".DAT");
      } else if (std::find(columns_.begin(), columns_.end(), language) != columns_.end()) {
        Error("language-twice", "row 1", "the language " + row[i] + " stands twice");
      }
      columns_.push_back(language);
    }
  }

  void ReadRow(const CsvRow& row, std::size_t rowNumber) {
    const std::string place = "row " + std::to_string(rowNumber);
    const auto isBlank = [](const std::string& cell) { return cell.empty(); };
    if (std::all_of(row.begin(), row.end(), isBlank)) return;  // as spreadsheets put at the end
    if (row.size() != kFirstLanguageColumn + columns_.size()) {
      return Error("wrong-row", place,
                   "it has " + std::to_string(row.size()) + " cells, not " +
                       std::to_string(kFirstLanguageColumn + columns_.size()));
    }
    int number = -1;
    const char* end = row[0].data() + row[0].size();
    const auto [stop, error] = std::from_chars(row[0].data(), end, number);
    if (error != std::errc() || stop != end || number < 0 || number >= rowCount_) {
      return Error("wrong-number", place,
                   "'" + row[0] + "' is no number from 0 to " + std::to_string(rowCount_ - 1));
    }
    if (!seen_.emplace(number, rowNumber).second) {
      return Error("number-twice", place, "the number " + row[0] + " stands twice");
    }
    if (row[1] != std::to_string(GroupOf(value_, number))) {
      Error("wrong-group", place,
            "the group can't be changed from " + std::to_string(GroupOf(value_, number)) + " to '" +
                row[1] + "'");
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      ReadCell(columns_[i], number, row[kFirstLanguageColumn + i], place);
    }
  }

  void ReadCell(Language language, int number, const std::string& cell, const std::string& row) {
    if (cell == CellOf(value_, language, number)) return;
    const std::string place = row + ", " + std::string(LanguageName(language));
    const LanguageSlot& slot = SlotOf(value_, language);
    if (number >= slot.Total) {
      return Error("no-such-string", place,
                   "the language has only " + std::to_string(slot.Total.value()) + " strings");
    }
    try {
      const std::string bytes = EntryBytes(cell);
      if (bytes.find(kMaskCharacter) != std::string::npos) {
        return Error("mask-character", place,
                     "a language file can't hold a backslash: it would read as a zero");
      }
      changes_[language].push_back({number, bytes, place});
    } catch (const NoBytes& trouble) {
      Error("code-page", place, trouble.what());
    }
  }

  struct Change {
    int number;
    std::string bytes;
    std::string place;
  };

  /// Puts the changed strings into their slots. If they are too long in all, each is named that
  /// finds no room behind those in front of it.
  void StoreChanges() {
    for (auto& [language, cells] : changes_) {
      LanguageSlot& slot = value_.languages[static_cast<int>(language)];
      const int last = slot.Total - 1;
      slot.Strings.Set(last, std::string(StringInFile(value_, language, last)));
      LanguageSlot trial = slot;
      for (const Change& change : cells) slot.Strings.Set(change.number, change.bytes);
      if (Fits(slot)) continue;
      for (const Change& change : cells) {
        const std::string before(trial.Strings[change.number]);
        trial.Strings.Set(change.number, change.bytes);
        if (Fits(trial)) continue;
        trial.Strings.Set(change.number, before);
        Error("over-limit", change.place,
              "with this string the language takes more than " + std::to_string(kMostAreaBytes) +
                  " bytes");
      }
    }
  }

  static bool Fits(const LanguageSlot& slot) {
    const LanguageSizes sizes = SizesOf(slot);
    return sizes.lastOffset <= kMostAreaBytes &&
           *std::max_element(sizes.groups.begin(), sizes.groups.end()) <= kMostAreaBytes;
  }

  ScriptValue& value_;
  Findings& findings_;
  int rowCount_;
  std::vector<Language> columns_;
  std::map<int, std::size_t> seen_;
  std::map<Language, std::vector<Change>> changes_;
};

std::string ReadTable(const std::string& path) try {
  std::string text = ReadWholeFile(path, kMostTableBytes);
  if (text.starts_with(kMark)) text.erase(0, kMark.size());
  return text;
} catch (const Fault& fault) {
  throw Trouble(kUnreadable, fault.what());
}

}  // namespace

std::string StringTable(const ScriptValue& value) {
  const std::vector<Language> languages = LoadedLanguages(value);
  std::string text(kMark);
  AppendCsvRow(text, HeadRow(languages));
  for (int number = 0; number < RowCount(value); ++number) {
    CsvRow row = {std::to_string(number), std::to_string(GroupOf(value, number))};
    for (const Language language : languages) row.push_back(CellOf(value, language, number));
    AppendCsvRow(text, row);
  }
  return text;
}

std::vector<NewFile> TakeTable(ScriptValue value, std::string_view text, Findings& findings) {
  std::vector<NewFile> files;
  Taking taking(value, findings);
  try {
    taking.Take(ParseCsv(text));
  } catch (const NoTable& trouble) {
    findings.push_back({"no-table", Severity::Error, "", trouble.what()});
  }
  if (HasSeverity(findings, Severity::Error)) return files;
  for (const Language language : taking.Changed()) {
    files.push_back(
        {std::string(LanguageFileName(language)), LanguageFile(language, SlotOf(value, language))});
  }
  return files;
}

int RunStrings(const Arguments& arguments) {
  if (arguments.take && arguments.output) {
    throw Trouble(kUsage, "--take and -o do not go together");
  }
  ScriptValue value;
  value.source = OpenSource(arguments.positional.front());
  ReadLanguages(value);
  RequireLanguages(value);
  if (LoadedLanguages(value).empty()) {
    throw Trouble(kRefused, "no language file lies beside " + value.source.argument);
  }
  if (!arguments.take) {
    PutOut(StringTable(value), arguments, value.source);
    return kDone;
  }
  Findings findings;
  const std::string folder = GetPath(value.source.path);
  std::vector<NewFile> files = TakeTable(value, ReadTable(*arguments.take), findings);
  for (const Finding& finding : findings) std::cerr << FindingLine(finding) << '\n';
  if (!findings.empty()) return kRefused;
  std::string told;
  for (NewFile& file : files) {
    told += file.path + " is changed\n";
    file.path = JoinPath(folder, file.path);
  }
  WriteWholeFiles(files);
  std::cerr << told;
  return kDone;
}

}  // namespace quillmark
