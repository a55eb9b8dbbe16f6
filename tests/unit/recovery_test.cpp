// Copies of what nobody saved: what is in them, when they are made, and which of them stay.

#include "frame/recovery.h"

#include <ctime>
#include <filesystem>
#include <iomanip>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>

#include "bench/largest_script.h"
#include "controls/desktop.h"
#include "core/script_copy.h"
#include "editor/editor_form.h"
#include "frame/recovery_folder.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "strings/language_files.h"
#include "support/silent_screen.h"
#include "tools/listing.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// The display on which the program looks for unsaved work while a box is open.
class LookingScreen : public SilentScreen {
 public:
  Recovery* recovery = nullptr;
  BoxButton AskMessage(const Message& box) override {
    recovery->Look();
    return SilentScreen::AskMessage(box);
  }
};

class RecoveryTest : public CoreTest {
 protected:
  ~RecoveryTest() override { TheDesktop().Reset(); }

  std::vector<fs::path> Copies() const {
    std::vector<fs::path> copies;
    if (!fs::is_directory(Path("recovered"))) return copies;
    for (const std::string& name : FilesIn(Path("recovered"))) {
      copies.push_back(Path("recovered/" + name));
    }
    return copies;
  }

  /// Holds the copies against the files that a save writes where none of the languages was.
  void ExpectWhatASaveWrites(const std::string& what) const {
    std::vector<FileCopy> copies = CopiesOfLoadedLanguages();
    copies.push_back(CopyOfScript(TRScript));
    std::map<std::string, std::string> copied;
    for (const FileCopy& copy : copies) {
      EXPECT_TRUE(copy.whole) << what << copy.name;
      copied[copy.name] = copy.bytes;
    }
    EXPECT_TRUE(copied == Saved()) << what;
  }

  /// Loads the script of those bytes, and gives how that ended.
  std::string Loading(const std::string& bytes, std::uint8_t game) const {
    fs::create_directories(Path("copied"));
    MakeFile(Path("copied/SCRIPT.DAT"), bytes);
    TRScript = {};
    return Outcome([&] { return LoadAdventure(Path("copied/SCRIPT.DAT"), game); });
  }

  Recovery::Clock::time_point time_;
};

TEST_F(RecoveryTest, CopiesHoldWhatASaveWouldWrite) {
  for (const std::uint8_t game : {kTr4, kTr5}) {
    TRScript = {};
    ASSERT_TRUE(LoadAdventure(CopySample(game == kTr4 ? "tr4" : "tr5"), game));
    ExpectWhatASaveWrites("sample ");
    FillLargestScript(game, kMostLevels);
    ExpectWhatASaveWrites("largest ");
    StringsMod = {};
    SizeOffsetArrays();
  }
}

TEST_F(RecoveryTest, MakingACopyChangesNothingElse) {
  ASSERT_TRUE(LoadAdventure(CopySample("tr4"), kTr4));
  // All that a save computes, and what it closes and leaves behind.
  LevelRecord& level = TRScript.Levels[3];
  LanguageSlot& slot = Slot(Language::GERMAN);
  TRScript.FileNamesSize = TRScript.ScriptDataSize = TRScript.FileNameOffsets[1] = 7;
  TRScript.LevelOffsets[1] = TRScript.LevelRaw[3].Length = 7;
  slot.Size1 = slot.Size2 = slot.Size3 = slot.Offsets[1] = StringsMod.NumStrings = 7;
  level.PuzzleCount = level.KeyCount = level.ExamineCount = 7;
  const Json marks = ListScript();
  const int saved = TRScript.ScriptSaved;
  for (int number = 1; number <= 4; ++number) {
    Files.MakeBinary(number, Path("open" + std::to_string(number)));
  }
  const auto before = BytesIn(Path(""));

  Recovery recovery;
  const int rate = std::exchange(TRScript.ScriptFrameRate, 99);
  recovery.Look();
  ASSERT_EQ(Copies().size(), 1U);
  EXPECT_EQ(Bytes((Copies()[0] / "SCRIPT.DAT").string()).substr(4, 4), Hex("63000000"));
  EXPECT_TRUE(fs::exists(Copies()[0] / "GERMAN.DAT"));
  fs::remove_all(Path("recovered"));
  TRScript.ScriptFrameRate = rate;
  EXPECT_EQ(ListScript(), marks);
  EXPECT_EQ(TRScript.ScriptSaved, saved);
  EXPECT_EQ(BytesIn(Path("")), before);
  for (int number = 1; number <= 10; ++number) {
    EXPECT_EQ(Files.IsOpen(number), number <= 4) << number;
  }
}

