// The language files, byte by byte, and the table of the interface's texts.

#include <filesystem>
#include <tuple>

#include "forms/interface_texts.h"
#include "frame/interface_table.h"
#include "platform/file_numbers.h"
#include "strings/language_files.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

/// Keeps what the readers and writers tell.
class CoreLanguageTest : public CoreTest {
 protected:
  CoreLanguageTest() {
    StringListeners listeners;
    listeners.stringRead = [this](const std::string& text) { told_ += "read " + text; };
    listeners.levelNamesBegin = [this] { told_ += "levels "; };
    listeners.levelName = [this](const std::string& text) { told_ += "level " + text; };
    listeners.poolBegins = [this] { told_ += "pool "; };
    listeners.poolString = [this](const std::string& text) { told_ += "string " + text; };
    listeners.failed = [this](Language language, FileWork work) {
      told_ += work == FileWork::Read ? "can't read " : "can't write ";
      told_ += LanguageFileName(language);
    };
    SetStringListeners(listeners);
  }

  std::string TakeTold() { return std::exchange(told_, {}); }

  /// "A", "bc" and nothing, in groups of 1, 2 and 0.
  static std::string SmallFile() {
    return Word(1) + Word(2) + Word(0) + Word(2) + Word(4) + Word(0) + Word(0) + Word(2) + Word(5) +
           Hex("1d 00 3e3f 00 00");
  }

 private:
  std::string told_;
};

TEST_F(CoreLanguageTest, ReadsAndWritesASmallFile) {
  MakeFile(Path("a"), SmallFile());
  LanguageSlot& slot = Slot(Language::GERMAN);
  EXPECT_FALSE(ReadLanguage(Language::GERMAN, Path("a"))) << "it is not the primary one";
  EXPECT_EQ(TakeTold(), "");
  EXPECT_TRUE(Files.IsOpen(2));
  Files.CloseFiles();
  EXPECT_EQ(slot.Total, 3);
  EXPECT_EQ(StringsMod.NumStrings, 3);
  EXPECT_EQ(slot.Size2, 4);
  EXPECT_EQ(slot.Offsets[2], 5);
  EXPECT_EQ(slot.Strings[0], "A" + Zeros(1));
  EXPECT_EQ(slot.Strings[1], "bc" + Zeros(1));
  EXPECT_EQ(slot.Strings[2], Zeros(2)) << "the read past the end";
  EXPECT_EQ(slot.Loaded, -1);

  EXPECT_TRUE(WriteLanguage(Language::GERMAN, Path("a")));
  std::string longer = SmallFile() + Zeros(1);
  longer[8] = 5;
  EXPECT_EQ(Bytes(Path("a")), longer);

  slot.Strings.Set(1, "\\" + Zeros(1));  // the mask itself
  slot.Strings.Set(2, Zeros(1));
  EXPECT_TRUE(WriteLanguage(Language::GERMAN, Path("a")));
  EXPECT_EQ(Bytes(Path("a")).substr(16), Word(4) + Hex("1d 00 00 00 00") + Zeros(2))
      << "the tail of the longer file stays";
  ReadLanguage(Language::GERMAN, Path("a"));
  EXPECT_EQ(slot.Strings[1], Zeros(2));
  EXPECT_EQ(slot.Strings[2], Zeros(4));
}

TEST_F(CoreLanguageTest, KeepsTextsOneBehindTheOther) {
  TextArray texts;
  EXPECT_EQ(OutcomeOf([&] { texts.Set(0, "x"); }), "subscript fault");
  EXPECT_EQ(OutcomeOf([&] { texts.Redim(-1); }), "subscript fault");
  texts.Redim(4);
  texts.Cut("abcdef", 3, [](int i) { return i; });
  texts.Set(1, "longer");
  texts.Set(3, texts[1]);
  texts.Set(2, "");
  EXPECT_EQ(texts.JoinFirst(5), "longerlonger");
  EXPECT_EQ(texts[2], "");
  EXPECT_EQ(texts[3], "longer");
  EXPECT_EQ(texts[4], "");
  EXPECT_EQ(OutcomeOf([&] { texts[5]; }), "subscript fault");
}

