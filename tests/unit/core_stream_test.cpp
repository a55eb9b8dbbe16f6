// The level streams of both games, against bytes that were worked out by hand.

#include <optional>
#include <tuple>

#include "core/object_groups.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

/// Operands of an object: its string and six parameters.
const std::string kObject = Hex("3412 0100 ffff 0080 ff7f 0000 0600");

std::string Opcode(int opcode) { return std::string(1, static_cast<char>(opcode)); }

/// The bytes of the whole element that begins with `opcode`; 1 for what is no opcode of the game.
int ElementLength(std::uint8_t game, int opcode) {
  struct Range {
    int first, last, tr4, tr5;
  };
  static constexpr Range ranges[] = {
      {0x80, 0x80, 2, 2},  {0x84, 0x88, 2, 2},   {0x89, 0x8a, 5, 5},  {0x8b, 0x8b, 2, 2},
      {0x8c, 0x8c, 2, 1},  {0x8d, 0x8d, 10, 1},  {0x8e, 0x8e, 6, 1},  {0x8f, 0x8f, 4, 1},
      {0x90, 0x90, 2, 2},  {0x91, 0x91, 26, 1},  {0x92, 0x92, 2, 15}, {0x93, 0x99, 15, 15},
      {0x9a, 0x9d, 15, 1}, {0x9e, 0xa5, 15, 15}, {0xa6, 0xa9, 15, 1}, {0xaa, 0xad, 15, 15},
      {0xae, 0xc0, 15, 1}, {0xc1, 0xd0, 15, 15}, {0xd1, 0xd8, 15, 1}, {0xd9, 0xd9, 15, 3},
      {0xda, 0xda, 1, 3}};
  for (const Range& range : ranges) {
    if (opcode >= range.first && opcode <= range.last) return game == kTr4 ? range.tr4 : range.tr5;
  }
  return 1;
}

/// The opcodes of one list of a level, the number that the last one stands for, and the list's
/// places. The opcodes of combinations come in pairs.
struct List {
  std::uint8_t game;
  int first, last;
  int highestId, combos, places;
  Byte LevelRecord::*count;
  std::optional<ObjectKind> kind = {};
};
using Level = LevelRecord;
using enum ObjectKind;
const List kLists[] = {{kTr4, 0x93, 0x9e, 12, 0, 13, &Level::KeyCount, Key},
                       {kTr4, 0x9f, 0xaa, 12, 0, 13, &Level::PuzzleCount, Puzzle},
                       {kTr4, 0xab, 0xae, 4, 0, 13, &Level::PickupCount, Pickup},
                       {kTr4, 0xaf, 0xb1, 3, 0, 4, &Level::ExamineCount, Examine},
                       {kTr4, 0xb2, 0xc1, 8, 2, 13, &Level::KeyComboCount, KeyCombo},
                       {kTr4, 0xc2, 0xd1, 8, 2, 13, &Level::PuzzleComboCount, PuzzleCombo},
                       {kTr4, 0xd2, 0xd9, 4, 2, 13, &Level::PickupComboCount, PickupCombo},
                       {kTr5, 0x92, 0x99, 8, 0, 13, &Level::KeyCount, Key},
                       {kTr5, 0x9e, 0xa5, 8, 0, 13, &Level::PuzzleCount, Puzzle},
                       {kTr5, 0xaa, 0xad, 4, 0, 13, &Level::PickupCount, Pickup},
                       {kTr5, 0xc1, 0xd0, 8, 2, 13, &Level::PuzzleComboCount, PuzzleCombo},
                       {kTr4, 0x85, 0x88, 0, 0, 100, &Level::CutCount},
                       {kTr5, 0xd9, 0xd9, 0, 0, 33, &Level::Tr5ListACount},
                       {kTr5, 0xda, 0xda, 0, 0, 33, &Level::Tr5ListBCount}};

TEST(CoreStreamTest, EveryByteTakesItsOperandsAndComesBackAsItself) {
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
      if (game == kTr5 && opcode >= 0xc9 && opcode <= 0xd0) written.erase(0, 1);
      if (game == kTr4 && opcode != 0x91 && opcode != 0x92) written += kCamera;
      if (game == kTr4 && opcode == 0x92) written = kCamera + element;
      EXPECT_EQ(Build(game, parsed.level), written + kClose);
    }
  }
}

TEST(CoreStreamTest, NamesObjectsByTheirOpcode) {
  for (const List& list : kLists) {
    if (!list.kind) continue;
    const auto expect = [&](int opcode, int id, int combo) {
      SCOPED_TRACE(testing::Message() << "game " << int{list.game} << " opcode " << opcode);
      LevelRecord level = Parse(list.game, Opcode(opcode) + kObject + kClose).level;
      FlattenGroups(level);
      const LevelObject& object = level.Objects[0];
      EXPECT_EQ(level.ObjectCount, 1);
      EXPECT_EQ(object.Kind, static_cast<int>(*list.kind));
      EXPECT_EQ(object.Id, id);
      EXPECT_EQ(object.Combo, combo);
      EXPECT_EQ(object.StringId, 0x1234);
      const int params[] = {1, -1, -32768, 32767, 0, 6};
      EXPECT_TRUE(std::equal(object.Params.begin(), object.Params.end(), params));
    };
    expect(list.first, 1, list.combos / 2);
    expect(list.first + 1, list.combos == 0 ? 2 : 1, list.combos);
    expect(list.last, list.highestId, list.combos);
  }
}

