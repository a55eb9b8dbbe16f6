// Checked numbers, bounded arrays, file numbers and what the program asks of the file system.

#include <csignal>
#include <filesystem>
#ifndef _WIN32
#include <sys/resource.h>
#endif

#include "platform/bounded_array.h"
#include "platform/checked_integer.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/system_path.h"
#include "platform/system_write.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using CorePlatformTest = CoreTest;

constexpr const char* kSubscript = "subscript fault";
constexpr const char* kOverflow = "overflow fault";
constexpr const char* kFile = "file fault";

TEST_F(CorePlatformTest, NumbersKeepToTheirRangeAtEveryStep) {
  const Int16 highest = 32767;
  const Int16 lowest = -32768;
  Byte byte = 255;
  Int16 word = 0;
  EXPECT_EQ(OutcomeOf([&] { word = highest + 0; }), "true");
  EXPECT_EQ(OutcomeOf([&] { word = highest + 1; }), kOverflow);
  EXPECT_EQ(OutcomeOf([&] { word = lowest - 1; }), kOverflow);
  EXPECT_EQ(OutcomeOf([&] { word = highest + 1 - 1; }), kOverflow);
  EXPECT_EQ(OutcomeOf([&] { word = highest - lowest; }), kOverflow);
  EXPECT_EQ(OutcomeOf([&] { word = Byte(0) - 1; }), "true");
  EXPECT_EQ(OutcomeOf([&] { ++byte; }), kOverflow);
  EXPECT_EQ(OutcomeOf([&] { byte = word; }), kOverflow) << "-1";
  EXPECT_EQ(OutcomeOf([&] { byte -= 255; }), "true");
  EXPECT_EQ(OutcomeOf([&] { --byte; }), kOverflow);
  EXPECT_EQ(OutcomeOf([&] { word = Int32(40000) - highest; }), "true");
  EXPECT_EQ(OutcomeOf([&] { word = Int32(40000); }), kOverflow);
  EXPECT_EQ(OutcomeOf([&] { Int32(2147483647) + Byte(1); }), kOverflow);
  EXPECT_EQ(word, 7233);
  EXPECT_FALSE(IsOn(1));
  EXPECT_TRUE(IsOn(-1));
}

TEST_F(CorePlatformTest, ArraysKeepToTheirBounds) {
  FixedArray<int, 4> fixed;
  const FixedArray<int, 4>& same = fixed;
  DynamicArray<std::string> dynamic;
  try {
    dynamic[0] = "x";
    ADD_FAILURE();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.about(), "0 > -1");
  }
  dynamic.Redim(Byte(1));
  for (int i = -1; i <= 4; ++i) {
    EXPECT_EQ(OutcomeOf([&] { fixed[i] = 1; }), i < 0 || i > 3 ? kSubscript : "true") << i;
    EXPECT_EQ(OutcomeOf([&] { dynamic[i] = "y"; }), i < 0 || i > 1 ? kSubscript : "true") << i;
    EXPECT_EQ(OutcomeOf([&] { fixed.First(i + 1); }), i < -1 || i > 3 ? kSubscript : "true") << i;
    EXPECT_EQ(OutcomeOf([&] { same.First(i + 1); }), i < -1 || i > 3 ? kSubscript : "true") << i;
    EXPECT_EQ(OutcomeOf([&] { dynamic.First(i); }), i < 0 || i > 2 ? kSubscript : "true") << i;
  }
  dynamic.RedimPreserve(2);
  EXPECT_EQ(dynamic[1], "y");
  dynamic.Redim(1);
  EXPECT_EQ(dynamic[1], "");
}

TEST_F(CorePlatformTest, BinaryFilesReadZerosBehindTheirEnd) {
  MakeFile(Path("a"), Hex("ff fe 01000080 41 42 7f"));
  Files.OpenBinary(10, Path("A"));
  EXPECT_EQ(Files.ReadByte(10), 255);
  Files.Seek(10, 0);
  EXPECT_EQ(Files.ReadInt16(10), -257);
  EXPECT_EQ(Files.ReadInt32(10), -2147483647);
  EXPECT_EQ(Files.ReadText(10, 2), "AB");
  EXPECT_FALSE(Files.EndOfFile(10));
  EXPECT_EQ(Files.ReadInt32(10), 0x7f) << "its last three bytes lie behind the end";
  EXPECT_TRUE(Files.EndOfFile(10));
  EXPECT_EQ(Files.ReadText(10, 3), Zeros(3));
  EXPECT_EQ(Files.Length(10), 9);
  EXPECT_EQ(OutcomeOf([] { Files.Seek(10, -1); }), kFile);
  Files.Seek(10, 8);
  EXPECT_FALSE(Files.EndOfFile(10));
  Files.CloseFiles();
  EXPECT_FALSE(Files.IsOpen(10));

  Files.OpenBinary(6, Path("new"));
  EXPECT_TRUE(fs::exists(Path("new"))) << "made at once";
  Files.WriteInt32(6, -2);
  Files.Seek(6, 6);
  Files.WriteInt16(6, 0x1234);
  Files.Seek(6, 0);
  Files.WriteByte(6, 7);
  EXPECT_EQ(Bytes(Path("new")).size(), 0U);
  Files.Flush(6);
  EXPECT_EQ(Bytes(Path("new")), Hex("07ffffff 0000 3412"));
  Files.CloseFiles();
  EXPECT_TRUE(Files.IsOpen(6)) << "the log's number stays";

  Files.OpenBinary(1, Path("a"));
  Files.WriteByte(1, 0);
  EXPECT_EQ(Files.ReadByte(1), 0xfe) << "what was not written over comes from the disk";
  Files.Close(1);
  EXPECT_EQ(Bytes(Path("a")), Hex("00 fe 01000080 41 42 7f"));
  Files.MakeBinary(1, Path("a"));
  EXPECT_EQ(Files.Length(1), 0);
  for (const bool onDisk : {false, true}) {
    Files.WriteInt32(1, 1);
    if (onDisk) Files.Flush(1);
    Files.Empty(1);
    Files.WriteByte(1, 9);
  }
  Files.Flush(1);
  EXPECT_EQ(Bytes(Path("a")), Hex("09"));
  for (const int at : {3, 1}) {
    Files.Seek(1, at);
    Files.WriteByte(1, at);
  }
  Files.Close(1);
  EXPECT_EQ(Bytes(Path("a")), Hex("09010003"));
}

