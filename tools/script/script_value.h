#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/script_model.h"
#include "strings/language_files.h"

namespace quillmark {

/// What a subcommand ends with.
enum Status { kDone = 0, kDiffers = 1, kRefused = 1, kFaulty = 2, kUnreadable = 3, kUsage = 64 };

/// Ends a subcommand: its text is for the user.
struct Trouble : std::runtime_error {
  Trouble(Status endsWith, const std::string& text) : std::runtime_error(text), status(endsWith) {}
  Status status;
};

/// The most bytes of a script and of a language file that are read: many times of what the games
/// and the editor can use, and little enough for the memory.
inline constexpr std::int64_t kMostFileBytes = 256 << 10;

/// The word for standard input, or output, in place of a path.
inline constexpr std::string_view kStandardInput = "-";

/// The name under which the games and the editor know a script.
inline constexpr std::string_view kScriptName = "SCRIPT.DAT";

/// A script that was named on the command line: a path of a file, a folder with a `SCRIPT.DAT`, or
/// "-" for what comes from standard input.
struct ScriptSource {
  std::string argument;  ///< as the user wrote it
  std::string path;      ///< empty for a script alone, from standard input or a pipe
  std::string bytes;
  bool isFolder = false;
};

/// Throws `Trouble` if it can't be read.
ScriptSource OpenSource(const std::string& argument);

/// All that is known of a script.
struct ScriptValue {
  ScriptSource source;
  ScriptModel model;
  FixedArray<LanguageSlot, kLanguageCount> languages;
  FixedArray<std::string, kLanguageCount> languageBytes;  ///< of the files, loaded or not
  std::vector<Language> unreadable;                       ///< files that no slot could be made of
};

/// Reads the source as that game's, without its languages. What went wrong, or nothing.
std::string LoadAs(const ScriptSource& source, std::uint8_t game, ScriptModel& model);

/// The game whose streams the source holds: the one that it reads as without a fault, and whose
/// save gives back the same streams. Throws `Trouble` if that is none, or both.
std::uint8_t ChooseGame(const ScriptSource& source);

enum class Beside { Languages, Nothing };

/// Reads a script, and the languages beside it if they are wanted. Throws `Trouble` if that fails.
ScriptValue ReadScript(ScriptSource source, std::optional<std::uint8_t> game, Beside beside);
/// Reads the languages beside the script of `value`; one that can't be read is noted.
void ReadLanguages(ScriptValue& value);
/// Throws `Trouble` if a language could not be read.
void RequireLanguages(const ScriptValue& value);

/// The languages that are loaded, in the order of the slots.
std::vector<Language> LoadedLanguages(const ScriptValue& value);
/// Its name, such as "ENGLISH".
std::string_view LanguageName(Language language);

/// A string in the first language that has it, or a file name, each with its zero; nothing if there
/// is none of that number.
std::optional<std::string_view> StringOf(const ScriptValue& value, std::int64_t number);
std::optional<std::string_view> LevelFileName(const ScriptModel& model, std::int64_t number);

/// How many bytes of a string are shown beside its number, which may stand in many places.
inline constexpr std::size_t kMostShownBytes = 200;
/// The start of a string or name, up to its first zero, that is shown beside its number.
std::string_view ShownPart(std::string_view entry);

/// The bytes of the language's file that strings are cut from.
std::string_view StringArea(const ScriptValue& value, Language language);
/// A string as the file holds it: the last one without the zero that its reader took from behind
/// the end of the file.
std::string_view StringInFile(const ScriptValue& value, Language language, int number);

/// The stream that a save makes of the level. Throws the subscript fault for a kind with more
/// objects than its group has places.
std::string BuiltStream(const ScriptModel& model, int level);

}  // namespace quillmark