TEST_F(RecoveryTest, AScriptThatNoSaveCouldWriteLosesOnlyWhatHasNoRoom) {
  ASSERT_TRUE(LoadAdventure(CopySample("tr4"), kTr4));
  const int levels = TRScript.NumLevels;
  const auto fill = [](LevelRecord& level, const std::vector<ObjectKind>& kinds, int each) {
    level.ObjectCount = 0;
    for (int i = 0; i < each * static_cast<int>(kinds.size()); ++i) {
      LevelObject& object = level.Objects[i];
      object.Kind = static_cast<int>(kinds[static_cast<std::size_t>(i) % kinds.size()]);
      object.Id = object.Combo = 1;
      object.StringId = i;
      ++level.ObjectCount;
    }
  };
  fill(TRScript.Levels[2], {ObjectKind::Puzzle, ObjectKind::Key}, 15);
  TRScript.Levels[3] = {};
  TRScript.Levels[3].Cut = 1;
  fill(TRScript.Levels[3],
       {ObjectKind::Puzzle, ObjectKind::Key, ObjectKind::Pickup, ObjectKind::PuzzleCombo,
        ObjectKind::KeyCombo, ObjectKind::PickupCombo},
       13);
  TRScript.Levels[4].CutCount = 200;
  const int track = TRScript.Levels[5].AudioTrack;
  const int name = TRScript.Levels[4].NameString;
  const FileCopy copy = CopyOfScript(TRScript);
  EXPECT_FALSE(copy.whole);
  ASSERT_EQ(Loading(copy.bytes, kTr4), "true");
  EXPECT_EQ(int{TRScript.NumLevels}, levels);
  EXPECT_EQ(TRScript.Levels[2].PuzzleCount, 13);
  EXPECT_EQ(TRScript.Levels[2].KeyCount, 13);
  EXPECT_EQ(TRScript.Levels[2].Keys[12].StringId, 25) << "the first ones stay, in their order";
  EXPECT_EQ(TRScript.Levels[3].ObjectCount, 66) << "with the rest they make 1025 bytes";
  EXPECT_EQ(TRScript.Levels[4].NameString, name);
  EXPECT_EQ(TRScript.Levels[4].CutCount, 0);
  EXPECT_EQ(TRScript.Levels[5].AudioTrack, track);

  // All levels together are too long, and so are the names; and a load that was broken off.
  FillLargestScript(kTr5, kMostLevels);
  fill(TRScript.Levels[254], {ObjectKind::Puzzle, ObjectKind::Key}, 13);
  TRScript.FileNames[253].insert(0, TRScript.FileNames[254]);  // up to the very last byte
  ASSERT_EQ(Loading(CopyOfScript(TRScript).bytes, kTr5), "true");
  EXPECT_EQ(int{TRScript.NumLevels}, 254);
  EXPECT_EQ(int{TRScript.NumFileNames}, 254);
  TRScript.Levels.Redim(1);
  ASSERT_EQ(Loading(CopyOfScript(TRScript).bytes, kTr5), "true");
  EXPECT_EQ(int{TRScript.NumLevels}, 2);
}

