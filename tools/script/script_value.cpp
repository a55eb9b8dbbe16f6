#include "tools/script/script_value.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "core/level_stream.h"
#include "core/object_groups.h"
#include "core/script_dat.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/system_path.h"
#include "tools/script/private_folder.h"
#include "tools/script/progress.h"
#include "tools/script/script_fields.h"
#include "tools/script/script_scan.h"
#include "tools/script/whole_files.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
constexpr std::size_t kLanguageHead = 12;

std::string AbsolutePath(const std::string& argument) {
  std::error_code error;
  return PathText(fs::absolute(FormOfSystem(argument), error));
}

bool IsFolder(const std::string& path) {
  std::error_code error;
  return fs::is_directory(FormOfSystem(path), error);
}

ScriptSource FromStandardInput() {
  ScriptSource source;
  source.argument = "standard input";
  source.bytes = ReadStandardInput(kMostFileBytes);
  return source;
}

/// What a look at the source as one game's script has shown.
struct Trial {
  bool same = false;  ///< it reads, and a save gives back the same streams
  std::string seen;
};

bool SaveKeeps(const ScriptSource& source, const ScriptModel& model, const ScriptScan& scan,
               int level) {
  const ScannedStream& stream = scan.levels[static_cast<std::size_t>(level)];
  const std::string_view bytes = source.bytes;
  return stream.end <= bytes.size() &&
         bytes.substr(stream.begin, stream.end - stream.begin) == BuiltStream(model, level);
}

Trial TryGame(const ScriptSource& source, std::uint8_t game) {
  ScriptModel model;
  const std::string trouble = LoadAs(source, game, model);
  if (!trouble.empty()) return {false, "does not read (" + trouble + ")"};
  const ScriptScan scan = ScanScript(source.bytes, FormatOf(game));
  int changed = 0;
  for (int i = 0; i < model.NumLevels; ++i) changed += SaveKeeps(source, model, scan, i) ? 0 : 1;
  if (changed == 0) return {true, "reads, and a save gives back the same streams"};
  return {false, "reads, but a save changes the streams of " + std::to_string(changed) + " of " +
                     std::to_string(model.NumLevels.value()) + " levels"};
}

/// Takes the languages out of the module, and leaves it as a start of the process finds it.
class FreshStrings {
 public:
  FreshStrings() { Reset(); }
  ~FreshStrings() { Reset(); }
  FreshStrings(const FreshStrings&) = delete;
  FreshStrings& operator=(const FreshStrings&) = delete;

 private:
  static void Reset() {
    SetStringListeners({});
    StringsMod = {};
    SizeOffsetArrays();
  }
};

/// Damaged offsets can ask for zeros without end behind the file.
bool IsOfSize(const LanguageSlot& slot) {
  return std::cmp_less_equal(slot.Strings.SizeOfFirst(slot.Total), kMostFileBytes);
}

bool IsOfSize(const ScriptModel& model) {
  std::int64_t size = 0;
  for (int i = 0; i < model.NumFileNames; ++i) size += std::ssize(model.FileNames[i]);
  return size <= kMostFileBytes;
}

}  // namespace

ScriptSource OpenSource(const std::string& argument) try {
  if (argument == kStandardInput) return FromStandardInput();
  ScriptSource source;
  source.argument = argument;
  source.path = AbsolutePath(argument);
  source.isFolder = IsFolder(source.path);
  if (source.isFolder) source.path = JoinPath(source.path, kScriptName);
  source.bytes = ReadWholeFile(source.path, kMostFileBytes);
  if (IsStream(source.path)) source.path.clear();
  return source;
} catch (const Fault& fault) {
  throw Trouble(kUnreadable, fault.what());
}

std::string LoadAs(const ScriptSource& source, std::uint8_t game, ScriptModel& model) {
  TellProgress("Loading the script");
  TRScript = {};
  LoadCallbacks callbacks;
  callbacks.chooseGame = [game] { TRScript.ScriptKind = game; };
  std::string trouble;
  // What is alone gets a file only for this moment, since nobody clears up after a broken pipe.
  std::optional<PrivateFolder> folder;
  std::string path = source.path;
  if (path.empty()) {
    folder.emplace().Put(kScriptName, source.bytes);
    path = folder->PathOf(kScriptName);
  }
  try {
    if (!LoadScript(path, callbacks)) {
      trouble = "its second word is not zero, so it is no script";
    }
  } catch (const Fault& fault) {
    trouble = std::string(FaultName(fault.kind())) + ": " + fault.what();
  } catch (const MissingEndOfData&) {
    trouble = "a level's stream lacks its closing pair";
  }
  Files.AbandonFiles();
  model = std::move(TRScript);
  TRScript = {};
  return trouble;
}

