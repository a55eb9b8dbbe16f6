// What copies, inserts, deletions and moves of levels carry along, field by field, and the limits
// of the lists beside them, on the logical form with lists that are long enough for every value.

#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "controls/desktop.h"
#include "editor/editor_form.h"
#include "platform/fault.h"
#include "strings/language_files.h"
#include "support/silent_screen.h"
#include "tools/listing.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

/// Gives every number of a record another value, from 1 to 120.
class Filler {
 public:
  explicit Filler(int seed) : last_(seed) {}

  template <class... Fields>
  void All(Fields&... fields) {
    (Fill(fields), ...);
  }

 private:
  template <class Raw>
  void Fill(CheckedInteger<Raw>& number) {
    last_ = last_ % 120 + 1;
    number = last_;
  }
  template <class Entry, std::size_t Count>
  void Fill(FixedArray<Entry, Count>& entries) {
    for (Entry& entry : entries) Fill(entry);
  }
  void Fill(ObjectEntry& entry) { All(entry.Params, entry.Id, entry.StringId); }
  void Fill(ComboEntry& entry) { All(entry.Params, entry.Id, entry.StringId, entry.Combo); }
  void Fill(CutEntry& entry) { All(entry.Type, entry.Value); }
  void Fill(MipEntry& entry) { All(entry.Low, entry.High); }
  void Fill(LevelObject& object) {
    All(object.Id, object.StringId, object.Combo, object.Params);
    object.Kind = last_ % kObjectKindCount;
  }

  int last_;
};

/// A level in which nothing is zero, and which a refresh shows without a change.
LevelRecord FilledLevel(int seed) {
  LevelRecord l;
  Filler(seed).All(l.Puzzles, l.Keys, l.PuzzleCombos, l.KeyCombos, l.Pickups, l.PickupCombos,
                   l.Examines, l.Fmv, l.Cut, l.Cuts, l.ResetHub, l.Layer1, l.Layer2, l.LensFlarePos,
                   l.LensFlareColour, l.MirrorRoom, l.Camera, l.CameraRoom, l.NameString,
                   l.LevelFlags, l.FileNameIndex, l.AudioTrack, l.MipCount, l.Mips, l.UVRotate,
                   l.Legend, l.Fog, l.Objects, l.Tr5ListA, l.Tr5ListB);
  for (Byte* count :
       {&l.PuzzleCount, &l.KeyCount, &l.PuzzleComboCount, &l.KeyComboCount, &l.PickupCount,
        &l.PickupComboCount, &l.ExamineCount, &l.CutCount, &l.Tr5ListACount, &l.Tr5ListBCount}) {
    *count = 1 + (seed + 1) % 3;
  }
  l.ObjectCount = 2 + seed % 3;
  l.MirrorValue = 0x100 * (seed % 9 + 1);
  l.MirrorOn = l.UVRotateOn = l.FogOn = kOn;
  // What a copy holds is not the same in two levels behind each other.
  l.Layer1On = l.Layer2On = l.LensFlareOn = OnOff(seed % 2 == 1);
  l.LegendOn = OnOff(seed % 2 == 0);
  return l;
}

const std::set<std::string> kCopied = {
    "Cut",         "Fmv",         "AudioTrack", "FileNameIndex",    "LevelFlags",   "NameString",
    "Layer1On",    "Layer2On",    "Layer1",     "Layer2",           "UVRotate",     "MirrorRoom",
    "MirrorValue", "LensFlareOn", "LegendOn",   "LensFlareColour",  "PuzzleCount",  "Puzzles",
    "KeyCount",    "Keys",        "Pickups",    "PickupCount",      "PuzzleCombos", "CutCount",
    "ObjectCount", "Objects",     "Cuts",       "PuzzleComboCount", "ResetHub",     "Camera",
    "CameraRoom"};

/// `target` with a copy of `source` in it.
Json Copied(const Json& source, Json target) {
  for (const std::string& name : kCopied) target[name] = source[name];
  const Json& flare = source["LensFlarePos"];
  target["LensFlarePos"] = {flare[2], flare[1], flare[2]};
  target["Legend"] = source["LegendOn"] == -1 ? 255 : 0;
  return target;
}

/// The level as an insert leaves the one that it makes.
Json Cleared(Json level) {
  for (const char* name : {"Fmv", "FogOn", "AudioTrack", "FileNameIndex", "LevelFlags",
                           "NameString", "Layer1On", "Layer2On", "LegendOn", "LensFlareOn",
                           "MirrorOn", "MipCount", "ResetHub", "UVRotate", "UVRotateOn"}) {
    level[name] = 0;
  }
  for (const std::string name : {"Object", "Examine", "Key", "KeyCombo", "Pickup", "PickupCombo",
                                 "Puzzle", "PuzzleCombo", "Cut"}) {
    level[name + "Count"] = 0;
    level[name + "s"] = Json::array();
  }
  level["Camera"][3] = 0;
  return level;
}

