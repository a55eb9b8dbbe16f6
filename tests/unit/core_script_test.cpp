// Loading and saving whole scripts: the head, the offsets, what gets lost, what troubles leave
// behind.

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <tuple>

#include "core/script_copy.h"
#include "core/script_dat.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "tools/json_text.h"
#include "tools/listing.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using CoreScriptTest = CoreTest;

std::string Saving(const std::string& path) {
  return Outcome([&] { return SaveScript(path); });
}

std::string Loading(const std::string& path, std::uint8_t game) {
  return Outcome([&] { return LoadAdventure(path, game); });
}

TEST_F(CoreScriptTest, TellsWhatItReadsInTheOrderOfTheFile) {
  std::string order;
  LoadCallbacks callbacks;
  callbacks.chooseGame = [&] {
    order += "choose ";
    TRScript.ScriptKind = kTr4;
  };
  callbacks.headRead = [&] { order += "head "; };
  callbacks.fileNameRead = [&](const std::string& name) { order += name.substr(5, 1); };
  callbacks.languageNameRead = [&](const std::string& name) { order += name.substr(0, 1); };
  callbacks.languageFound = [&](std::string_view name, const std::string&) {
    order += (Files.IsOpen(1) ? " open " : " ") + std::string(name);
  };
  callbacks.loaded = [&] { order += " loaded"; };
  ASSERT_TRUE(LoadScript(CopySample("tr4"), callbacks));
  EXPECT_EQ(order, "choose head TBGRCSOKCLAEEFGISUJD ITALIAN.DAT ENGLISH.DAT GERMAN.DAT loaded");
  EXPECT_EQ(TRScript.FileNameOffsets[2], 0x17);
  EXPECT_EQ(TRScript.LevelOffsets[11], 0x5d8);
  EXPECT_EQ(TRScript.Levels.size(), 13U);
}

TEST_F(CoreScriptTest, EndsAmissWhereItsLevelsAreCutBehindTheirClosingElement) {
  for (const std::uint8_t game : {kTr4, kTr5}) {
    const std::string path = CopySample(game == kTr4 ? "tr4" : "tr5");
    const std::string whole = Bytes(path);
    const std::size_t names = whole.find("ENGLISH.DAT");
    ASSERT_TRUE(LoadAdventure(path, game));
    const std::size_t block = names - static_cast<std::size_t>(TRScript.ScriptDataSize.value());
    // A level ends amiss where its closing element has begun and the byte behind it is missing.
    std::set<std::size_t> amiss;
    for (int level = 0; level < TRScript.NumLevels; ++level) {
      const bool last = level + 1 == TRScript.NumLevels;
      const std::size_t end =
          last ? names : block + static_cast<std::size_t>(TRScript.LevelOffsets[level + 1].value());
      for (std::size_t left = 1; left < (level == 0 ? 6U : 7U); ++left) amiss.insert(end - left);
    }
    for (std::size_t size = block; size < whole.size(); ++size) {
      MakeFile(Path("cut"), whole.substr(0, size));
      TRScript.LanguageNames = {};
      for (LevelRawEntry& raw : TRScript.LevelRaw) raw.Length = 0;
      Files.CloseAll();
      const std::string outcome = Loading(Path("cut"), game);
      EXPECT_EQ(outcome, amiss.contains(size) ? "missing end" : "true") << size;
    }
  }
}

