// The opcode tables, by a second statement of what each element feeds and of which opcode each
// number of an entry gets.

#include <nlohmann/json.hpp>
#include <tuple>

#include "core/script_dat.h"
#include "platform/file_numbers.h"
#include "tools/listing.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

using CoreTableTest = CoreTest;

enum Games { kBoth, kTr4Alone, kTr5Alone };
struct Element {
  Games games;
  const char* bytes;
  const char* fields;  ///< what they leave in a fresh record
};
const Element kElements[] = {
    {kBoth, "80 85", R"({"Fmv":133})"},
    {kBoth, "84 07", R"({"Cut":7})"},
    {kBoth, "85 f1", R"({"CutCount":1,"Cuts":[{"Type":1,"Value":241}]})"},
    {kBoth, "86 02", R"({"CutCount":1,"Cuts":[{"Type":2,"Value":2}]})"},
    {kBoth, "87 03", R"({"CutCount":1,"Cuts":[{"Type":3,"Value":3}]})"},
    {kBoth, "88 04", R"({"CutCount":1,"Cuts":[{"Type":4,"Value":4}]})"},
    {kBoth, "89 01fe0304", R"({"Layer1":[1,254,3,4],"Layer1On":-1})"},
    {kBoth, "8a 05060708", R"({"Layer2":[5,6,7,8],"Layer2On":-1})"},
    {kBoth, "8b 09", R"({"UVRotate":9,"UVRotateOn":-1})"},
    {kBoth, "90 1f", R"({"Mips":[{"Low":16,"High":1}]})"},
    {kTr4Alone, "8c ff", R"({"Legend":255,"LegendOn":-1})"},
    {kTr4Alone, "8d 0100feff0380 040506",
     R"({"LensFlarePos":[1,-2,-32765],"LensFlareColour":[4,5,6],"LensFlareOn":-1})"},
    {kTr4Alone, "8e 25 00080080", R"({"MirrorRoom":37,"MirrorValue":-2147481600,"MirrorOn":-1})"},
    {kTr4Alone, "8f 010203", R"({"Fog":[1,2,3],"FogOn":-1})"},
    {kTr4Alone, "91 01000000 feffffff 03000000 04000000 05000000 00000080 07",
     R"({"Camera":[1,-2,3,4,5,-2147483648],"CameraRoom":7})"},
    {kTr4Alone, "92 06", R"({"ResetHub":6})"},
    {kTr5Alone, "d9 0080", R"({"Tr5ListACount":1,"Tr5ListA":[-32768]})"},
    {kTr5Alone, "da ff7f", R"({"Tr5ListBCount":1,"Tr5ListB":[32767]})"},
    {kTr4Alone, "af 0100 020003000400050006000700",
     R"({"ExamineCount":1,"Examines":[{"Params":[2,3,4,5,6,7],"Id":1,"StringId":1}]})"},
    {kTr5Alone, "c2 feff 020003000400050006000700",
     R"({"PuzzleComboCount":1,
        "PuzzleCombos":[{"Params":[2,3,4,5,6,7],"Id":1,"StringId":-2,"Combo":2}]})"}};

Json Listed(const LevelRecord& level) {
  TRScript.Levels.Redim(1);
  TRScript.NumLevels = 1;
  TRScript.Levels[0] = level;
  return ListScript()["Levels"][0];
}

TEST_F(CoreTableTest, EachElementFeedsItsFieldsAndNoOther) {
  const Json closing = Json::parse(R"({"NameString":1,"LevelFlags":-2,"FileNameIndex":3,
                                       "AudioTrack":4})");
  for (const std::uint8_t game : {kTr4, kTr5}) {
    for (const Element& element : kElements) {
      if (element.games == (game == kTr4 ? kTr5Alone : kTr4Alone)) continue;
      SCOPED_TRACE(testing::Message() << "game " << int{game} << " " << element.bytes);
      const ParsedStream parsed = Parse(game, Hex(element.bytes) + Hex("81 01 feff 03 04 83"));
      Json expected = Listed({});
      expected.update(closing);
      expected.update(Json::parse(element.fields));
      EXPECT_EQ(Listed(parsed.level), expected);
    }
    Json title = Listed({});
    title.update(closing);
    title["NameString"] = 0;
    EXPECT_EQ(Listed(Parse(game, Hex("82 feff 03 04 83")).level), title);
  }
}

/// A group with the opcodes that a builder gives its entries.
struct Group {
  std::uint8_t game;
  int first, highestId;
  void (*add)(LevelRecord& level, int id, int combo);
  bool combos = false;
};
template <auto kCount, auto kEntries>
void Add(LevelRecord& level, int id, int combo) {
  level.*kCount = 1;
  auto& entry = (level.*kEntries)[0];
  entry.Id = id;
  entry.StringId = 0x1234;
  if constexpr (requires { entry.Combo; }) entry.Combo = combo;
}
using L = LevelRecord;
const Group kGroups[] = {{kTr4, 0x93, 12, Add<&L::KeyCount, &L::Keys>},
                         {kTr4, 0x9f, 12, Add<&L::PuzzleCount, &L::Puzzles>},
                         {kTr4, 0xab, 4, Add<&L::PickupCount, &L::Pickups>},
                         {kTr4, 0xaf, 3, Add<&L::ExamineCount, &L::Examines>},
                         {kTr4, 0xb2, 8, Add<&L::KeyComboCount, &L::KeyCombos>, true},
                         {kTr4, 0xc2, 8, Add<&L::PuzzleComboCount, &L::PuzzleCombos>, true},
                         {kTr4, 0xd2, 4, Add<&L::PickupComboCount, &L::PickupCombos>, true},
                         {kTr5, 0x92, 8, Add<&L::KeyCount, &L::Keys>},
                         {kTr5, 0x9e, 8, Add<&L::PuzzleCount, &L::Puzzles>},
                         {kTr5, 0xaa, 4, Add<&L::PickupCount, &L::Pickups>},
                         {kTr5, 0xc1, 4, Add<&L::PuzzleComboCount, &L::PuzzleCombos>, true}};

