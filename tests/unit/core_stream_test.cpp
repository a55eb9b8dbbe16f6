// The level streams of both games, against bytes and fields that were worked out by hand.

#include <nlohmann/json.hpp>
#include <optional>
#include <tuple>

#include "core/object_groups.h"
#include "tools/listing.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

using CoreStreamTest = CoreTest;

/// Operands of an object: its string and six parameters.
const std::string kObject = Hex("3412 0100 ffff 0080 ff7f 0000 0600");

std::string Opcode(int opcode) { return std::string(1, static_cast<char>(opcode)); }

/// Whether the opcode is read and never written.
bool IsOnlyRead(std::uint8_t game, int opcode) {
  return game == kTr5 && opcode >= 0xc9 && opcode <= 0xd0;
}

/// The opcodes of one list of a level and its places. Combinations have two opcodes a number.
struct List {
  std::uint8_t game;
  int first, last;
  bool combos;
  int places;
  Byte LevelRecord::*count;
  std::optional<ObjectKind> kind = {};
};
using Level = LevelRecord;
using enum ObjectKind;
const List kLists[] = {{kTr4, 0x93, 0x9e, false, 13, &Level::KeyCount, Key},
                       {kTr4, 0x9f, 0xaa, false, 13, &Level::PuzzleCount, Puzzle},
                       {kTr4, 0xab, 0xae, false, 13, &Level::PickupCount, Pickup},
                       {kTr4, 0xaf, 0xb1, false, 4, &Level::ExamineCount, Examine},
                       {kTr4, 0xb2, 0xc1, true, 13, &Level::KeyComboCount, KeyCombo},
                       {kTr4, 0xc2, 0xd1, true, 13, &Level::PuzzleComboCount, PuzzleCombo},
                       {kTr4, 0xd2, 0xd9, true, 13, &Level::PickupComboCount, PickupCombo},
                       {kTr5, 0x92, 0x99, false, 13, &Level::KeyCount, Key},
                       {kTr5, 0x9e, 0xa5, false, 13, &Level::PuzzleCount, Puzzle},
                       {kTr5, 0xaa, 0xad, false, 13, &Level::PickupCount, Pickup},
                       {kTr5, 0xc1, 0xd0, true, 13, &Level::PuzzleComboCount, PuzzleCombo},
                       {kTr4, 0x85, 0x88, false, 100, &Level::CutCount},
                       {kTr5, 0xd9, 0xd9, false, 33, &Level::Tr5ListACount},
                       {kTr5, 0xda, 0xda, false, 33, &Level::Tr5ListBCount}};

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