/// Answers every input box.
class AnsweringScreen : public SilentScreen {
 public:
  std::string answer;
  std::optional<std::string> AskText(const InputBox& /*box*/) override { return answer; }
};

/// Five levels and a spare one, all in use, and the main form beside them.
class EditorLevelsTest : public CoreTest {
 protected:
  EditorLevelsTest() {
    EditorMod = {};
    AttachEditor();
    frmEditor.Load();
    TRScript.NumLevels = kLevels;
    TRScript.Levels.Redim(kLevels);
    for (int i = 0; i <= kLevels; ++i) TRScript.Levels[i] = FilledLevel(17 * i);
    StringsMod.NumStrings = kRows;
    StringsMod.StringPool.Redim(kRows);
    for (int i = 0; i < kRows; ++i) {
      StringsMod.StringPool[i] = "string " + std::to_string(i);
      for (ComboBox* combo : {&frmEditor.cmbName, &frmEditor.cmbLegend, &frmEditor.cmbString,
                              &frmEditor.cmbFN, &frmEditor.cmbCut, &frmEditor.cmbFMV}) {
        combo->AddRow(StringsMod.StringPool[i]);
      }
    }
    RebuildLevelRows();
  }
  ~EditorLevelsTest() override { TheDesktop().Reset(); }

  /// Shows that level, and lists all of them then.
  static Json Select(int level) {
    frmEditor.lstLevels.Select(level);
    return Levels();
  }
  /// The levels with the spare one.
  static Json Levels() {
    const Byte count = TRScript.NumLevels;
    TRScript.NumLevels = std::ssize(TRScript.Levels);
    Json levels = ListScript()["Levels"];
    TRScript.NumLevels = count;
    return levels;
  }

  static constexpr int kLevels = 5;
  static constexpr int kRows = 300;
  AnsweringScreen screen_;
};

TEST_F(EditorLevelsTest, AnInsertMovesTheLevelsAndClearsItsOwn) {
  TRScript.Levels[0].NameString = TRScript.Levels[2].NameString;
  const Json before = Select(2);
  const LevelRecord old = TRScript.Levels[2];
  frmEditor.Command19.onPress();
  const Json after = Levels();
  EXPECT_EQ(TRScript.NumLevels, kLevels + 1);
  EXPECT_EQ(TRScript.Levels.size(), kLevels + 3U);
  EXPECT_EQ(after[0], before[0]);
  EXPECT_EQ(after[1], before[1]);
  EXPECT_EQ(after[2], Cleared(Copied(before[1], before[2])));
  // What stands behind the count of the level above stays.
  EXPECT_EQ(TRScript.Levels[2].Cuts[1].Value, old.Cuts[1].Value);
  EXPECT_EQ(TRScript.Levels[2].Puzzles[1].StringId, old.Puzzles[1].StringId);
  EXPECT_EQ(TRScript.Levels[2].Objects[4].StringId, old.Objects[4].StringId);
  EXPECT_EQ(frmEditor.lstCuts.Count(), TRScript.Levels[0].CutCount) << "its last refresh";
  for (std::size_t i = 3; i <= kLevels; ++i) {
    EXPECT_EQ(after[i], Copied(before[i - 1], before[i])) << i;
  }
}

TEST_F(EditorLevelsTest, ADeletionMovesTheLevelsAndLeavesOneSpare) {
  const Json before = Select(2);
  frmEditor.cmdLevelDelete.onPress();
  Json after = Levels();
  EXPECT_EQ(TRScript.NumLevels, kLevels - 1);
  ASSERT_EQ(after.size(), std::size_t{kLevels});
  EXPECT_EQ(after[1], before[1]);
  for (std::size_t i = 2; i < kLevels - 1; ++i) {
    EXPECT_EQ(after[i], Copied(before[i + 1], before[i])) << i;
  }
  EXPECT_EQ(after[kLevels - 1], before[kLevels - 1]);

  // The spare one comes back with what it held; the one behind it went with the deletion.
  frmEditor.cmdAddLevel.onPress();
  frmEditor.cmdAddLevel.onPress();
  after = Levels();
  EXPECT_EQ(after[kLevels - 1], before[kLevels - 1]);
  EXPECT_EQ(after[kLevels]["AudioTrack"], 0);
  EXPECT_EQ(after[kLevels]["Objects"], Json::array());
  EXPECT_EQ(frmEditor.Label8.Caption(), "6");
  EXPECT_TRUE(frmEditor.Command25.Enabled() && frmEditor.Command26.Enabled());
}