std::uint8_t ChooseGame(const ScriptSource& source) {
  constexpr std::array<std::uint8_t, 2> kGames = {kTr4, kTr5};
  const std::array<Trial, 2> trials = {TryGame(source, kGames[0]), TryGame(source, kGames[1])};
  if (trials[0].same != trials[1].same) return trials[0].same ? kGames[0] : kGames[1];
  throw Trouble(kUnreadable, "which game " + source.argument +
                                 " belongs to does not show; say --game tr4 or --game tr5. As "
                                 "TR4 it " +
                                 trials[0].seen + "; as TR5 it " + trials[1].seen + ".");
}

ScriptValue ReadScript(ScriptSource source, std::optional<std::uint8_t> game, Beside beside) {
  ScriptValue value;
  value.source = std::move(source);
  const std::uint8_t kind = game ? *game : ChooseGame(value.source);
  const std::string trouble = LoadAs(value.source, kind, value.model);
  if (!trouble.empty()) {
    throw Trouble(kUnreadable, value.source.argument + " does not read as a script of " +
                                   std::string(GameName(kind)) + ": " + trouble);
  }
  if (!IsOfSize(value.model)) {
    throw Trouble(kUnreadable, "the file names of " + value.source.argument +
                                   " reach too far behind the end of the file");
  }
  if (beside == Beside::Languages) ReadLanguages(value);
  return value;
}

void ReadLanguages(ScriptValue& value) {
  if (value.source.path.empty()) return;  // nothing lies beside a script alone
  TellProgress("Reading the languages");
  const FreshStrings fresh;
  StringListeners listeners;
  listeners.failed = [&value](Language language, FileWork) {
    value.unreadable.push_back(language);
  };
  SetStringListeners(listeners);
  ReadLanguagesIn(
      GetPath(value.source.path), [&value](std::string_view name, const std::string& path) {
        Language language{};
        if (!FindLanguage(name, language)) return;
        try {
          value.languageBytes[static_cast<int>(language)] = ReadWholeFile(path, kMostFileBytes);
        } catch (const Fault&) {
          value.unreadable.push_back(language);
          return;
        }
        ReadLanguage(language, path);
        LanguageSlot& slot = Slot(language);
        if (!IsOn(slot.Loaded) || IsOfSize(slot)) return;
        slot.Loaded = kOff;
        value.unreadable.push_back(language);
      });
  value.languages = std::move(StringsMod.Slots);
}

void RequireLanguages(const ScriptValue& value) {
  if (value.unreadable.empty()) return;
  throw Trouble(kUnreadable,
                JoinPath(GetPath(value.source.path), LanguageFileName(value.unreadable.front())) +
                    " can't be read as a language file");
}

std::vector<Language> LoadedLanguages(const ScriptValue& value) {
  std::vector<Language> loaded;
  for (int i = 0; i < kLanguageCount; ++i) {
    if (IsOn(value.languages[i].Loaded)) loaded.push_back(static_cast<Language>(i));
  }
  return loaded;
}

std::string_view LanguageName(Language language) {
  const std::string_view name = LanguageFileName(language);
  return name.substr(0, name.rfind('.'));
}

std::optional<std::string_view> StringOf(const ScriptValue& value, std::int64_t number) {
  for (const LanguageSlot& slot : value.languages) {
    if (IsOn(slot.Loaded) && number >= 0 && number < slot.Total) return slot.Strings[number];
  }
  return std::nullopt;
}

std::optional<std::string_view> LevelFileName(const ScriptModel& model, std::int64_t number) {
  if (number < 0 || number >= model.NumFileNames) return std::nullopt;
  return model.FileNames[number];
}

std::string_view ShownPart(std::string_view entry) {
  return entry.substr(0, std::min(entry.find('\0'), kMostShownBytes));
}

std::string_view StringArea(const ScriptValue& value, Language language) {
  const int place = static_cast<int>(language);
  const int total = value.languages[place].Total;
  const std::string_view bytes = value.languageBytes[place];
  return bytes.substr(std::min(
      bytes.size(), kLanguageHead + sizeof(Int16) * static_cast<std::size_t>(std::max(total, 0))));
}

std::string_view StringInFile(const ScriptValue& value, Language language, int number) {
  const LanguageSlot& slot = value.languages[static_cast<int>(language)];
  std::string_view text = slot.Strings[number];
  const std::size_t area = StringArea(value, language).size();
  const std::size_t taken = slot.Strings.SizeOfFirst(slot.Total);
  if (number + 1 == slot.Total && taken > area) {
    text.remove_suffix(std::min(taken - area, text.size()));
  }
  return text;
}

std::string BuiltStream(const ScriptModel& model, int level) {
  LevelRecord record = model.Levels[level];
  RebuildGroups(record);
  std::string stream;
  AppendStream(record, level == 0, FormatOf(model.ScriptKind), stream);
  return stream;
}

}  // namespace quillmark
