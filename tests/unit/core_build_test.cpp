// The way of built streams through the temporary file and into the model.

#include <filesystem>

#include "core/script_dat.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

/// A model of two levels of TR5.
class CoreBuildTest : public CoreTest {
 protected:
  CoreBuildTest() { TRScript.Levels.Redim(2); }

  /// What the model holds of the stream of level 1.
  static std::string RawBytes() {
    std::string bytes;
    const LevelRawEntry& raw = TRScript.LevelRaw[1];
    for (const Byte byte : raw.Bytes.First(raw.Length)) bytes += static_cast<char>(byte.value());
    return bytes;
  }

  static std::string Building(int level) {
    return OutcomeOf([level] { BuildLevel(level); });
  }
};

TEST_F(CoreBuildTest, TakesTheStreamIntoTheModel) {
  MakeFile(Path("scriptdata.tmp"), "an older one, which is longer");
  std::filesystem::create_hard_link(Path("scriptdata.tmp"), Path("older"));
  TRScript.LevelOffsets[1] = 32;
  TRScript.Levels[1].Cut = 3;
  for (const std::uint8_t game : {kTr5, kTr4}) {
    TRScript.ScriptKind = game;
    BuildLevel(1);
    const std::string expected = Hex("84 03") + (game == kTr4 ? kCamera : "") + kClose;
    EXPECT_EQ(Bytes(Path("scriptdata.tmp")), expected);
    EXPECT_EQ(RawBytes(), expected);
    EXPECT_EQ(TRScript.LevelOffsets[2], game == kTr4 ? 67 : 41);
    EXPECT_FALSE(Files.IsOpen(3));
  }
  BuildLevel(0);
  EXPECT_EQ(Bytes(Path("scriptdata.tmp")), kCamera + Hex("82 0000 00 00 83")) << "the title";
  EXPECT_EQ(Bytes(Path("older")).size(), 29U) << "it is deleted, not written over";
}

TEST_F(CoreBuildTest, BuildsUpTo1025Bytes) {
  // 52 objects have 780 bytes, the closing element has 7.
  std::string objects;
  for (const char* opcode : {"92", "9e", "aa", "c1"}) {
    objects += Repeated(Hex(opcode) + Zeros(14), 13);
  }
  const auto filled = [&](int cuts, int words) {
    return Parse(kTr5,
                 objects + Repeated(Hex("85 00"), cuts) + Repeated(Hex("d9 0000"), words) + kClose)
        .level;
  };
  TRScript.Levels[1] = filled(80, 26);
  BuildLevel(1);
  EXPECT_EQ(RawBytes().size(), 1025U);
  EXPECT_FALSE(Files.IsOpen(3));

  TRScript.LevelRaw[1] = {};
  TRScript.LevelRaw[1].Length = 9;
  TRScript.Levels[1] = filled(79, 27);
  TRScript.Levels[1].AudioTrack = 5;
  EXPECT_EQ(Building(1), "subscript fault");
  EXPECT_EQ(TRScript.LevelRaw[1].Length, 9);
  EXPECT_EQ(TRScript.LevelRaw[1].Bytes[1024], 5) << "all that have a place are taken";
  EXPECT_EQ(TRScript.LevelOffsets[2], 1026);
  EXPECT_EQ(Bytes(Path("scriptdata.tmp")).size(), 1026U);
  EXPECT_TRUE(Files.IsOpen(3));
}

TEST_F(CoreBuildTest, LeavesTheTemporaryFileAsFarAsItGot) {
  MakeFile(Path("scriptdata.tmp"), "old");
  TRScript.Levels.Redim(256);
  EXPECT_EQ(Building(-1), "subscript fault");
  EXPECT_EQ(Bytes(Path("scriptdata.tmp")), "");
  EXPECT_TRUE(Files.IsOpen(3));
  EXPECT_EQ(Building(1), "file fault") << "number 3 is taken";
  Files.CloseFiles();

  EXPECT_EQ(Building(255), "subscript fault");
  EXPECT_EQ(Bytes(Path("scriptdata.tmp")), kClose);
  EXPECT_FALSE(Files.IsOpen(3));

  TRScript.LevelOffsets[1] = 32760;
  BuildLevel(1);
  EXPECT_EQ(TRScript.LevelOffsets[2], 32767);
  TRScript.LevelOffsets[1] = 32761;
  EXPECT_EQ(Building(1), "overflow fault");
  EXPECT_FALSE(Files.IsOpen(3));
}

TEST_F(CoreBuildTest, KeepsTheTailOfATemporaryFileInOtherLetterCase) {
  MakeFile(Path("SCRIPTDATA.TMP"), Zeros(9) + "z");
  TRScript.Levels[1].Cut = 3;
  BuildLevel(1);
  EXPECT_EQ(RawBytes(), Hex("84 03") + kClose + "z");

  MakeFile(Path("one"), "");
  TRScript.NumLevels = 2;
  TRScript.Levels[0].Cut = 4;
  TRScript.Levels[1].Cut = 0;
  ASSERT_TRUE(SaveScript(Path("one")));
  EXPECT_EQ(RawBytes(), kClose + Hex("83 83 7a")) << "behind it the longer streams before it";
  EXPECT_EQ(TRScript.LevelOffsets[2], 20);
  EXPECT_EQ(Bytes(Path("SCRIPTDATA.TMP")), RawBytes());
  EXPECT_FALSE(IsNamed(Path("scriptdata.tmp")));
}

}  // namespace
}  // namespace quillmark
