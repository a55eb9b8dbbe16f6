#include "bench/largest_script.h"

#include <random>
#include <stdexcept>
#include <string>

#include "core/script_dat.h"
#include "core/script_model.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "strings/language_files.h"

namespace quillmark {
namespace {

constexpr int kBlockBytes = 32767;
constexpr int kMostStrings = 2000;

// Bytes of the elements that fill up a level.
constexpr int kObjectBytes = 15;
constexpr int kLayerBytes = 5;
constexpr int kCutBytes = 2;
constexpr int kCameraBytes = 26;
constexpr int kClosingBytes = 7;

/// Numbers that look like those of a game but are the same in every run.
class Numbers {
 public:
  int Below(int bound) { return static_cast<int>(engine_() % static_cast<unsigned>(bound)); }

 private:
  std::mt19937 engine_{20040};
};

/// `bytes` bytes, the terminator included.
std::string Text(Numbers& numbers, int bytes) {
  std::string text;
  for (int i = 1; i < bytes; ++i) text += static_cast<char>('a' + numbers.Below(26));
  return text + '\0';
}

/// The bytes of entry `i` when `total` bytes are shared out evenly among `count` entries.
int Share(int total, int count, int i) { return total * (i + 1) / count - total * i / count; }

void FillLevel(Numbers& numbers, LevelRecord& level, int bytes) {
  level.LevelFlags = numbers.Below(0x2000);
  level.NameString = numbers.Below(100);
  level.AudioTrack = numbers.Below(100);
  while (bytes >= kObjectBytes) {
    LevelObject& object = level.Objects[level.ObjectCount];
    ++level.ObjectCount;
    object.Kind = numbers.Below(3);
    object.Id = numbers.Below(4) + 1;
    object.StringId = numbers.Below(100);
    for (Int16& param : object.Params) param = numbers.Below(1000);
    bytes -= kObjectBytes;
  }
  if (bytes % kCutBytes == 1 && bytes >= kLayerBytes) {
    level.Layer1On = kOn;
    bytes -= kLayerBytes;
  }
  for (; bytes >= kCutBytes; bytes -= kCutBytes) {
    CutEntry& cut = level.Cuts[level.CutCount];
    ++level.CutCount;
    cut.Type = numbers.Below(4) + 1;
    cut.Value = numbers.Below(100);
  }
}

void FillLanguage(Numbers& numbers, LanguageSlot& slot, int total, int bytes) {
  slot.Total = total;
  slot.Count1 = total / 2;
  slot.Count2 = total / 4;
  slot.Count3 = total - slot.Count1 - slot.Count2;
  slot.Strings.Redim(total);
  int moved = 0;
  for (int i = 0; i < total; ++i) {
    // Texts differ in length: every other one gives some of its bytes to the next.
    const int given = i % 2 == 0 && i + 1 < total ? numbers.Below(bytes / total) : 0;
    slot.Strings.Set(i, Text(numbers, Share(bytes, total, i) + moved - given));
    moved = given;
  }
  slot.Loaded = kOn;
}

}  // namespace

void FillLargestScript(std::uint8_t game, int levels) {
  Numbers numbers;
  TRScript = {};
  TRScript.ScriptKind = game;
  TRScript.NumLevels = TRScript.NumFileNames = levels;
  TRScript.Levels.Redim(levels);
  TRScript.FileNames.Redim(levels);
  const int blockBytes = kBlockBytes * levels / kMostLevels;
  // The title level's own elements take one byte less than the others'.
  const int closingBytes = kClosingBytes + (game == kTr4 ? kCameraBytes : 0);
  const int filledBytes = blockBytes + 1 - levels * closingBytes;
  for (int i = 0; i < levels; ++i) {
    TRScript.FileNames[i] = Text(numbers, Share(blockBytes, levels, i));
    FillLevel(numbers, TRScript.Levels[i], Share(filledBytes, levels, i));
  }
  for (std::string& name : TRScript.LanguageNames) name = Text(numbers, 12);

  StringsMod = {};
  SizeOffsetArrays();
  for (LanguageSlot& slot : StringsMod.Slots) {
    FillLanguage(numbers, slot, kMostStrings * levels / kMostLevels, blockBytes);
  }
}

void WriteLargestScript(const std::string& folder, std::uint8_t game, int levels) {
  FillLargestScript(game, levels);
  const std::string script = JoinPath(folder, "SCRIPT.DAT");
  Files.OpenBinary(1, script);  // a save needs a file to replace
  Files.CloseFiles();
  if (!SaveScript(script) || !WriteLoadedLanguages(folder)) {
    throw std::runtime_error("the largest script can't be saved");
  }
}

}  // namespace quillmark