TEST(CoreStreamTest, FaultsWhereAListIsFullWithNothingStored) {
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

TEST(CoreStreamTest, ReadsMipsByTheirHexadecimalText) {
  using Case = std::tuple<const char*, int, int>;
  for (const auto& [operand, low, high] : std::initializer_list<Case>{
           {"00", 1, 0}, {"05", 6, 5}, {"0c", 13, 0}, {"1f", 16, 1}, {"b7", 8, 0}, {"99", 10, 9}}) {
    const LevelRecord level = Parse(kTr4, Hex("90 77 90") + Hex(operand) + kClose).level;
    EXPECT_EQ(level.Mips[0].Low, low) << operand;
    EXPECT_EQ(level.Mips[0].High, high) << operand;
    EXPECT_EQ(level.MipCount, 0);
  }
}

TEST(CoreStreamTest, EndsOnlyWithAClosingPair) {
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

TEST(CoreStreamTest, RecordsUpTo1025Elements) {
  const std::string fmv = Hex("80 09");
  EXPECT_EQ(Parse(kTr5, Repeated(fmv, 1024) + Hex("80 07") + kClose).opcodes.Length, 1025);
  const ParsedStream parsed = Parse(kTr5, Repeated(fmv, 1025) + Hex("80 07") + kClose);
  EXPECT_EQ(parsed.outcome, "subscript fault");
  EXPECT_EQ(parsed.opcodes.Length, 1026) << "raised one element too early";
  EXPECT_EQ(parsed.level.Fmv, 7) << "the operand is in the record";
}

TEST(CoreStreamTest, BuildsElementsInTheirOrderAndByTheirConditions) {
  const auto objects = [](std::string_view opcodes) {
    std::string stream;
    for (const char opcode : opcodes) stream += opcode + kObject;
    return stream;
  };
  LevelRecord level =
      Parse(kTr4, Hex("92 01 8e 02 00080000 8f 01 02 03 8d 0100 0200 0300 04 05 06 88 04 85 01 84"
                      "00 8c 09 8a 05 06 07 08 89 01 02 03 04 8b 00 8b 05 80 81") +
                      objects("\xd3\xc2\xb2\xb1\xae\xaa\x94\x93") + kClose)
          .level;
  level.UVRotateOn = 0;
  const std::string ordered = objects("\x94\x93\xaa\xae\xb1\xb2\xc2\xd3") +
                              Hex("80 81 8b 05 89 01 02 03 04 8a 05 06 07 08 8c 09 88 04 85 01"
                                  "8d 0100 0200 0300 04 05 06 8f 01 02 03 8e 02 00080000") +
                              kCamera + Hex("92 01") + kClose;
  EXPECT_EQ(Build(kTr4, level), ordered);

  for (Int16 Level::*word : {&Level::Layer1On, &Level::Layer2On, &Level::LegendOn,
                             &Level::LensFlareOn, &Level::FogOn, &Level::MirrorOn}) {
    level.*word = 1;  // not -1: off
  }
  EXPECT_EQ(Build(kTr4, level).find(Hex("80 81 8b 05 88 04 85 01 91")), 8 * 15);
}

TEST(CoreStreamTest, ClosesTheTitleInItsOwnWay) {
  for (const std::uint8_t game : {kTr4, kTr5}) {
    const std::string close = Hex("81 05 4400 02 6e 83");
    const std::string camera = game == kTr4 ? kCamera : "";
    const LevelRecord level = Parse(game, close).level;
    EXPECT_EQ(Build(game, level), camera + close);
    EXPECT_EQ(Build(game, level, true),
              camera + Hex(game == kTr4 ? "82 0000 00 6e 83" : "82 4400 00 6e 83"));
  }
}

TEST(CoreStreamTest, WritesEntriesWithoutAnOpcodeAsBareOperands) {
  LevelRecord level =
      Parse(kTr5, "\x92" + kObject + "\xc1" + kObject + Hex("85 07") + kClose).level;
  level.KeyCombos[0].Id = 1;
  level.KeyComboCount = 1;
  using Case = std::tuple<int, int, int, int, std::string>;
  for (const auto& [key, combo, comboNumber, cut, stream] : std::initializer_list<Case>{
           {8, 4, 2, 4, "\x99" + kObject + "\xc8" + kObject + Hex("88 07") + kClose},
           {9, 5, 1, 5, kObject + kObject + Hex("07") + kClose},
           {0, 1, 3, 0, kObject + kObject + Hex("07") + kClose}}) {
    level.Keys[0].Id = key;
    level.PuzzleCombos[0].Id = combo;
    level.PuzzleCombos[0].Combo = comboNumber;
    level.Cuts[0].Type = cut;
    EXPECT_EQ(Build(kTr5, level), stream) << key;
  }
}

}  // namespace
}  // namespace quillmark