TEST_F(CoreLanguageTest, TellsWhatItShowsOfThePrimaryLanguage) {
  const std::string strings[] = {"A" + Zeros(1), "bc" + Zeros(1), Zeros(2)};
  MakeFile(Path("a"), SmallFile());
  TRScript.NumLevels = 2;
  TRScript.Levels.Redim(2);
  TRScript.Levels[1].NameString = 1;
  LanguageSlot& slot = Slot(Language::GERMAN);
  slot.Primary = kOn;
  EXPECT_TRUE(ReadLanguage(Language::GERMAN, Path("a")));
  EXPECT_FALSE(Files.IsOpen(2));
  EXPECT_EQ(TakeTold(), "read " + strings[0] + "read " + strings[1] + "read " + strings[2] +
                            "levels level " + strings[1]);

  slot.Primary = kOff;
  SetPrimaryLanguage(Language::GERMAN);
  EXPECT_EQ(TakeTold(),
            "pool string " + strings[0] + "string " + strings[1] + "string " + strings[2]);
  EXPECT_EQ(StringsMod.StringPool.size(), 4097U);
  EXPECT_EQ(StringsMod.StringPool[1], strings[1]);
  EXPECT_EQ(slot.Primary, kOn);
  TRScript.Levels[1].NameString = 4;
  EXPECT_FALSE(ReadLanguage(Language::GERMAN, Path("a"))) << "a name outside the strings";
  EXPECT_TRUE(TakeTold().ends_with("levels can't read GERMAN.DAT"));
}

TEST_F(CoreLanguageTest, ReachesTheLimitsOfTheReader) {
  LanguageSlot& slot = Slot(Language::ENGLISH);
  using Case = std::tuple<int, int, int, bool, int>;
  for (const auto& [count1, count2, count3, loaded, total] :
       std::initializer_list<Case>{{2049, 0, 0, true, 2049},
                                   {2000, 49, 1, false, 2050},
                                   {0, 0, 0, true, 0},
                                   {0, 0, -1, false, -1},
                                   {32767, 1, -1, false, 0},
                                   {32767, -32767, 2, true, 2}}) {
    slot = {};
    MakeFile(Path("a"), Word(count1) + Word(count2) + Word(count3) + Zeros(5000));
    ReadLanguage(Language::ENGLISH, Path("a"));
    EXPECT_EQ(TakeTold(), loaded ? "" : "can't read ENGLISH.DAT") << count1;
    EXPECT_EQ(slot.Loaded, loaded ? -1 : 0);
    EXPECT_EQ(slot.Total, total);
    EXPECT_EQ(slot.Count3, count3) << "the slot is as far as it got";
    Files.CloseFiles();
  }
  EXPECT_EQ(slot.Strings[1].size(), 4991U);
}

TEST_F(CoreLanguageTest, TakesZerosFromBehindTheEndOfAnyFile) {
  // Offsets up and down: every other string reaches 32767 bytes, the first from inside the file.
  MakeFile(Path("a"),
           Word(2049) + Zeros(10) + Repeated(Word(0) + Word(32767), 1024) + Word(0) + Hex("1d 00"));
  LanguageSlot& slot = Slot(Language::ENGLISH);
  slot.Primary = kOn;
  EXPECT_TRUE(ReadLanguage(Language::ENGLISH, Path("a")));
  SetPrimaryLanguage(Language::ENGLISH);
  TakeTold();
  EXPECT_EQ(slot.Strings[0], "A" + Zeros(32766));
  EXPECT_EQ(slot.Strings[1], "");
  EXPECT_EQ(StringsMod.StringPool[2046], Zeros(32767));
  EXPECT_EQ(slot.Strings[2048], Zeros(3)) << "to the end, and one further";
  EXPECT_EQ(slot.Strings[2], Zeros(32767));
  EXPECT_EQ(slot.Strings[2].data(), slot.Strings[2046].data()) << "the zeros are there only once";

  slot.Strings.Set(2046, "new");
  slot.Strings.Set(2, "");
  slot.Strings.Set(1, slot.Strings[2048]);
  EXPECT_EQ(slot.Strings.SizeOfFirst(2049), 1022U * 32767 + 3 + 3 + 3);
  EXPECT_EQ(slot.Strings[0], "A" + Zeros(32766));
  EXPECT_EQ(slot.Strings[1], Zeros(3));
  EXPECT_EQ(slot.Strings[2], "");
  EXPECT_EQ(slot.Strings[4], Zeros(32767));
  EXPECT_EQ(slot.Strings[2046], "new");
  EXPECT_EQ(slot.Strings[2048], Zeros(3));

  MakeFile(Path("a"), Repeated("x", 20));
  EXPECT_FALSE(WriteLanguage(Language::ENGLISH, Path("a")));
  EXPECT_EQ(TakeTold(), "can't write ENGLISH.DAT");
  EXPECT_EQ(Bytes(Path("a")), Word(2049) + Word(0) + Word(0) + Repeated("x", 14));
  // What fits the numbers again is written with its zeros.
  for (int i = 4; i < 2046; ++i) slot.Strings.Set(i, "");
  slot.Strings.Set(0, "B");
  MakeFile(Path("a"), "");
  EXPECT_TRUE(WriteLanguage(Language::ENGLISH, Path("a")));
  const std::string written = Bytes(Path("a"));
  EXPECT_EQ(written.substr(6, 2), Word(10));
  EXPECT_EQ(written.substr(12 + 2 * 2049), Hex("1e 000000 32392b 000000"));
}

