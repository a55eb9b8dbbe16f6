#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/script_model.h"

namespace quillmark {

/// The file number that a script is read and written under.
inline constexpr int kScriptFile = 1;

/// What a load tells whoever shows the script, and what it asks. Routines that are left empty are
/// passed over.
struct LoadCallbacks {
  std::function<void()> chooseGame;  ///< has to set `ScriptKind`
  std::function<void()> headRead;    ///< the head's fields are in the model
  std::function<void(const std::string&)> fileNameRead;
  std::function<void(const std::string&)> languageNameRead;
  /// A language file stands beside the script: its upper-cased name, such as "ITALIAN.DAT", and
  /// path.
  std::function<void(std::string_view name, const std::string& path)> languageFound;
  std::function<void()> loaded;  ///< the whole script is in the model
};

/// Loads the script at `path` into the model. False if its second word is not zero,
/// with file number 1 left open. Throws the faults of the files, of the offset arithmetic and of
/// the parsers, and `MissingEndOfData`. Nothing is undone then.
bool LoadScript(const std::string& path, const LoadCallbacks& callbacks);

/// Rebuilds the groups from the flat lists, then replaces the file at `path`, which has to exist,
/// by the script of the model. True when it was written; every trouble is a fault. One of the data
/// leaves the file in whatever state it reached and the file numbers 1 and 3 as they were at that
/// moment, one of the system leaves the old file and frees number 1.
bool SaveScript(const std::string& path);

/// The bytes that `SaveScript` would write, without any file. What it computes on the way goes into
/// `script`. Throws the faults of the data that `SaveScript` throws.
std::string SavedBytes(ScriptModel& script);

/// Makes the stream of `Levels[level]` from its groups, puts it on disk as `scriptdata.tmp`, counts
/// `LevelOffsets[level + 1]` on from `LevelOffsets[level]`, and takes what the file holds into
/// `LevelRaw[level]`. Throws the subscript fault for an index outside the levels and for a stream
/// of more than 1025 bytes, the overflow fault for an offset past 32767, and file faults. A fault
/// may leave file number 3 open.
void BuildLevel(int level);

/// The path of the file that the streams are built in.
std::string BuiltStreamPath();

/// Reads every language file that stands in `folder`, in the loader's order, through `found`, and
/// closes the files after each.
void ReadLanguagesIn(
    const std::string& folder,
    const std::function<void(std::string_view name, const std::string& path)>& found);

}  // namespace quillmark