TEST_F(CoreScriptTest, RefusesAndFaultsByTheHeadAndTheOffsets) {
  const std::string good = ScriptBytes({kClose, kClose});
  const int names = 56;
  const int levels = names + 2 + 3;
  using Case = std::tuple<int, const char*, std::string>;
  for (const auto& [offset, patch, outcome] : std::initializer_list<Case>{
           {0, "00", "true"},
           {2, "0100", "false"},
           {names, "0080", "overflow fault"},       // 3 - -32768
           {names, "0380", "overflow fault"},       // 3 - -32765 is 32768
           {names, "0680", "true"},                 // 3 - -32762 - 1 is 32764: zeros
           {levels, "0780", "true"},                // 7 - 1 - -32761 is 32767
           {levels, "0080", "overflow fault"},      // 7 - 1 - -32768
           {levels + 2, "0080", "overflow fault"},  // -32768 - 1
           {levels + 2, "0180", "overflow fault"},  // -32767 - 1 is the last that fits
           {levels + 2, "0280", "overflow fault"},  // 14 - -32766
           {levels + 2, "ffff", "true"},            // -1 - 1: nothing is read
           {levels + 2, "0000", "true"}}) {
    std::string bytes = good;
    MakeFile(Path("one"),
             bytes.replace(static_cast<std::size_t>(offset), Hex(patch).size(), Hex(patch)));
    TRScript = {};
    TRScript.Levels.Redim(9);
    EXPECT_EQ(Loading(Path("one"), kTr5), outcome) << offset << " " << patch;
    EXPECT_LT(TRScript.Levels.size(), 4U) << "no level of an older script stays";
    EXPECT_EQ(Files.IsOpen(1), outcome != "true");
    EXPECT_EQ(TRScript.NumLevels, outcome == "false" ? 0 : 2);
  }
  EXPECT_EQ(Loading(Path(""), kTr5), "file fault") << "a folder";
}

/// All that a load leaves.
std::string Loaded(const std::string& path, std::uint8_t game) {
  Files.CloseAll();
  TRScript = {};
  return Loading(path, game) + JsonLine(ListScript());
}