TEST_F(CoreStreamTest, EachElementFeedsItsFieldsAndNoOther) {
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

TEST_F(CoreStreamTest, EveryByteTakesItsOperandsAndComesBackAsItself) {
  for (const std::uint8_t game : {kTr4, kTr5}) {
    for (int opcode = 0; opcode < 256; ++opcode) {
      if (opcode == 0x81 || opcode == 0x82) continue;
      SCOPED_TRACE(testing::Message() << "game " << int{game} << " opcode " << opcode);
      const int length = ElementLength(game, opcode);
      const std::string element = Opcode(opcode) + Repeated("\x01", length - 1);
      const ParsedStream parsed = Parse(game, element + kClose);
      EXPECT_EQ(parsed.opcodes.Length, 1);
      EXPECT_EQ(parsed.opcodes.Bytes[0], opcode);
      EXPECT_EQ(parsed.position, element.size() + kClose.size());

      std::string written = length == 1 || opcode == 0x90 ? "" : element;
      if (IsOnlyRead(game, opcode)) written.erase(0, 1);
      if (game == kTr4 && opcode != 0x91 && opcode != 0x92) written += kCamera;
      if (game == kTr4 && opcode == 0x92) written = kCamera + element;
      EXPECT_EQ(Build(game, parsed.level), written + kClose);
    }
  }
}

/// A level with the object of those operands.
LevelRecord WithObject(ObjectKind kind, int id, int combo) {
  LevelRecord level;
  level.ObjectCount = 1;
  LevelObject& object = level.Objects[0];
  object.Kind = static_cast<int>(kind);
  object.Id = id;
  object.Combo = combo;
  object.StringId = 0x1234;
  const int params[] = {1, -1, -32768, 32767, 0, 6};
  std::copy(std::begin(params), std::end(params), object.Params.begin());
  RebuildGroups(level);
  return level;
}

TEST_F(CoreStreamTest, EachNumberOfAnObjectHasItsOpcodeOrNone) {
  for (const List& list : kLists) {
    const std::string end = (list.game == kTr4 ? kCamera : "") + kClose;
    for (int id = 0; list.kind && id < 20; ++id) {
      for (int combo = 0; combo < (list.combos ? 5 : 1); ++combo) {
        SCOPED_TRACE(testing::Message() << list.first << ": " << id << "/" << combo);
        const LevelRecord level = WithObject(*list.kind, id, combo);
        const int opcode = list.first + (list.combos ? 2 * (id - 1) + combo - 1 : id - 1);
        const bool exists =
            id > 0 && opcode <= list.last && (!list.combos || combo == 1 || combo == 2);
        const bool written = exists && !IsOnlyRead(list.game, opcode);
        EXPECT_EQ(Build(list.game, level), (written ? Opcode(opcode) : "") + kObject + end);
        if (!exists) continue;
        LevelRecord read = Parse(list.game, Opcode(opcode) + kObject + kClose).level;
        read.ObjectCount = 9;
        FlattenGroups(read);
        EXPECT_EQ(Listed(read)["Objects"], Listed(level)["Objects"]);
      }
    }
  }
  for (const ObjectKind kind : {Examine, KeyCombo, PickupCombo}) {
    EXPECT_EQ(Build(kTr5, WithObject(kind, 1, 1)), kClose) << "the game has no such list";
  }
  for (const int type : {0, 5}) {
    LevelRecord level;
    level.CutCount = 1;
    level.Cuts[0].Type = type;
    EXPECT_EQ(Build(kTr5, level), Zeros(1) + kClose) << "a cut of type " << type;
  }
}

TEST_F(CoreStreamTest, FaultsWhereAListIsFullWithNothingStored) {
  for (const List& list : kLists) {
    SCOPED_TRACE(list.first);
    const int length = ElementLength(list.game, list.first);
    const std::string element = Opcode(list.first) + Zeros(static_cast<std::size_t>(length - 1));
    const std::string full = Repeated(element, list.places);
    EXPECT_EQ(Parse(list.game, full + kClose).level.*list.count, list.places);
    const ParsedStream parsed = Parse(list.game, full + element + kClose);
    EXPECT_EQ(parsed.outcome, "subscript fault");
    EXPECT_EQ(parsed.level.*list.count, list.places);
    EXPECT_EQ(parsed.position, full.size() + 1) << "no operand is read";
  }
}

TEST_F(CoreStreamTest, ReadsMipsByTheirHexadecimalText) {
  using Case = std::tuple<const char*, int, int>;
  for (const auto& [operand, low, high] : std::initializer_list<Case>{
           {"00", 1, 0}, {"05", 6, 5}, {"0c", 13, 0}, {"1f", 16, 1}, {"b7", 8, 0}, {"99", 10, 9}}) {
    const LevelRecord level = Parse(kTr4, Hex("90 77 90") + Hex(operand) + kClose).level;
    EXPECT_EQ(level.Mips[0].Low, low) << operand;
    EXPECT_EQ(level.Mips[0].High, high) << operand;
    EXPECT_EQ(level.MipCount, 0);
  }
}

TEST_F(CoreStreamTest, EndsOnlyWithAClosingPair) {
  ParsedStream parsed = Parse(kTr4, Hex("81 05 4400 02 6e 00"));
  EXPECT_EQ(parsed.outcome, "missing end");
  EXPECT_EQ(parsed.level.AudioTrack, 0x6e) << "the operands are in the record by then";
  EXPECT_EQ(Parse(kTr5, Hex("82 0100 00 07")).outcome, "missing end") << "a zero behind the end";

  parsed = Parse(kTr4, Hex("83 82 44c0 02 6e 83 84 01"));
  EXPECT_EQ(parsed.level.LevelFlags, -16316);
  EXPECT_EQ(parsed.level.NameString, 0);
  EXPECT_EQ(parsed.level.Cut, 0) << "what stands behind the pair is not read";
  EXPECT_EQ(parsed.opcodes.Length, 1);
  EXPECT_EQ(parsed.position, 7U);

  parsed = Parse(kTr4, Hex("01 02 03 04 05"));
  EXPECT_EQ(parsed.opcodes.Length, 4) << "as many elements as the length tells";
  EXPECT_EQ(parsed.position, 4U);
}

TEST_F(CoreStreamTest, RecordsUpTo1025Elements) {
  const std::string fmv = Hex("80 09");
  EXPECT_EQ(Parse(kTr5, Repeated(fmv, 1024) + Hex("80 07") + kClose).opcodes.Length, 1025);
  const ParsedStream parsed = Parse(kTr5, Repeated(fmv, 1025) + Hex("80 07") + kClose);
  EXPECT_EQ(parsed.outcome, "subscript fault");
  EXPECT_EQ(parsed.opcodes.Length, 1026) << "raised one element too early";
  EXPECT_EQ(parsed.level.Fmv, 7) << "the operand is in the record";
}

TEST_F(CoreStreamTest, BuildsElementsInTheirOrderAndByTheirConditions) {
  const auto objects = [](std::string_view opcodes) {
    std::string stream;
    for (const char opcode : opcodes) stream += opcode + kObject;
    return stream;
  };
  LevelRecord level =
      Parse(kTr4, Hex("92 01 8e 02 00080000 8f 01 02 03 8d 0100 0200 0300 04 05 06 88 04 85 01 84"
                      "03 8c 09 8a 05 06 07 08 89 01 02 03 04 8b 00 8b 05 80 81") +
                      objects("\xd3\xc2\xb2\xb1\xae\xaa\x94\x93") + kClose)
          .level;
  level.UVRotateOn = 0;
  const std::string ordered = Hex("80 81 8b 05 89 01 02 03 04 8a 05 06 07 08");
  EXPECT_EQ(
      Build(kTr4, level),
      objects("\x94\x93\xaa\xae\xb1\xb2\xc2\xd3") + ordered +
          Hex("8c 09 84 03 88 04 85 01 8d 0100 0200 0300 04 05 06 8f 01 02 03 8e 02 00080000") +
          kCamera + Hex("92 01") + kClose);
  level = Parse(kTr5, Hex("da 0200 d9 0100 88 04 85 01 84 03 8a 05 06 07 08 89 01 02 03 04 8b 05"
                          "80 81") +
                          objects("\xc1\xaa\x9e\x93\x92") + kClose)
              .level;
  EXPECT_EQ(Build(kTr5, level), objects("\x93\x92\x9e\xaa\xc1") + ordered +
                                    Hex("84 03 88 04 85 01 d9 0100 da 0200") + kClose);
  for (const int off : {-2, 1}) {
    level = {};
    level.UVRotateOn = kOn;
    for (Int16 Level::*word : {&Level::Layer1On, &Level::Layer2On, &Level::LegendOn,
                               &Level::LensFlareOn, &Level::FogOn, &Level::MirrorOn}) {
      level.*word = off;
    }
    EXPECT_EQ(Build(kTr4, level), kCamera + kClose) << "not -1 is off, and a value of 0 is none";
    EXPECT_EQ(Build(kTr5, level), kClose);
  }
}

TEST_F(CoreStreamTest, ClosesTheTitleInItsOwnWay) {
  for (const std::uint8_t game : {kTr4, kTr5}) {
    const std::string close = Hex("81 05 4400 02 6e 83");
    const std::string camera = game == kTr4 ? kCamera : "";
    const LevelRecord level = Parse(game, close).level;
    EXPECT_EQ(Build(game, level), camera + close);
    EXPECT_EQ(Build(game, level, true),
              camera + Hex(game == kTr4 ? "82 0000 00 6e 83" : "82 4400 00 6e 83"));
  }
}

}  // namespace
}  // namespace quillmark
