// The language files, byte by byte, their order, what becomes of one that can't be read or written,
// and the box of each.

#include <filesystem>
#include <set>
#include <tuple>

#include "controls/desktop.h"
#include "core/script_dat.h"
#include "editor/editor_form.h"
#include "forms/interface_texts.h"
#include "platform/file_numbers.h"
#include "strings/language_files.h"
#include "support/silent_screen.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

/// The slots, in their order.
const Names kSlots = {"ENGLISH.DAT", "ITALIAN.DAT", "GERMAN.DAT", "US.DAT",
                      "FRENCH.DAT",  "SPANISH.DAT", "JAPAN.DAT"};

Language SlotOf(const std::string& file) {
  Language language{};
  EXPECT_TRUE(FindLanguage(file, language)) << file;
  return language;
}

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

  std::string Folder() const { return Path("").substr(0, Path("").size() - 1); }
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
  const Case cases[] = {{2049, 0, 0, true, 2049}, {2000, 49, 1, false, 2050},
                        {0, 0, 0, true, 0},       {0, 0, -1, false, -1},
                        {32767, 1, -1, false, 0}, {32767, -32767, 2, true, 2}};
  for (const auto& [count1, count2, count3, loaded, total] : cases) {
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
  const Case cases[] = {{32000, 767, 32767, 12 + 6 + 65534, true},
                        {32000, 768, 1, 12 + 4, false},
                        {1, 32768, 1, 6, false}};
  for (const auto& [first, second, third, size, written] : cases) {
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
  for (const bool memory : {true, false}) {
    StringListeners listeners;
    listeners.stringRead = [memory](const std::string&) {
      if (memory) throw std::bad_alloc();
      throw std::length_error("too long");
    };
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
  EXPECT_EQ(FindPoolString("\xD7"), 0);
  EXPECT_EQ(FindPoolString("\xF7"), -1) << "a division sign is no small multiplication sign";
}

TEST_F(CoreLanguageTest, NamesBelongToTheirSlotsInExactLettersAlone) {
  for (std::size_t i = 0; i < kSlots.size(); ++i) {
    EXPECT_EQ(static_cast<std::size_t>(SlotOf(kSlots[i])), i);
    EXPECT_EQ(LanguageFileName(static_cast<Language>(i)), kSlots[i]);
  }
  for (const char* other : {"DUTCH.DAT", "english.dat", "ENGLISH.DA", "ENGLISH.DATA", "US", ""}) {
    Language language = Language::JAPAN;
    EXPECT_FALSE(FindLanguage(other, language)) << other;
  }
}

TEST_F(CoreLanguageTest, FilesAreReadAndSavedInTheirOrders) {
  MakeFile(Path("DUTCH.DAT"), SmallFile());
  for (const std::string& file : kSlots) MakeFile(Path(file), SmallFile());
  Names found;
  ReadLanguagesIn(Folder(), [&](std::string_view name, const std::string& path) {
    found.emplace_back(name);
    ReadFoundLanguage(name, path);
  });
  EXPECT_EQ(found, (Names{"ITALIAN.DAT", "ENGLISH.DAT", "GERMAN.DAT", "FRENCH.DAT", "US.DAT",
                          "JAPAN.DAT", "SPANISH.DAT"}));

  const Names order = {"ITALIAN.DAT", "ENGLISH.DAT", "JAPAN.DAT", "FRENCH.DAT",
                       "SPANISH.DAT", "GERMAN.DAT",  "US.DAT"};
  for (std::size_t blocked = 0; blocked <= order.size(); ++blocked) {
    for (const std::string& file : kSlots) fs::remove(Path(file));
    if (blocked < order.size()) fs::create_directory(Path(order[blocked]));
    EXPECT_EQ(WriteLoadedLanguages(Folder()), blocked == order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
      EXPECT_EQ(fs::is_regular_file(Path(order[i])), i < blocked) << order[i];
    }
  }
}

TEST_F(CoreLanguageTest, EachLanguageHasItsBoxes) {
  SilentScreen screen;
  AttachScriptCommands();
  for (int i = 0; i < kInterfaceEntries; ++i) InterfaceTable[i] = "entry " + std::to_string(i);
  fs::create_directory(Path("folder"));
  const std::pair<const char*, int> read[] = {
      {"ENGLISH.DAT", 1}, {"ITALIAN.DAT", 2}, {"GERMAN.DAT", 3}, {"US.DAT", 4},
      {"SPANISH.DAT", 5}, {"JAPAN.DAT", 6},   {"FRENCH.DAT", 7}};
  for (const auto& [file, entry] : read) {
    screen.boxes.clear();
    EXPECT_FALSE(ReadLanguage(SlotOf(file), Path("folder")));
    EXPECT_FALSE(WriteLanguage(SlotOf(file), Path("folder")));
    EXPECT_EQ(screen.boxes,
              (Names{"entry " + std::to_string(entry), "entry " + std::to_string(entry + 7)}))
        << file;
  }
  InterfaceTable = {};
  TheDesktop().Reset();
}

TEST_F(CoreLanguageTest, ALanguageWhoseStringsCantBeReadIsNotSaved) {
  const auto withOffsets = [](int first, int second) {
    return SmallFile().replace(12, 4, Word(first) + Word(second));
  };
  LanguageSlot& slot = Slot(Language::ENGLISH);
  MakeFile(Path("a"), withOffsets(-32768, 1));
  EXPECT_FALSE(ReadLanguage(Language::ENGLISH, Path("a")));
  EXPECT_EQ(slot.Total, 3);
  EXPECT_EQ(slot.Loaded, kOff);
  EXPECT_TRUE(WriteLoadedLanguages(Folder()));
  EXPECT_FALSE(fs::exists(Path("ENGLISH.DAT")));

  // The number of bytes is no number of the model: one more than its highest is taken.
  MakeFile(Path("a"), withOffsets(-32767, 1));
  ReadLanguage(Language::ENGLISH, Path("a"));
  EXPECT_EQ(slot.Loaded, kOn);
  EXPECT_EQ(slot.Strings[0].size(), 32768U);
}

TEST_F(CoreLanguageTest, TheReadersDifferInTwoPoints) {
  const std::set<std::string> emptyOffsets = {"ENGLISH.DAT", "ITALIAN.DAT"};
  const std::set<std::string> namesFromPool = {"US.DAT", "SPANISH.DAT", "JAPAN.DAT"};
  MakeFile(Path("a"), SmallFile());
  TRScript.NumLevels = 2;
  TRScript.Levels.Redim(2);
  TRScript.Levels[1].NameString = 1;
  EXPECT_EQ(StringsMod.StringPool.size(), 2049U) << "from the start";
  StringsMod.StringPool[1] = "from the pool";
  for (const std::string& file : kSlots) {
    LanguageSlot& slot = Slot(SlotOf(file));
    slot.Offsets[7] = 5;
    slot.Primary = kOn;
    EXPECT_TRUE(ReadLanguage(SlotOf(file), Path("a")));
    EXPECT_EQ(slot.Offsets[7], emptyOffsets.contains(file) ? 0 : 5) << file;
    const std::string name = namesFromPool.contains(file) ? "from the pool" : "bc" + Zeros(1);
    EXPECT_TRUE(TakeTold().ends_with("level " + name)) << file;
  }
}

}  // namespace
}  // namespace quillmark