TEST_F(RecoveryTest, ALanguageThatIsTooLargeKeepsAllButTheStringsWithoutRoom) {
  FillLargestScript(kTr4, kMostLevels);
  const std::string first(Slot(Language::US).Strings[0]);
  Slot(Language::US).Strings.Set(1990, std::string(400, 'x') + '\0');
  Slot(Language::JAPAN).Total = kOffsetPlaces + 1;
  const std::vector<FileCopy> copies = CopiesOfLoadedLanguages();
  ASSERT_EQ(copies.size(), 6U) << "without the one that has no places";
  EXPECT_EQ(copies.back().name, "US.DAT");
  EXPECT_FALSE(copies.back().whole);
  MakeFile(Path("US.DAT"), copies.back().bytes);
  ReadLanguage(Language::US, Path("US.DAT"));
  EXPECT_EQ(Slot(Language::US).Total, 2000);
  EXPECT_EQ(Slot(Language::US).Strings[0], first);
  EXPECT_EQ(Slot(Language::US).Strings[1990], Zeros(1));
  EXPECT_GT(Slot(Language::US).Strings[1989].size(), 1U);

  StringsMod = {};
  LanguageSlot& slot = Slot(Language::US);
  slot.Loaded = kOn;
  slot.Total = slot.Count1 = 3;
  slot.Strings.Redim(3);
  slot.Offsets.Redim(3);
  slot.Strings.Cut(Zeros(40'000), 3, [](int i) { return i == 0 ? 32'765 : 400; });
  EXPECT_EQ(CopiesOfLoadedLanguages()[0].bytes.size(), 12U + 6 + 32'765 + 1 + 1)
      << "all the room there is";
}

TEST_F(RecoveryTest, LooksAfterAMinuteAndKeepsWhatIsNotKeptYet) {
  LookingScreen screen;
  TRScript.Levels.Redim(1);
  TRScript.NumLevels = 1;
  Recovery recovery([this] { return time_; });
  screen.recovery = &recovery;
  const auto actAfter = [&](std::chrono::seconds pause) {
    time_ += pause;
    recovery.ActIsOver();
    return Copies().size();
  };
  EXPECT_EQ(actAfter(60s), 0U) << "nothing has changed";
  TRScript.ScriptFlags = 1;
  EXPECT_EQ(actAfter(59s), 0U);
  EXPECT_EQ(actAfter(1s), 1U);
  EXPECT_EQ(actAfter(60s), 1U) << "one copy is enough";
  TRScript.ScriptFlags = 2;
  TheDesktop().ShowError("", "");
  EXPECT_EQ(Copies().size(), 1U) << "not while a box is open";
  recovery.ScriptIsSaved();
  recovery.ActIsOver();
  recovery.Look();
  EXPECT_EQ(Copies().size(), 1U) << "it is saved";

  TRScript.ScriptFlags = 3;
  recovery.ReplacementBegins();
  EXPECT_EQ(Copies().size(), 2U) << "a load leaves nothing of it";
  TRScript.ScriptFlags = 4;
  EXPECT_EQ(actAfter(60s), 2U) << "half a script";
  recovery.ReplacementEnds();
  EXPECT_EQ(actAfter(0s), 2U);
  recovery.Look();
  EXPECT_EQ(Copies().size(), 2U) << "as it was loaded";
}

TEST_F(RecoveryTest, TheProgramTellsOfActsReplacementsAndItsEnd) {
  const SilentScreen screen;
  TRScript.Levels.Redim(1);
  TRScript.NumLevels = 1;
  KeepRecoveryCopies();
  TRScript.ScriptFlags = 1;
  New();
  EXPECT_EQ(Copies().size(), 1U) << "it begins";
  TheDesktop().RunAct("", [] {});
  TRScript.ScriptFlags = 2;
  TheDesktop().RunAct("", [] { throw ProcessEnd{}; });
  TheDesktop().RunAct("", [] { ADD_FAILURE() << "nothing runs any more"; });
  EXPECT_EQ(Copies().size(), 2U);
  SetScriptListeners({});
}

TEST_F(RecoveryTest, TroubleIsPassedOverAndTriedAgain) {
  Recovery recovery;
  TRScript.ScriptFlags = 1;
  recovery.Look();
  EXPECT_FALSE(fs::exists(Path("recovered"))) << "nothing is loaded";
  MakeFile(Path("recovered"), "no folder");
  TRScript.Levels.Redim(1);
  TRScript.NumLevels = 1;
  recovery.Look();
  EXPECT_EQ(Bytes(Path("recovered")), "no folder");
  recovery.ReplacementBegins();  // and is cancelled
  recovery.ReplacementEnds();
  fs::remove(Path("recovered"));
  recovery.Look();
  EXPECT_EQ(Copies().size(), 1U);
}

TEST_F(RecoveryTest, TenStayAndWhateverTheUserTouched) {
  const std::vector<FileCopy> files = {{.name = "SCRIPT.DAT", .bytes = "one"}};
  PutIntoRecoveryFolder(files);
  const fs::path made = Copies().at(0);
  std::tm named{};
  std::istringstream(made.filename().string()) >> std::get_time(&named, "%Y-%m-%d %H.%M.%S");
  named.tm_isdst = -1;
  EXPECT_NEAR(std::difftime(std::time(nullptr), std::mktime(&named)), 0, 30);
  const std::string note = Bytes((made / "copy.txt").string());
  EXPECT_NE(note.find("SCRIPT.DAT, 3 bytes"), std::string::npos) << note;
  auto time = fs::last_write_time(made / "copy.txt") + 1h;
  const auto copyTo = [&](const std::string& name) {
    fs::copy(made, Path("recovered/" + name));
    fs::last_write_time(Path("recovered/" + name + "/copy.txt"), time += 1min);
    return Path("recovered/" + name);
  };
  const std::string changed = copyTo("2001-01-01 00.00.00");
  MakeFile(changed + "/SCRIPT.DAT", "two");
  const std::string extended = copyTo("2001-01-02 00.00.00");
  MakeFile(extended + "/notes.txt", "mine");
  const std::string deepened = copyTo("2001-01-03 00.00.00");
  fs::create_directory(deepened + "/more");
  const std::string renamed = copyTo("2001-01-03 00.00.00 good");
  std::vector<std::string> old;  // by names and times of a clock that was set back since then
  for (const char i : std::string("0123456789")) {
    old.push_back(copyTo("2099-01-01 00.00.00 (" + std::string(1, i) + ")"));
  }
  MakeFile(Path("recovered/2001-01-04 00.00.00"), "a file");

  PutIntoRecoveryFolder(files);
  PutIntoRecoveryFolder(files);
  EXPECT_FALSE(fs::exists(old[0]));
  EXPECT_FALSE(fs::exists(old[1])) << "the first of the two new ones is newer";
  EXPECT_EQ(Copies().size(), 15U) << "ten, and five of the user's";
  for (const std::string& kept : {changed, extended, deepened, renamed, old[2]}) {
    EXPECT_TRUE(fs::exists(kept)) << kept;
  }
}

}  // namespace
}  // namespace quillmark
