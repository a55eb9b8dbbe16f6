#include "walk/act_rules.h"

#include <regex>
#include <utility>
#include <vector>

namespace quillmark {
namespace {

// A refresh of the panel stores what its own events store: the film without its flag, the mirror's
// value if it can't be shown. It faults for a number that a combo has no row for.
#define REFRESH "@/Fmv|@/MirrorValue"
constexpr std::string_view kRefreshFaults = "invalid value|missing selection|subscript|overflow";
constexpr std::string_view kFieldFaults = "missing selection|subscript";

constexpr std::string_view kEverything = ".*";
constexpr std::string_view kLevels = "/NumLevels|/Levels/.*|/LevelOffsets/.*";
constexpr std::string_view kNamePaths = "/NumFileNames|/FileNames/.*|/FileNameOffsets/.*";
constexpr std::string_view kNothing;

#define MAIN "\\w+ frmEditor\\."

/// The first that fits an act counts.
constexpr ActRule kRules[] = {
    // Whole scripts. What Load and Save catch is told in boxes of their own.
    {MAIN "Command7\\b.*", kEverything, "invalid value|missing selection|subscript"},
    {MAIN "Command24\\b.*", kEverything, "file|invalid value|subscript"},
    {MAIN "Command15\\b.*", kEverything, kNothing},
    {"\\w+ frmSelScript\\..*", kEverything, "invalid value|missing selection|subscript"},
    // The list of levels.
    {"key frmEditor\\.lstLevels Delete", kLevels, kRefreshFaults},
    {MAIN "lstLevels\\b.*", REFRESH, kRefreshFaults},
    {MAIN "cmdAddLevel\\b.*", kLevels, kRefreshFaults},
    {MAIN "(Command19|cmdLevelDelete)\\b.*", kLevels, kRefreshFaults},
    {MAIN "mnuEraseAll\\b.*", kLevels, kNothing},
    {MAIN "Command2[016]\\b.*", "/Levels/.*", kRefreshFaults},
    {MAIN "Command25\\b.*", REFRESH, kRefreshFaults},
    // Check boxes: the space bar and the arrows change the box alone.
    {"(key|space) frmEditor\\.(chk\\w+|check1).*", kNothing, kNothing},
    {MAIN "(chkTrain|chkNo|chkWe)\\b.*", kNothing, kNothing},
    {MAIN "chkLayer1\\b.*", "@/LevelFlags|@/Layer1On", kFieldFaults},
    {MAIN "chkLayer2\\b.*", "@/LevelFlags|@/Layer2On", kFieldFaults},
    {MAIN "chkLens\\b.*", "@/LevelFlags|@/LensFlareOn", kFieldFaults},
    {MAIN "chkFog\\b.*", "@/FogOn", kFieldFaults},
    {MAIN "chkMirror\\b.*", "@/MirrorOn", kFieldFaults},
    {MAIN "chkUV\\b.*", "@/UVRotateOn", kFieldFaults},
    {MAIN "(chk\\w+|check1)\\b.*", "@/LevelFlags", kFieldFaults},
    // Combos.
    {MAIN "cmbCut\\b.*", "@/Cut", kFieldFaults},
    {MAIN "cmbFMV\\b.*", "@/Fmv", kFieldFaults},
    {MAIN "cmbFN\\b.*", "@/FileNameIndex", kFieldFaults},
    {MAIN "cmbName\\b.*", "@/NameString|" REFRESH, kRefreshFaults},
    {MAIN "cmbLegend\\b.*", "@/LegendOn|@/Legend|" REFRESH, kRefreshFaults},
    // Text boxes. What is pasted stays on the screen, but for the mirror's value.
    {"\\w+ frmEditor\\.txtMirrorValue.*", "@/MirrorValue", kFieldFaults},
    {"paste frmEditor\\.txtFind.*", kNothing, "missing selection|subscript|invalid value"},
    {"paste frmEditor\\..*", kNothing, kNothing},
    {MAIN "txtFog\\b.*", "@/Fog/\\d", "missing selection|subscript|type|overflow"},
    {MAIN "txtLayer1\\b.*", "@/Layer1/\\d", "missing selection|subscript|type|overflow"},
    {MAIN "txtLayer2\\b.*", "@/Layer2/\\d", "missing selection|subscript|type|overflow"},
    {MAIN "txtL\\b.*", "@/LensFlare(Pos|Colour)/\\d", "missing selection|subscript|type|overflow"},
    {MAIN "txtTrack\\b.*", "@/AudioTrack", kFieldFaults},
    {MAIN "txtCamera\\b.*", "@/Camera/\\d|@/CameraRoom", kFieldFaults},
    {MAIN "txtMirrorRoom\\b.*", "@/MirrorRoom", kFieldFaults},
    {MAIN "txtResetHUB\\b.*", "@/ResetHub", kFieldFaults},
    {MAIN "txtUV\\b.*", "@/UVRotate", kFieldFaults},
    {MAIN "Command10\\b.*", "@/MirrorOn|@/MirrorRoom|" REFRESH,
     "missing selection|subscript|type|overflow|invalid value"},
    {MAIN "Command29\\b.*", "/LevelOffsets/.*|@/LevelRaw/.*",
     "missing selection|subscript|overflow"},
    // Objects and films.
    {MAIN "(Command5|Command14|Command18)\\b.*", "@/ObjectCount|@/Objects/.*|" REFRESH,
     kRefreshFaults},
    {MAIN "Command12\\b.*", "@/Objects/.*", kRefreshFaults},
    {MAIN "Command17\\b.*", kNothing, "overflow"},
    {MAIN "(lstObj|txtFind)\\b.*", kNothing, "missing selection|subscript|invalid value"},
    {MAIN "Command[34]\\b.*", "@/CutCount|@/Cuts/.*", "missing selection|subscript|overflow"},
    // File names.
    {MAIN "(Command1|Command2|Command16)\\b.*", kNamePaths,
     "missing selection|subscript|invalid value|overflow"},
    {"key frmEditor\\.lstFileNames Delete", kNamePaths,
     "missing selection|subscript|invalid value"},
    {MAIN "mnuEraseAllFiles\\b.*", kNamePaths, kNothing},
    // Strings.
    {MAIN "(Command6|Command22)\\b.*", REFRESH, kRefreshFaults},
    {"\\w+ Form2\\.(Command1|Command2)\\b.*", "/Languages/.*|" REFRESH, kRefreshFaults},
    {"\\w+ Form2\\b.*", "/Languages/\\w+/Strings/\\d+|" REFRESH, kRefreshFaults},
    {"\\w+ fss\\..*", kNothing, "missing selection|subscript|invalid value"},
    {MAIN "Command32\\b.*", kNothing, "invalid value|subscript"},
    {"\\w+ frmStrings\\b.*", "@/LegendOn|@/Legend|" REFRESH,
     "type|invalid value|missing selection|subscript"},
    // Dialogs.
    {MAIN "Command13\\b.*", "/\\w+Ext", kNothing},
    {"\\w+ frmEx\\b.*", "/\\w+Ext", kNothing},
    {"\\w+ frmOptions\\b.*", "/ScriptFlags|/ScriptFrameRate|/ScriptSecurity", "type|overflow"},
    {"\\w+ frmLangEditor\\b.*", "/\\w+Ext", "file|missing selection|subscript"},
    {MAIN "Command28\\b.*", kNothing, "file|missing selection|subscript"},
    {MAIN "Command30\\b.*", kNothing, "file|invalid argument|subscript"},
    {"\\w+ OldPrototipe\\..*", kNothing, "subscript"},
    {"timer", kEverything, kNothing},
};

}  // namespace

ActRule RuleOf(const std::string& line) {
  static const std::vector<std::pair<std::regex, ActRule>> rules = [] {
    std::vector<std::pair<std::regex, ActRule>> made;
    for (const ActRule& rule : kRules) made.emplace_back(std::string(rule.acts), rule);
    return made;
  }();
  for (const auto& [acts, rule] : rules) {
    if (std::regex_match(line, acts)) return rule;
  }
  return {line, kNothing, kNothing};
}

}  // namespace quillmark
