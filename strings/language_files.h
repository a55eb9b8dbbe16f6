#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/script_copy.h"
#include "platform/bounded_array.h"
#include "platform/checked_integer.h"
#include "strings/text_array.h"

namespace quillmark {

inline constexpr int kOffsetPlaces = 2049;

/// The seven slots, in their order.
enum class Language { ENGLISH, ITALIAN, GERMAN, US, FRENCH, SPANISH, JAPAN };
inline constexpr int kLanguageCount = 7;

/// One language file in memory. Every string keeps its terminating zero character.
struct LanguageSlot {
  Int16 Count1;
  Int16 Count2;
  Int16 Count3;
  Int16 Size1;
  Int16 Size2;
  Int16 Size3;
  Int16 Total;
  DynamicArray<Int16> Offsets;
  TextArray Strings;
  Int16 Loaded;
  Int16 Primary;
};

struct StringsModule {
  StringsModule() { StringPool.Redim(kOffsetPlaces - 1); }

  FixedArray<LanguageSlot, kLanguageCount> Slots;
  /// The second set, which the string editor keeps for its Cancel.
  FixedArray<LanguageSlot, kLanguageCount> Copies;
  DynamicArray<std::string> StringPool;
  Int16 NumStrings;
  /// The row of `cmbString` when the search window was opened, or the row last chosen in it.
  Int16 FindIndex;
};

/// The strings of the process.
extern StringsModule StringsMod;

LanguageSlot& Slot(Language language);

/// The name of the language's file, such as "ENGLISH.DAT".
std::string_view LanguageFileName(Language language);
/// The language whose file has that upper-cased name; false if it is none of the seven.
bool FindLanguage(std::string_view fileName, Language& language);

/// What was asked of a language file.
enum class FileWork { Read, Write };

/// What the readers and `SetPrimaryLanguage` tell whoever shows the strings. Routines that are left
/// empty are passed over.
struct StringListeners {
  std::function<void(const std::string&)> stringRead;  ///< a string of the primary language
  std::function<void()> levelNamesBegin;               ///< the level list starts anew
  std::function<void(const std::string&)> levelName;   ///< the name of level 1, 2, ...
  std::function<void()> poolBegins;                    ///< the lists of strings start anew
  std::function<void(const std::string&)> poolString;
  std::function<void(Language, FileWork)> failed;  ///< a file could not be read or written
};
/// Names who is told from now on.
void SetStringListeners(StringListeners listeners);

/// Sizes the offset arrays of all slots, once at start.
void SizeOffsetArrays();

/// Turns `Loaded` and `Primary` of all slots off.
void ForgetLanguages();

/// Reads the file at `path` into the language's slot. True only for the primary language; any error
/// is told to the listener and gives false. With `Primary` off the result is false
/// too, and the file stays open under number 2 for the caller to close.
bool ReadLanguage(Language language, const std::string& path);

/// Writes the slot over the file at `path`, which is not emptied first. Any error is told to the
/// listener and gives false.
bool WriteLanguage(Language language, const std::string& path);

/// Reads the file that `ReadLanguagesIn` has found. What goes wrong is told and then passed over.
void ReadFoundLanguage(std::string_view fileName, const std::string& path);

/// Writes every loaded language to its file in `folder`, in the order of a save. Ends with false at
/// the first one that can't be written.
bool WriteLoadedLanguages(const std::string& folder);

/// What `WriteLoadedLanguages` would write now, file by file. Nothing is changed by it. In a
/// language that is too large for its file the strings that have no room are empty; one with more
/// strings than places is left out.
std::vector<FileCopy> CopiesOfLoadedLanguages();

/// Makes the slot the string pool. Throws the subscript fault for more strings than places.
void SetPrimaryLanguage(Language language);

/// The first string of the pool that begins with `text`, letter case aside; -1 if none does.
/// Throws the subscript fault for a pool of less than `NumStrings` places.
int FindPoolString(std::string_view text);

}  // namespace quillmark
