#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/bounded_array.h"
#include "platform/checked_integer.h"

namespace quillmark {

/// The game that a script belongs to, as `ScriptKind` holds it. Every other value reads as TR5.
inline constexpr std::uint8_t kTr4 = 4;
inline constexpr std::uint8_t kTr5 = 5;

/// What the head of a script has a byte to count by.
inline constexpr int kMostLevels = 255;
inline constexpr int kMostFileNames = 255;

/// Places of the arrays below.
inline constexpr int kParamCount = 6;
inline constexpr int kGroupPlaces = 13;
inline constexpr int kExaminePlaces = 4;
inline constexpr int kCutPlaces = 100;
inline constexpr int kObjectPlaces = 145;
inline constexpr int kTr5ListPlaces = 33;
inline constexpr int kMipPlaces = 17;
inline constexpr int kRawPlaces = 1025;
inline constexpr int kTablePlaces = 256;
inline constexpr int kLanguageNameCount = 8;  ///< entries of `LanguageNames` that a script uses
inline constexpr std::size_t kExtensionLength = 5;

/// What `LanguageNames` of a new script say.
inline constexpr std::array<std::string_view, kLanguageNameCount> kUsualLanguageNames = {
    "ENGLISH.DAT", "FRENCH.DAT", "GERMAN.DAT", "ITALIAN.DAT",
    "SPANISH.DAT", "US.DAT",     "JAPAN.DAT",  "DUTCH.DAT"};

/// Kinds of objects, in the order of the flat list after a load.
enum class ObjectKind { Puzzle, Key, Pickup, PuzzleCombo, KeyCombo, PickupCombo, Examine };
inline constexpr int kObjectKindCount = 7;

/// Bits of `LevelFlags`.
enum class LevelFlag : std::uint16_t {
  YoungLara = 0x0001,
  Weather = 0x0002,
  Horizon = 0x0004,
  Layer1 = 0x0008,
  Layer2 = 0x0010,
  StarField = 0x0020,
  Lightning = 0x0040,
  Train = 0x0080,
  Pulse = 0x0100,
  ColAddHorizon = 0x0200,
  ResetHUB = 0x0400,
  LensFlare = 0x0800,
  Timer = 0x1000,
  RemoveAmulet = 0x4000,
  NoLevel = 0x8000
};

struct ObjectEntry {
  FixedArray<Int16, kParamCount> Params;
  Byte Id;
  Int16 StringId;
};

struct ComboEntry {
  FixedArray<Int16, kParamCount> Params;
  Byte Id;
  Int16 StringId;
  Byte Combo;
};

struct LevelObject {
  Int32 Kind;
  Byte Id;
  Int16 StringId;
  Byte Combo;
  FixedArray<Int16, kParamCount> Params;
};

struct CutEntry {
  Byte Type;
  Byte Value;
};

struct MipEntry {
  Byte Low;
  Byte High;
};

struct LevelRawEntry {
  FixedArray<Byte, kRawPlaces> Bytes;
  Int16 Length;
};

/// One level. The objects stand in two views: the seven groups, which parsers fill and builders
/// read, and the flat list `Objects`, which the editor shows and changes. The loader makes the flat
/// list from the groups, the writer the groups from the flat list; in between the groups are stale.
struct LevelRecord {
  Byte PuzzleCount;
  FixedArray<ObjectEntry, kGroupPlaces> Puzzles;
  Byte KeyCount;
  FixedArray<ObjectEntry, kGroupPlaces> Keys;
  Byte PuzzleComboCount;
  FixedArray<ComboEntry, kGroupPlaces> PuzzleCombos;
  Byte KeyComboCount;
  FixedArray<ComboEntry, kGroupPlaces> KeyCombos;
  Byte PickupCount;
  FixedArray<ObjectEntry, kGroupPlaces> Pickups;
  Byte PickupComboCount;
  FixedArray<ComboEntry, kGroupPlaces> PickupCombos;
  Byte ExamineCount;
  FixedArray<ObjectEntry, kExaminePlaces> Examines;
  Byte Fmv;  ///< above 127 the top bit is a flag and the low seven bits are the film
  Byte Cut;
  Byte CutCount;
  FixedArray<CutEntry, kCutPlaces> Cuts;
  Byte ResetHub;
  Int16 Layer1On;
  Int16 Layer2On;
  FixedArray<Byte, 4> Layer1;
  FixedArray<Byte, 4> Layer2;
  Int16 LensFlareOn;
  FixedArray<Int16, 3> LensFlarePos;
  FixedArray<Byte, 3> LensFlareColour;
  Byte MirrorRoom;
  Int32 MirrorValue;
  Int16 MirrorOn;
  FixedArray<Int32, 6> Camera;
  Byte CameraRoom;
  Byte NameString;  ///< index of the level's name in the string pool
  Int16 LevelFlags;
  Byte FileNameIndex;
  Byte AudioTrack;
  Byte MipCount;  ///< kept as it is: nothing raises it, so every element lands in `Mips[0]`
  FixedArray<MipEntry, kMipPlaces> Mips;
  Byte UVRotate;
  Int16 UVRotateOn;  ///< drives the check box alone; a value that is not 0 is what gets written
  Int16 LegendOn;
  Byte Legend;
  FixedArray<Byte, 3> Fog;
  Int16 FogOn;
  Int16 ObjectCount;
  FixedArray<LevelObject, kObjectPlaces> Objects;
  FixedArray<Int16, kTr5ListPlaces> Tr5ListA;
  Byte Tr5ListACount;
  FixedArray<Int16, kTr5ListPlaces> Tr5ListB;
  Byte Tr5ListBCount;
};

/// Whether the bit of `flag` is set in `LevelFlags`.
bool HasFlag(const LevelRecord& level, LevelFlag flag);

/// Turns the bit of `flag` round.
void FlipFlag(LevelRecord& level, LevelFlag flag);

/// The open script. Head fields stand in their order in the file; strings of the file keep their
/// terminating zero character as their last one.
struct ScriptModel {
  Byte ScriptKind;
  std::string ScriptPath;  ///< UTF-8
  Int16 ScriptSaved;
  Int16 ScriptFlags;
  Int16 ScriptFlagsHigh;
  Int32 ScriptFrameRate;
  Byte ScriptSecurity;
  Byte NumLevels;
  Byte NumFileNames;
  Int16 FileNamesSize;
  Int16 ScriptDataSize;
  std::string PsxLevelExt;
  std::string PsxCutExt;
  std::string PsxFmvExt;
  std::string ExtReserved;
  std::string PcLevelExt;
  std::string PcCutExt;
  std::string PcFmvExt;
  FixedArray<Int16, kTablePlaces> FileNameOffsets;
  DynamicArray<std::string> FileNames;
  FixedArray<Int16, kTablePlaces> LevelOffsets;
  FixedArray<LevelRawEntry, kTablePlaces> LevelRaw;
  FixedArray<std::string, kLanguageNameCount + 1> LanguageNames;
  DynamicArray<LevelRecord> Levels;

  ScriptModel();
};

/// The script of the process.
extern ScriptModel TRScript;

/// The six extension fields that have a box on the screen, in file order.
std::array<std::string*, 6> ShownExtensions(ScriptModel& script);

}  // namespace quillmark