TEST_F(CoreScriptTest, ACutScriptLoadsAsIfZerosFollowed) {
  for (const std::uint8_t game : {kTr4, kTr5}) {
    const std::string whole = Bytes(CopySample(game == kTr4 ? "tr4" : "tr5"));
    const std::size_t tables = 56U + 2U * static_cast<unsigned char>(whole[9]) +
                               2U * static_cast<unsigned char>(whole[10]) +
                               static_cast<unsigned char>(whole[12]);
    for (std::size_t size = 0; size <= tables; size += size < 56 ? 1 : 3) {
      MakeFile(Path("cut"), whole.substr(0, size));
      MakeFile(Path("filled"), whole.substr(0, size) + Zeros(100'000));
      EXPECT_EQ(Loaded(Path("cut"), game), Loaded(Path("filled"), game)) << size;
    }
  }
}

TEST_F(CoreScriptTest, ANameOf32768BytesLoads) {
  std::string bytes = ScriptBytes({});
  bytes[10] = 2;
  MakeFile(Path("one"), bytes.substr(0, 56) + Word(-32766) + Word(2) + "AB");
  EXPECT_EQ(Loading(Path("one"), kTr5), "true");
  EXPECT_EQ(TRScript.FileNames[0].size(), 32768U);
  MakeFile(Path("one"), bytes.substr(0, 56) + Word(-32767) + Word(2) + "AB");
  Files.CloseAll();
  EXPECT_EQ(Loading(Path("one"), kTr5), "overflow fault");
}

TEST_F(CoreScriptTest, StartsTheNextLevelWhereTheParserStopped) {
  // The first level's offset claims three bytes more than the parser takes.
  ASSERT_TRUE(LoadStreams(kTr5, {Hex("82 0000 00 07 83") + Hex("84 01 84"), Hex("02") + kClose}));
  EXPECT_EQ(TRScript.Levels[1].Cut, 2);
  EXPECT_EQ(TRScript.LevelRaw[1].Length, 2);
}

TEST_F(CoreScriptTest, KeepsWhatALoadBeforeHasLeft) {
  for (int load = 1; load <= 2; ++load) {
    ASSERT_TRUE(LoadStreams(kTr5, {kClose, Hex("80 01") + kClose}));
    EXPECT_EQ(TRScript.LanguageNames[3], Repeated(std::string("X\0", 2), load));
    EXPECT_EQ(TRScript.LevelRaw[1].Length, load);
  }
  EXPECT_EQ(Saving(Path("one")), "true");
  EXPECT_TRUE(Bytes(Path("one")).ends_with(Repeated(std::string("X\0", 2), 16)));
}

TEST_F(CoreScriptTest, EndsALanguageNameThatTheFileDoesNotEnd) {
  const std::string whole = ScriptBytes({kClose});
  MakeFile(Path("one"), whole.substr(0, whole.size() - 13));
  ASSERT_TRUE(LoadAdventure(Path("one"), kTr5));
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(TRScript.LanguageNames[i], std::string(i < 2 ? "X" : "") + Zeros(1));
  }
}

TEST_F(CoreScriptTest, LosesWhatNoSaveWrites) {
  // Reserved bytes, first offsets, the title's place, order, doubles, unknown bytes, mips, a tail.
  std::string bytes = ScriptBytes(
      {Hex("80 01 82 4400 05 07 83"), Hex("07 80 01 90 b7 89 01020304 80 02 82 4400 05 07 83")});
  bytes[11] = 'r';
  bytes.replace(31, 5, "four!");
  bytes.replace(51, 5, "eight");
  bytes.replace(56 + 2 + 3, 2, Word(3));
  bytes += "tail";
  MakeFile(Path("one"), bytes);
  ASSERT_TRUE(LoadAdventure(Path("one"), kTr5));
  EXPECT_EQ(TRScript.ExtReserved, "eight");
  EXPECT_EQ(TRScript.Levels[1].Mips[0].Low, 8);
  EXPECT_EQ(TRScript.LevelOffsets[0], 3);
  TRScript.ScriptFlagsHigh = TRScript.FileNameOffsets[0] = 7;
  ASSERT_EQ(Saving(Path("one")), "true");
  EXPECT_EQ(Bytes(Path("one")), ScriptBytes({Hex("80 01 82 4400 00 07 83"),
                                             Hex("80 02 89 01020304 81 00 4400 05 07 83")}));
}

TEST_F(CoreScriptTest, WritesAnOffsetEvenWithoutAFileName) {
  ASSERT_TRUE(LoadStreams(kTr5, {kClose}));
  TRScript.NumFileNames = 0;
  TRScript.PcLevelExt = "TR4";  // an extension without its dot and its filling
  ASSERT_EQ(Saving(Path("one")), "true");
  EXPECT_EQ(Bytes(Path("one")).substr(10, 54), Hex("00 00 0000 0600") + Zeros(20) + "TR4" +
                                                   Zeros(17) + Word(0) + Word(0) +
                                                   Hex("82 0000 00"));
}

TEST_F(CoreScriptTest, RebuildsTheGroupsFromTheFlatList) {
  using Case = std::tuple<int, int, bool>;
  const Case cases[] = {{0, 0, true},   {13, 1, true},  {4, 6, true},  {145, 7, true},
                        {14, 0, false}, {14, 5, false}, {5, 6, false}, {146, 7, false}};
  for (const auto& [count, kind, fits] : cases) {
    SCOPED_TRACE(testing::Message() << count << " of kind " << kind);
    ASSERT_TRUE(LoadStreams(kTr5, {kClose, "\x92" + Zeros(14) + kClose}));
    const std::string before = Bytes(Path("one"));
    LevelRecord& level = TRScript.Levels[1];
    level.ObjectCount = count;
    for (int i = 0; i < std::min(count, 145); ++i) {
      level.Objects[i].Kind = kind;
      level.Objects[i].Id = i % 8 + 1;
    }
    EXPECT_EQ(Saving(Path("one")), fits ? "true" : "subscript fault");
    EXPECT_EQ(level.KeyCount, kind == 1 ? 13 : 0) << "what is of no kind is passed over";
    EXPECT_EQ(level.Keys[12].Id, kind == 1 ? 5 : 0);
    EXPECT_EQ(Bytes(Path("one")) == before, !fits);
  }
}

TEST_F(CoreScriptTest, ReachesTheLimitsOf16Bits) {
  ASSERT_TRUE(LoadStreams(kTr5, {kClose}));
  TRScript.NumFileNames = 255;
  TRScript.FileNames.Redim(255);
  for (int i = 0; i < 255; ++i) TRScript.FileNames[i] = std::string(128, 'n');
  TRScript.FileNames[254] = std::string(255, 'n');
  EXPECT_EQ(Saving(Path("one")), "true");
  EXPECT_EQ(TRScript.FileNamesSize, 32767);
  EXPECT_EQ(TRScript.FileNameOffsets[254], 254 * 128);
  TRScript.FileNames[0] += 'n';
  EXPECT_EQ(Saving(Path("one")), "overflow fault");
  EXPECT_EQ(Bytes(Path("one")).size(), 12U) << "the head up to the size that does not fit";
  EXPECT_TRUE(Files.IsOpen(1));
  EXPECT_EQ(Saving(Path("one")), "file fault") << "an open file is not deleted";
  EXPECT_EQ(Bytes(Path("one")).size(), 12U);
}

TEST_F(CoreScriptTest, Holds255LevelsOf32767Bytes) {
  ASSERT_TRUE(LoadStreams(kTr5, {kClose}));
  TRScript.NumLevels = 255;
  TRScript.Levels.Redim(255);
  for (int i = 1; i < 255; ++i) {
    TRScript.Levels[i].CutCount = i <= 250 ? 61 : 60;
    for (CutEntry& cut : TRScript.Levels[i].Cuts) cut.Type = 1;
  }
  LevelRecord& last = TRScript.Levels[254];
  last.Tr5ListACount = 1;
  // The closing pairs, the cuts and one word: 6 + 254 x 7 + (254 x 60 + 250) x 2 + 3.
  ASSERT_EQ(Saving(Path("one")), "true");
  EXPECT_EQ(TRScript.ScriptDataSize, 32767);
  EXPECT_EQ(TRScript.LevelOffsets[255], 32767);
  TRScript.FileNames[0] = std::string(32768, 'n');
  EXPECT_EQ(CopyOfScript(TRScript).bytes[9], '\xFF') << "no level is left out for a name";
  ASSERT_TRUE(LoadAdventure(Path("one"), kTr5));
  EXPECT_EQ(TRScript.Levels[254].CutCount, 60);

  --TRScript.Levels[254].CutCount;
  ++TRScript.Levels[254].Tr5ListACount;
  EXPECT_EQ(Saving(Path("one")), "overflow fault");
  EXPECT_EQ(Bytes(Path("one")).size(), 56U + 2 + 3 + 254 * 2) << "all offsets but the last";
  EXPECT_EQ(Bytes(Path("one")).substr(14, 2), Word(0));
  EXPECT_EQ(Bytes(Path("scriptdata.tmp")).size(), 7U + 59 * 2 + 2 * 3);
  EXPECT_FALSE(Files.IsOpen(3));
}

TEST_F(CoreScriptTest, LeavesTheFaultsLastStreamBehind) {
  ASSERT_TRUE(LoadStreams(kTr5, {kClose, kClose, kClose}));
  TRScript.Levels[1].Tr5ListACount = 33;
  TRScript.Levels[1].CutCount = 101;
  EXPECT_EQ(Saving(Path("one")), "subscript fault");
  EXPECT_EQ(Bytes(Path("scriptdata.tmp")).size(), 100U) << "a cut without a type has no opcode";
  EXPECT_TRUE(Files.IsOpen(3));
  EXPECT_EQ(Bytes(Path("one")).size(), 56U + 2 + 3 + 2) << "one offset, no stream";
}

TEST_F(CoreScriptTest, NeedsATargetThatCanBeReplaced) {
  ASSERT_TRUE(LoadStreams(kTr5, {kClose}));
  EXPECT_EQ(Saving(Path("none")), "file fault");
  EXPECT_FALSE(fs::exists(Path("none")));
  fs::create_directory(Path("folder"));
  EXPECT_EQ(Saving(Path("folder")), "file fault");
  EXPECT_TRUE(fs::is_directory(Path("folder")));

  const std::string old = Bytes(Path("one"));
  fs::create_directory(Path("scriptdata.tmp"));
  EXPECT_EQ(Saving(Path("one")), "file fault") << "no stream can be built";
  EXPECT_EQ(Bytes(Path("one")), old) << "the disk's troubles cost nobody the old script";
  fs::remove(Path("scriptdata.tmp"));

  Files.OpenBinary(1, Path("scriptdata.tmp"));
  EXPECT_EQ(Saving(Path("one")), "file fault") << "the number is taken";
  EXPECT_EQ(Bytes(Path("one")), old);
  Files.AbandonFiles();
  EXPECT_EQ(Saving(Path("one")), "true");
  EXPECT_EQ(FilesIn(Path("")), (std::set<std::string>{"folder", "one", "scriptdata.tmp"}));
}

#ifndef _WIN32
TEST_F(CoreScriptTest, ReplacesTheFileBehindALinkAndKeepsItsRights) {
  ASSERT_TRUE(LoadStreams(kTr5, {kClose}));
  fs::create_directory(Path("real"));
  fs::rename(Path("one"), Path("real/script"));
  constexpr fs::perms rights =
      fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read;
  fs::permissions(Path("real/script"), rights);
  fs::create_hard_link(Path("real/script"), Path("older"));
  fs::create_symlink("real/script", Path("one"));
  TRScript.ScriptFlags = 77;
  EXPECT_EQ(Saving(Path("one")), "true");
  EXPECT_TRUE(fs::is_symlink(Path("one")));
  EXPECT_EQ(Bytes(Path("real/script")).substr(0, 2), Word(77));
  EXPECT_EQ(Bytes(Path("older")), ScriptBytes({kClose})) << "a file of its own from now on";
  EXPECT_EQ(fs::status(Path("real/script")).permissions(), rights);
  EXPECT_EQ(FilesIn(Path("real")), std::set<std::string>{"script"});
}
#endif

TEST_F(CoreScriptTest, FindsTheFolderBehindBackslashes) {
  // A backslash is part of the name on some systems, but always parts the folder from it here.
  ASSERT_TRUE(LoadStreams(kTr5, {kClose}));
  fs::create_directory(Path("sub"));
  MakeFile(Path("sub\\B.dat"), "");
  EXPECT_EQ(Saving(Path("sub\\b.DAT")), "true");
  EXPECT_FALSE(Bytes(Path("sub\\B.dat")).empty());
}

TEST_F(CoreScriptTest, DiscardsTheOldScriptIntoTheTrash) {
  ASSERT_TRUE(LoadStreams(kTr5, {kClose}));
  // Two names are taken by what an earlier run has left behind.
  for (const char* left : {"one.quillmark-new-1", "one.quillmark-old-2"}) MakeFile(Path(left), "");
  for (const bool takesIt : {true, false}) {
    SetTrash([&](const std::string& path) {
      EXPECT_EQ(path, Path("one.quillmark-old-3"));
      if (takesIt) fs::rename(path, Path("trashed"));
      return takesIt;
    });
    EXPECT_EQ(Saving(Path("one")), "true");
  }
  SetTrash({});
  EXPECT_EQ(Bytes(Path("trashed")), ScriptBytes({kClose}));
  EXPECT_EQ(FilesIn(Path("")),
            (std::set<std::string>{"one", "one.quillmark-new-1", "one.quillmark-old-2",
                                   "scriptdata.tmp", "trashed"}));
}

}  // namespace
}  // namespace quillmark
