#include "core/level_stream.h"
#include "core/object_groups.h"
#include "core/script_dat.h"
#include "core/script_head.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/little_endian.h"
#include "platform/log.h"
#include "platform/system_path.h"

namespace quillmark {
namespace {

constexpr int kScriptFile = 1;

std::int64_t LengthOf(const std::string& text) { return static_cast<std::int64_t>(text.size()); }

/// Deletes the old script and gives the path to write to: with the letter case that the old name
/// had on disk.
std::string MakeRoom(const std::string& path) {
  std::string target = PathText(SystemPath(path));
  DiscardFile(path);
  return target;
}

void SumFileNames() {
  for (int i = 0; i < TRScript.NumFileNames; ++i) {
    TRScript.FileNamesSize += LengthOf(TRScript.FileNames[i]);
  }
}

void WriteFileNames() {
  // Kept as it is: the first offset is written even if there is no name.
  Int16 offset = 0;
  for (int i = 0; i == 0 || i < TRScript.NumFileNames; ++i) {
    if (i > 0) offset += LengthOf(TRScript.FileNames[i - 1]);
    TRScript.FileNameOffsets[i] = offset;
    Files.WriteInt16(kScriptFile, offset);
  }
  for (int i = 0; i < TRScript.NumFileNames; ++i) {
    Files.WriteText(kScriptFile, TRScript.FileNames[i]);
  }
}

void WriteLevelOffsets() {
  const auto build = TRScript.ScriptKind == kTr4 ? BuildLevelTr4 : BuildLevelTr5;
  BuildBatch batch;
  TRScript.LevelOffsets[0] = 0;
  for (int i = 0; i < TRScript.NumLevels; ++i) {
    build(i);
    Files.WriteInt16(kScriptFile, TRScript.LevelOffsets[i]);
  }
  batch.Finish();
}

void WriteLevels() {
  std::string streams;
  for (int i = 0; i < TRScript.NumLevels; ++i) {
    const LevelRawEntry& raw = TRScript.LevelRaw[i];
    AppendNumbers(streams, raw.Bytes.First(raw.Length));
    TRScript.ScriptDataSize += raw.Length;
  }
  Files.WriteText(kScriptFile, streams);
}

void WriteLanguageNames() {
  for (int i = 0; i < kLanguageNameCount; ++i) {
    Files.WriteText(kScriptFile, TRScript.LanguageNames[i]);
  }
}

}  // namespace

bool SaveScript(const std::string& path) {
  LogWrite("Saving script");
  TRScript.FileNamesSize = 0;
  TRScript.ScriptDataSize = 0;
  for (int i = 0; i < TRScript.NumLevels; ++i) RebuildGroups(TRScript.Levels[i]);

  Files.MakeBinary(kScriptFile, MakeRoom(path));
  const FlushOnFault keepWhatIsWritten(kScriptFile);
  WriteHead(HeadFlags(), TRScript);
  WriteHead(HeadCounts(), TRScript);
  SumFileNames();
  WriteHead(HeadSizesAndExtensions(), TRScript);
  WriteFileNames();
  WriteLevelOffsets();
  WriteLevels();
  WriteLanguageNames();
  Files.Seek(kScriptFile, kScriptDataSizePosition);
  Files.WriteInt16(kScriptFile, TRScript.ScriptDataSize);
  Files.CloseFiles();
  LogWrite("Script saved");
  return true;
}

}  // namespace quillmark