TEST_F(CoreTableTest, EachNumberOfAnEntryGetsItsOpcodeOrNone) {
  const std::string operands = Hex("3412") + Zeros(12);
  for (const Group& group : kGroups) {
    for (int id = 0; id < 20; ++id) {
      for (int combo = 0; combo < (group.combos ? 5 : 1); ++combo) {
        LevelRecord level;
        group.add(level, id, combo);
        std::string expected = operands;
        if (id >= 1 && id <= group.highestId && (!group.combos || combo == 1 || combo == 2)) {
          const int place = group.combos ? 2 * (id - 1) + combo - 1 : id - 1;
          expected.insert(expected.begin(), static_cast<char>(group.first + place));
        }
        EXPECT_EQ(Build(group.game, level), expected + (group.game == kTr4 ? kCamera : "") + kClose)
            << int{group.game} << " " << group.first << ": " << id << "/" << combo;
      }
    }
  }
}

TEST_F(CoreTableTest, AValueIsWrittenByItselfAndAnElementByItsWord) {
  for (const std::uint8_t game : {kTr4, kTr5}) {
    const std::string end = (game == kTr4 ? kCamera : "") + kClose;
    LevelRecord level;
    for (Int16 L::*word :
         {&L::Layer1On, &L::Layer2On, &L::LegendOn, &L::LensFlareOn, &L::FogOn, &L::MirrorOn}) {
      level.*word = -2;
    }
    level.UVRotateOn = kOn;
    EXPECT_EQ(Build(game, level), end) << "nothing is on, and no value is above 0";
    level.Fmv = level.UVRotate = level.Cut = level.ResetHub = 1;
    EXPECT_EQ(Build(game, level), Hex("80 01 8b 01 84 01") + (game == kTr4 ? kCamera : "") +
                                      (game == kTr4 ? Hex("92 01") : "") + kClose);
  }
}

/// All that a load leaves of a script, but for the operands of its levels.
std::string LoadedParts(const std::string& path, std::uint8_t game) {
  Files.CloseAll();
  TRScript = {};
  std::string parts = Outcome([&] { return Load(path, game); });
  const auto add = [&parts](std::int64_t number) { parts += " " + std::to_string(number); };
  for (const Byte number : {TRScript.NumLevels, TRScript.NumFileNames}) add(number);
  for (const std::string& name : TRScript.FileNames) parts += name;
  for (const Int16 offset : TRScript.LevelOffsets) add(offset);
  for (const LevelRecord& level : TRScript.Levels) add(level.AudioTrack);
  for (const LevelRawEntry& raw : TRScript.LevelRaw) add(raw.Length);
  for (const std::string& name : TRScript.LanguageNames) parts += name;
  return parts;
}

TEST_F(CoreTableTest, ACutScriptLoadsAsIfZerosFollowed) {
  for (const std::uint8_t game : {kTr4, kTr5}) {
    const std::string whole = Bytes(CopySample(game == kTr4 ? "tr4" : "tr5"));
    const std::size_t tables = 56U + 2U * static_cast<unsigned char>(whole[9]) +
                               2U * static_cast<unsigned char>(whole[10]) +
                               static_cast<unsigned char>(whole[12]);
    for (std::size_t size = 0; size <= tables; ++size) {
      MakeFile(Path("cut"), whole.substr(0, size));
      MakeFile(Path("filled"), whole.substr(0, size) + Zeros(100'000));
      EXPECT_EQ(LoadedParts(Path("cut"), game), LoadedParts(Path("filled"), game)) << size;
    }
  }
}

TEST_F(CoreTableTest, TheFirstOffsetsOfASavedScriptAreZero) {
  std::string bytes = ScriptBytes({kClose, kClose});
  bytes.replace(56 + 2 + 3, 2, Word(3));
  MakeFile(Path("one"), bytes);
  ASSERT_TRUE(Load(Path("one"), kTr5));
  ASSERT_EQ(TRScript.LevelOffsets[0], 3);
  TRScript.FileNameOffsets[0] = 9;
  ASSERT_EQ(Outcome([&] { return SaveScript(Path("one")); }), "true");
  EXPECT_EQ(Bytes(Path("one")), ScriptBytes({Hex("82 0000 00 00 83"), kClose}));
}

TEST_F(CoreTableTest, ANameOf32768BytesLoads) {
  std::string bytes = ScriptBytes({});
  bytes[10] = 2;
  MakeFile(Path("one"), bytes.substr(0, 56) + Word(-32766) + Word(2) + "AB");
  EXPECT_EQ(Outcome([&] { return Load(Path("one"), kTr5); }), "true");
  EXPECT_EQ(TRScript.FileNames[0].size(), 32768U);
  MakeFile(Path("one"), bytes.substr(0, 56) + Word(-32767) + Word(2) + "AB");
  Files.CloseAll();
  EXPECT_EQ(Outcome([&] { return Load(Path("one"), kTr5); }), "overflow fault");
}

}  // namespace
}  // namespace quillmark
