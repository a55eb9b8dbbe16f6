// In which order the language files are read and written, what becomes of one that can't be, and
// the box of each.

#include <filesystem>
#include <set>

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

/// One group of two strings, "A" and "bc".
std::string TwoStrings() {
  return Word(2) + Zeros(4) + Word(5) + Zeros(4) + Word(0) + Word(2) + Hex("1d 00 3e3f 00");
}

class LanguageRulesTest : public CoreTest {
 protected:
  LanguageRulesTest() {
    for (int i = 0; i < kInterfaceEntries; ++i) InterfaceTable[i] = "entry " + std::to_string(i);
  }
  ~LanguageRulesTest() override {
    InterfaceTable = {};
    TheDesktop().Reset();
  }

  std::string Folder() const { return Path("").substr(0, Path("").size() - 1); }
  static Language SlotOf(const std::string& file) {
    Language language{};
    EXPECT_TRUE(FindLanguage(file, language)) << file;
    return language;
  }

  SilentScreen screen_;
};

TEST_F(LanguageRulesTest, NamesBelongToTheirSlotsInExactLettersAlone) {
  for (std::size_t i = 0; i < kSlots.size(); ++i) {
    EXPECT_EQ(static_cast<std::size_t>(SlotOf(kSlots[i])), i);
    EXPECT_EQ(LanguageFileName(static_cast<Language>(i)), kSlots[i]);
  }
  for (const char* other : {"DUTCH.DAT", "english.dat", "ENGLISH.DA", "ENGLISH.DATA", "US", ""}) {
    Language language = Language::JAPAN;
    EXPECT_FALSE(FindLanguage(other, language)) << other;
  }
}

TEST_F(LanguageRulesTest, FilesAreReadAndSavedInTheirOrders) {
  MakeFile(Path("DUTCH.DAT"), TwoStrings());
  for (const std::string& file : kSlots) MakeFile(Path(file), TwoStrings());
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
  fs::rename(Path("GERMAN.DAT"), Path("german.dat"));
  EXPECT_TRUE(WriteLoadedLanguages(Folder()));
  EXPECT_TRUE(IsNamed(Path("german.dat")));
  EXPECT_FALSE(IsNamed(Path("GERMAN.DAT")));
}

TEST_F(LanguageRulesTest, EachLanguageHasItsBoxes) {
  AttachScriptCommands();
  fs::create_directory(Path("folder"));
  const std::pair<const char*, int> read[] = {
      {"ENGLISH.DAT", 1}, {"ITALIAN.DAT", 2}, {"GERMAN.DAT", 3}, {"US.DAT", 4},
      {"SPANISH.DAT", 5}, {"JAPAN.DAT", 6},   {"FRENCH.DAT", 7}};
  for (const auto& [file, entry] : read) {
    screen_.boxes.clear();
    EXPECT_FALSE(ReadLanguage(SlotOf(file), Path("folder")));
    EXPECT_FALSE(WriteLanguage(SlotOf(file), Path("folder")));
    EXPECT_EQ(screen_.boxes,
              (Names{"entry " + std::to_string(entry), "entry " + std::to_string(entry + 7)}))
        << file;
  }
}

TEST_F(LanguageRulesTest, ALanguageWhoseStringsCantBeReadIsNotSaved) {
  const auto withOffsets = [](int first, int second) {
    return TwoStrings().replace(12, 4, Word(first) + Word(second));
  };
  LanguageSlot& slot = Slot(Language::ENGLISH);
  MakeFile(Path("a"), withOffsets(-32768, 1));
  EXPECT_FALSE(ReadLanguage(Language::ENGLISH, Path("a")));
  EXPECT_EQ(slot.Total, 2);
  EXPECT_EQ(slot.Loaded, kOff);
  EXPECT_TRUE(WriteLoadedLanguages(Folder()));
  EXPECT_FALSE(fs::exists(Path("ENGLISH.DAT")));

  // The number of bytes is no number of the model: one more than its highest is taken.
  MakeFile(Path("a"), withOffsets(-32767, 1));
  ReadLanguage(Language::ENGLISH, Path("a"));
  EXPECT_EQ(slot.Loaded, kOn);
  EXPECT_EQ(slot.Strings[0].size(), 32768U);
}

TEST_F(LanguageRulesTest, TheReadersDifferInTwoPoints) {
  const std::set<std::string> emptyOffsets = {"ENGLISH.DAT", "ITALIAN.DAT"};
  const std::set<std::string> namesFromPool = {"US.DAT", "SPANISH.DAT", "JAPAN.DAT"};
  std::string name;
  StringListeners listeners;
  listeners.levelName = [&](const std::string& text) { name = text; };
  SetStringListeners(listeners);
  MakeFile(Path("a"), TwoStrings());
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
    EXPECT_EQ(name, namesFromPool.contains(file) ? "from the pool" : "bc" + Zeros(2)) << file;
  }
}

}  // namespace
}  // namespace quillmark
