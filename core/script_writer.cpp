#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "core/level_stream.h"
#include "core/object_groups.h"
#include "core/opcode_table.h"
#include "core/script_dat.h"
#include "core/script_head.h"
#include "core/stream_file.h"
#include "platform/file_numbers.h"
#include "platform/little_endian.h"
#include "platform/log.h"

namespace quillmark {
namespace {

std::int64_t LengthOf(std::string_view text) { return static_cast<std::int64_t>(text.size()); }

// What a save computes and writes, piece by piece in the order of the file. Nothing of it touches a
// file: `write` takes the bytes, and `buildLevel` has to put the stream of one level into the
// model.

using Sink = std::function<void(std::string_view bytes)>;
using LevelBuild = std::function<void(int level)>;

std::string WordBytes(Int16 word) {
  std::string bytes;
  AppendNumber(bytes, word);
  return bytes;
}

void Prepare(ScriptModel& script) {
  script.FileNamesSize = 0;
  script.ScriptDataSize = 0;
  for (int i = 0; i < script.NumLevels; ++i) RebuildGroups(script.Levels[i]);
}

void SumFileNames(ScriptModel& script) {
  for (int i = 0; i < script.NumFileNames; ++i) {
    script.FileNamesSize += LengthOf(script.FileNames[i]);
  }
}

void WriteHead(ScriptModel& script, const Sink& write) {
  write(HeadBytes(HeadFlags(), script));
  write(HeadBytes(HeadCounts(), script));
  SumFileNames(script);
  write(HeadBytes(HeadSizesAndExtensions(), script));
}

void WriteFileNames(ScriptModel& script, const Sink& write) {
  // Kept as it is: the first offset is written even if there is no name.
  Int16 offset = 0;
  for (int i = 0; i == 0 || i < script.NumFileNames; ++i) {
    if (i > 0) offset += LengthOf(script.FileNames[i - 1]);
    script.FileNameOffsets[i] = offset;
    write(WordBytes(offset));
  }
  for (int i = 0; i < script.NumFileNames; ++i) write(script.FileNames[i]);
}

void WriteLevelOffsets(ScriptModel& script, const LevelBuild& buildLevel, const Sink& write) {
  script.LevelOffsets[0] = 0;
  for (int i = 0; i < script.NumLevels; ++i) {
    buildLevel(i);
    write(WordBytes(script.LevelOffsets[i]));
  }
}

void WriteLevels(ScriptModel& script, const Sink& write) {
  std::string streams;
  for (int i = 0; i < script.NumLevels; ++i) {
    const LevelRawEntry& raw = script.LevelRaw[i];
    AppendNumbers(streams, raw.Bytes.First(raw.Length));
    script.ScriptDataSize += raw.Length;
  }
  write(streams);
}

void WriteLanguageNames(const ScriptModel& script, const Sink& write) {
  for (int i = 0; i < kLanguageNameCount; ++i) write(script.LanguageNames[i]);
}

void CountStream(ScriptModel& script, int level, std::string_view stream) {
  Int16& nextOffset = script.LevelOffsets[level + 1];
  nextOffset = script.LevelOffsets[level].value() + LengthOf(stream);
}

void TakeStream(LevelRawEntry& raw, std::string_view stream) {
  for (std::size_t i = 0; i < stream.size(); ++i) {
    raw.Bytes[i] = static_cast<std::uint8_t>(stream[i]);
  }
  raw.Length = stream.size();
}

/// Builds one level of the script; its stream goes through `file`.
void BuildLevelIn(StreamFile& file, int level) {
  const StreamFormat& format = FormatOf(TRScript.ScriptKind);
  LogWrite("Building ", format.Game(), " script data for level #", level);
  std::string& made = file.Begin();
  AppendStream(TRScript.Levels[level], level == 0, format, made);
  const std::string& stream = file.Write();
  CountStream(TRScript, level, stream);
  file.Read();
  TakeStream(TRScript.LevelRaw[level], stream);
  file.Close();
}

void WriteScript() {
  const Sink write = [](std::string_view bytes) { Files.WriteText(kScriptFile, bytes); };
  WriteHead(TRScript, write);
  WriteFileNames(TRScript, write);
  StreamFile streams;
  WriteLevelOffsets(
      TRScript, [&streams](int level) { BuildLevelIn(streams, level); }, write);
  streams.Finish();
  WriteLevels(TRScript, write);
  WriteLanguageNames(TRScript, write);
  Files.Seek(kScriptFile, kScriptDataSizePosition);
  write(WordBytes(TRScript.ScriptDataSize));
  Files.CloseFiles();
}

}  // namespace

void BuildLevel(int level) {
  StreamFile file;
  BuildLevelIn(file, level);
  file.Finish();
}

bool SaveScript(const std::string& path) {
  LogWrite("Saving script");
  Prepare(TRScript);

  Files.ReplaceBinary(kScriptFile, path);
  WriteUpToFault(kScriptFile, WriteScript);
  LogWrite("Script saved");
  return true;
}

std::string SavedBytes(ScriptModel& script) {
  const StreamFormat& format = FormatOf(script.ScriptKind);
  std::string bytes;
  const Sink write = [&bytes](std::string_view more) { bytes += more; };
  const LevelBuild build = [&](int level) {
    std::string stream;
    AppendStream(script.Levels[level], level == 0, format, stream);
    CountStream(script, level, stream);
    TakeStream(script.LevelRaw[level], stream);
  };
  Prepare(script);
  WriteHead(script, write);
  WriteFileNames(script, write);
  WriteLevelOffsets(script, build, write);
  WriteLevels(script, write);
  WriteLanguageNames(script, write);
  const std::string size = WordBytes(script.ScriptDataSize);
  return bytes.replace(kScriptDataSizePosition, size.size(), size);
}

}  // namespace quillmark
