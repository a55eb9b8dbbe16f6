#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/level_stream.h"
#include "core/object_groups.h"
#include "core/opcode_table.h"
#include "core/script_dat.h"
#include "core/script_head.h"
#include "platform/byte_reader.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/log.h"

namespace quillmark {
namespace {

/// The languages beside a script, in the order in which they are looked for.
constexpr std::array<std::string_view, 7> kLanguageFiles = {
    "ITALIAN.DAT", "ENGLISH.DAT", "GERMAN.DAT", "FRENCH.DAT", "US.DAT", "JAPAN.DAT", "SPANISH.DAT"};

template <class Callback, class... Arguments>
void Call(const Callback& callback, Arguments&&... arguments) {
  if (callback) callback(std::forward<Arguments>(arguments)...);
}

/// One less than the bytes of entry `i` of `count`, told from the offsets alone.
Int16 EntryLength(const FixedArray<Int16, kTablePlaces>& offsets, int i, int count,
                  Int16 blockSize) {
  if (i < count - 1) return offsets[i + 1] - 1 - offsets[i];
  return blockSize - offsets[i] - 1;
}

void ReadFileNames(ByteReader& bytes, const LoadCallbacks& callbacks) {
  const int count = TRScript.NumFileNames;
  TRScript.FileNames.Redim(count);
  bytes.ReadNumbers(TRScript.FileNameOffsets.First(count));
  for (int i = 0; i < count; ++i) {
    const Int16 length = EntryLength(TRScript.FileNameOffsets, i, count, TRScript.FileNamesSize);
    TRScript.FileNames[i] = bytes.ReadText(std::int64_t{length.value()} + 1);
    Call(callbacks.fileNameRead, TRScript.FileNames[i]);
  }
}

void ReadLevels(ByteReader& bytes) {
  const int count = TRScript.NumLevels;
  TRScript.Levels.Redim(count);
  bytes.ReadNumbers(TRScript.LevelOffsets.First(count));
  const StreamFormat& format = FormatOf(TRScript.ScriptKind);
  for (int i = 0; i < count; ++i) {
    const Int16 length = EntryLength(TRScript.LevelOffsets, i, count, TRScript.ScriptDataSize);
    LogWrite("Parsing ", format.Game(), " script data for level #", i);
    ParseStream(bytes, length, format, TRScript.Levels[i], TRScript.LevelRaw[i]);
  }
}

/// Kept as it is: the names are put behind those of an earlier load.
void ReadLanguageNames(std::string_view tail, const LoadCallbacks& callbacks) {
  for (int i = 0; i < kLanguageNameCount; ++i) {
    // A name that the file does not end is ended by the zero that is read behind the file.
    const std::size_t end = std::min(tail.find('\0'), tail.size());
    TRScript.LanguageNames[i].append(tail.substr(0, end)).push_back('\0');
    tail.remove_prefix(std::min(end + 1, tail.size()));
    Call(callbacks.languageNameRead, TRScript.LanguageNames[i]);
  }
}

}  // namespace

bool LoadScript(const std::string& path, const LoadCallbacks& callbacks) {
  TRScript.Levels.Redim(1);
  Files.Close(kScriptFile);
  Call(callbacks.chooseGame);

  LogWrite("Loading script");
  Files.OpenBinary(kScriptFile, path);
  const std::string file = Files.ReadText(kScriptFile, Files.Length(kScriptFile));
  ByteReader bytes(file);
  ReadHead(bytes, HeadFlags(), TRScript);
  if (TRScript.ScriptFlagsHigh != 0) return false;
  ReadHead(bytes, HeadCounts(), TRScript);
  ReadHead(bytes, HeadSizesAndExtensions(), TRScript);
  Call(callbacks.headRead);

  ReadFileNames(bytes, callbacks);
  ReadLevels(bytes);
  ReadLanguageNames(bytes.Rest(), callbacks);
  Files.CloseFiles();

  LogWrite("Loading strings");
  ReadLanguagesIn(GetPath(path), callbacks.languageFound);
  for (int i = 0; i < TRScript.NumLevels; ++i) FlattenGroups(TRScript.Levels[i]);

  LogWrite("Building specific interface");
  Call(callbacks.loaded);
  LogWrite("Script loaded");
  return true;
}

void ReadLanguagesIn(
    const std::string& folder,
    const std::function<void(std::string_view name, const std::string& path)>& found) {
  const std::vector<std::string> namesOnDisk = FindFiles(folder, kLanguageFiles);
  for (std::size_t i = 0; i < kLanguageFiles.size(); ++i) {
    if (!namesOnDisk[i].empty()) Call(found, kLanguageFiles[i], JoinPath(folder, namesOnDisk[i]));
    Files.CloseFiles();
  }
}

}  // namespace quillmark