TEST_F(EditorLevelsTest, AMoveSwapsThroughTheClipboard) {
  for (const int step : {-1, 1}) {
    const std::size_t level = 3;
    const std::size_t other = level + static_cast<std::size_t>(step);
    const Json before = Select(static_cast<int>(level));
    (step < 0 ? frmEditor.Command20 : frmEditor.Command21).onPress();
    const Json after = Levels();
    EXPECT_EQ(frmEditor.lstLevels.Row(), static_cast<int>(other));
    EXPECT_EQ(after[other], Copied(before[level], before[other]));
    const Json parked = Copied(before[other], before[level]);
    EXPECT_EQ(after[level], Copied(parked, before[level]));
  }
}

TEST_F(EditorLevelsTest, TheLegendsRowEndsWhereItsByteEnds) {
  Select(1);
  LevelRecord& level = TRScript.Levels[1];
  level.LegendOn = kOff;
  for (const auto& [row, legend] : std::map<int, int>{{1, 0}, {255, 254}}) {
    frmEditor.cmbLegend.Select(row);
    EXPECT_EQ(level.LegendOn, kOn);
    EXPECT_EQ(level.Legend, legend);
  }
  frmEditor.cmbLegend.Select(256);
  EXPECT_EQ(level.Legend, 254);
  EXPECT_EQ(frmEditor.cmbLegend.Row(), 255) << "the refresh puts it back";
  frmEditor.cmbName.Select(255);
  EXPECT_EQ(level.NameString, 255);
  frmEditor.cmbName.Select(256);
  EXPECT_EQ(level.NameString, 255);
  EXPECT_EQ(frmEditor.lstLevels.Text(), "string 255");
}

TEST_F(EditorLevelsTest, FilmsAreShownWithoutTheirFlag) {
  for (const auto& [film, row] : std::map<int, int>{{127, 127}, {128, 0}, {129, 1}, {255, 127}}) {
    Select(2);
    TRScript.Levels[1].Fmv = film;
    Select(1);
    EXPECT_EQ(frmEditor.cmbFMV.Row(), row) << film;
    EXPECT_EQ(TRScript.Levels[1].Fmv, row) << film;
  }
}

TEST_F(EditorLevelsTest, FileNamesCountInAByteAndAreComparedWithTheLevels) {
  const auto fill = [](int count) {
    TRScript.NumFileNames = count;
    TRScript.FileNames.Redim(count);
    frmEditor.lstFileNames.Clear();
    for (int i = 0; i < count; ++i) {
      TRScript.FileNames[i] = "DATA\\" + std::to_string(i) + '\0';
      frmEditor.lstFileNames.AddRow(TRScript.FileNames[i]);
    }
  };
  Select(1);
  TRScript.Levels[1].FileNameIndex = 0;
  fill(254);
  screen_.answer = "last";
  frmEditor.Command1.onPress();
  EXPECT_EQ(TRScript.NumFileNames, 255);
  EXPECT_EQ(TRScript.FileNames[254], std::string("DATA\\last\0", 10));
  EXPECT_EQ(frmEditor.cmbFN.Count(), 255);
  try {
    frmEditor.Command1.onPress();
    ADD_FAILURE() << "the count is a byte";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind(), FaultKind::Overflow);
    EXPECT_EQ(fault.about(), "256 > 255");
  }
  EXPECT_EQ(TRScript.NumFileNames, 255);
  EXPECT_EQ(frmEditor.lstFileNames.Count(), 256) << "the row is there by then";

  for (const auto& [count, removed] :
       std::map<int, bool>{{kLevels - 1, true}, {kLevels, false}, {kLevels + 1, true}}) {
    fill(count);
    frmEditor.lstFileNames.Select(1);
    frmEditor.Command2.onPress();
    EXPECT_EQ(TRScript.NumFileNames, removed ? count - 1 : count);
    EXPECT_EQ(TRScript.FileNames[1], (removed ? "DATA\\2" : "DATA\\1") + std::string(1, '\0'));
  }
}

TEST_F(EditorLevelsTest, EachKindOfObjectHasItsPictureAndItsNumbers) {
  LevelRecord& level = TRScript.Levels[1];
  level.ObjectCount = kObjectKindCount;
  for (int i = 0; i < kObjectKindCount; ++i) level.Objects[i].Kind = i;
  Select(1);
  std::string shown;
  for (int i = 0; i < kObjectKindCount; ++i) {
    const ListViewRow& row = frmEditor.lstObj.Rows()[static_cast<std::size_t>(i)];
    frmEditor.cmbType.Select(i);
    shown += row.cells[0] + " " + std::to_string(row.icon) + " " + frmEditor.cmbID.Rows().back() +
             (frmEditor.cmbCombo.Enabled() ? " 2nd, " : ", ");
  }
  EXPECT_EQ(shown,
            "Puzzle 1 12, Key 2 12, Pickup 3 4, Puzzle Combo 1 8 2nd, Key Combo 2 8 2nd, Pickup "
            "Combo 3 4 2nd, Examine 3 3, ");
  frmEditor.cmbType.onChange();
  EXPECT_EQ(frmEditor.cmbID.Row(), 1);
}

}  // namespace
}  // namespace quillmark