TEST_F(CoreLanguageTest, ReachesTheLimitsOfTheWriter) {
  LanguageSlot& slot = Slot(Language::ENGLISH);
  slot.Total = 3;
  slot.Count1 = slot.Count2 = slot.Count3 = 1;
  slot.Strings.Redim(3);
  // The third offset is 32768, then the second size.
  using Case = std::tuple<std::size_t, std::size_t, std::size_t, std::size_t, bool>;
  for (const auto& [first, second, third, size, written] :
       std::initializer_list<Case>{{32000, 767, 32767, 12 + 6 + 65534, true},
                                   {32000, 768, 1, 12 + 4, false},
                                   {1, 32768, 1, 6, false}}) {
    slot.Strings.Set(0, std::string(first, 'x'));
    slot.Strings.Set(1, std::string(second, 'x'));
    slot.Strings.Set(2, std::string(third, 'x'));
    fs::remove(Path("a"));
    EXPECT_EQ(WriteLanguage(Language::ENGLISH, Path("a")), written);
    EXPECT_EQ(TakeTold(), written ? "" : "can't write ENGLISH.DAT");
    EXPECT_EQ(Bytes(Path("a")).size(), size) << "of the file that is left";
    EXPECT_FALSE(Files.IsOpen(1));
  }
  slot = {};
  slot.Strings.Redim(0);
  slot.Offsets.Redim(0);
  fs::remove(Path("a"));
  EXPECT_TRUE(WriteLanguage(Language::ENGLISH, Path("a")));
  EXPECT_EQ(Bytes(Path("a")), Zeros(14)) << "an empty slot has its first offset all the same";
}

TEST_F(CoreLanguageTest, TellsOfMissingMemoryAsOfAFileThatCantBeRead) {
  int told = 0;
  const auto noMemory = [](const std::string&) { throw std::bad_alloc(); };
  const auto noRoom = [](const std::string&) { throw std::length_error("too long"); };
  for (const auto& listener : {std::function<void(const std::string&)>(noMemory),
                               std::function<void(const std::string&)>(noRoom)}) {
    StringListeners listeners;
    listeners.stringRead = listener;
    listeners.failed = [&](Language, FileWork work) { told += work == FileWork::Read ? 1 : 0; };
    SetStringListeners(listeners);
    Slot(Language::GERMAN).Primary = kOn;
    MakeFile(Path("a"), SmallFile());
    EXPECT_FALSE(ReadLanguage(Language::GERMAN, Path("a")));
  }
  EXPECT_EQ(told, 2);
  EXPECT_FALSE(Files.IsOpen(2));
}

TEST_F(CoreTest, FindsStringsWhateverTheirLetterCase) {
  StringsMod.StringPool.Redim(2);
  StringsMod.NumStrings = 2;
  StringsMod.StringPool[0] = "\xD7 \xF7";
  StringsMod.StringPool[1] = "\xC9t\xE9 \x9E\xFF";
  EXPECT_EQ(FindPoolString("\xE9T\xC9 \x8E\x9F"), 1);
  EXPECT_EQ(FindPoolString("\xF7"), -1) << "a division sign is no small multiplication sign";
}

TEST_F(CoreTest, ReadsTheInterfaceTable) {
  const std::string magic = Hex("cd00cdcd");
  using Case = std::tuple<std::string, std::string, int, const char*>;
  for (const auto& [bytes, outcome, last, text] : std::initializer_list<Case>{
           {magic + std::string("one\0\0two\0three", 14), "true", 3, "three"},
           {magic + Zeros(4096) + std::string("end\0", 4), "true", 4096, "end"},
           {magic + Zeros(4097) + "x", "subscript fault", 4096, ""},
           {magic, "true", 0, ""},
           {Hex("cd00cdcc") + "x", "false", 0, ""},
           {"", "false", 0, ""}}) {
    InterfaceTable = {};
    MakeFile(Path("language.bin"), bytes);
    EXPECT_EQ(Outcome(ReadInterfaceTable), outcome);
    EXPECT_EQ(InterfaceTable[last], text);
    Files.CloseAll();
  }
  InterfaceTable[0] = "kept ";
  MakeFile(Path("language.bin"), magic + "more");
  EXPECT_TRUE(ReadInterfaceTable());
  EXPECT_EQ(InterfaceTable[0], "kept more");
  InterfaceTable = {};
}

}  // namespace
}  // namespace quillmark