#ifndef _WIN32
TEST_F(CorePlatformTest, ADiskWithoutRoomCostsNobodyTheOldFile) {
  MakeFile(Path("old"), "old");
  rlimit room{};
  getrlimit(RLIMIT_FSIZE, &room);
  const rlimit little{4, room.rlim_max};
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &little);
  for (const char* name : {"old", "new", "own"}) {
    name == std::string("own") ? Files.MakeBinary(1, Path(name)) : Files.OpenBinary(1, Path(name));
    Files.WriteText(1, "12345");
    EXPECT_EQ(OutcomeOf([] { Files.Close(1); }), kFile) << name;
  }
  setrlimit(RLIMIT_FSIZE, &room);
  std::signal(SIGXFSZ, before);
  EXPECT_EQ(BytesIn(Path("")),
            (std::map<std::string, std::string>{{"old", "old"}, {"own", "1234"}}));
  EXPECT_FALSE(WriteToDisk(Path("own"), "x").error);
  EXPECT_EQ(Bytes(Path("own")), "x");
}
#endif

TEST_F(CorePlatformTest, FileNumbersRefuseWhatDoesNotFit) {
  MakeFile(Path("a"), " x, \"y,z\" ,\r\nlast\n\"open, end");
  Files.OpenInput(5, Path("a"));
  for (const char* field : {" x", "y,z", "", "last", "open, end"})
    EXPECT_EQ(Files.ReadField(5), field);
  EXPECT_TRUE(Files.EndOfFile(5));
  fs::create_directory(Path("folder"));
  for (const std::function<void()>& wrong : std::initializer_list<std::function<void()>>{
           [] { Files.ReadField(5); }, [] { Files.ReadByte(5); }, [] { Files.ReadByte(1); },
           [] { Files.IsOpen(0); }, [] { Files.IsOpen(11); },
           [&] { Files.OpenBinary(5, Path("b")); }, [&] { Files.OpenBinary(1, Path("folder")); },
           [&] { Files.OpenBinary(1, Path("none/b")); }, [&] { Files.OpenInput(1, Path("none")); },
           [&] { EraseFile(Path("A")); }, [&] { EraseFile(Path("none")); },
           [&] { EraseFile(Path("folder")); }}) {
    EXPECT_EQ(OutcomeOf(wrong), kFile);
  }
  Files.Close(5);
  EraseFile(Path("A"));
  EXPECT_FALSE(fs::exists(Path("a")));
}

TEST_F(CorePlatformTest, PathsAreFoundInAnyLetterCase) {
  EXPECT_EQ(GetPath("c:\\games\\tr4\\SCRIPT.DAT"), "c:\\games\\tr4");
  EXPECT_EQ(GetPath("SCRIPT.DAT"), "");
  EXPECT_EQ(FileNameOf("a\\b.DAT"), "b.DAT");
  EXPECT_EQ(UpperCased("`az{\xE0"), "`AZ{\xE0");
  MakeFile(Path("us.Dat"), "one");
  EXPECT_EQ(FindFile(Path("US.DAT")), "us.Dat");
  EXPECT_EQ(FindFile(Path("UT.DAT")), "");
  const bool caseMatters = !fs::exists(Path("US.DAT"));
  MakeFile(Path("US.DAT"), "exact");
  EXPECT_EQ(FindFile(Path("US.DAT")), caseMatters ? "US.DAT" : "us.Dat");
  if (!caseMatters) return;
  for (const char* name : {"uS.dat", "Us.Dat"}) MakeFile(Path(name), name);
  fs::remove(Path("US.DAT"));
  EXPECT_EQ(FindFile(Path("US.DAT")), "Us.Dat") << "of several the first by its bytes";
}

TEST_F(CorePlatformTest, FoldersMayHaveAnyLettersAndAnyDepth) {
  std::vector<std::string> folders;
  for (std::string folder = Path("\u03a9\u0436 \u00e8"); folder.size() < 600;
       folder = JoinPath(folder, std::string(60, 'x'))) {
    fs::create_directory(FormOfSystem(folder));
    folders.push_back(folder);
    const std::string path = JoinPath(folder, "\u6587.Dat");
    Files.OpenBinary(1, path);
    Files.WriteText(1, "abc");
    EXPECT_EQ(OutcomeOf([&] { EraseFile(path); }), kFile) << "it is open";
    Files.Close(1);
    EXPECT_EQ(FindFile(JoinPath(folder, "\u6587.DAT")), "\u6587.Dat") << path.size();
    EXPECT_EQ(FileLength(path), 3);
    EraseFile(JoinPath(folder, "\u6587.DAT"));
    EXPECT_EQ(FindFile(path), "");
  }
  for (; !folders.empty(); folders.pop_back()) fs::remove(FormOfSystem(folders.back()));
}

}  // namespace
}  // namespace quillmark
