#include "walk/saved_script.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "core/level_stream.h"
#include "core/script_dat.h"
#include "core/script_model.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "strings/language_files.h"
#include "tools/json_text.h"
#include "tools/listing.h"
#include "walk/checks.h"

namespace quillmark {
namespace {

constexpr int kPuzzleCombo = 3;

bool IsTr4() { return TRScript.ScriptKind == kTr4; }

/// Whether the object's number has an opcode in this game.
bool IsReadable(const LevelObject& object) {
  static constexpr int kHighestInTr4[] = {12, 12, 4, 8, 8, 4, 3};
  static constexpr int kHighestInTr5[] = {8, 8, 4, 4};
  const int kind = object.Kind;
  if (kind < 0 || kind > 6) return false;
  if (!IsTr4() && kind > kPuzzleCombo) return true;  // it is left out
  const int highest = IsTr4() ? kHighestInTr4[kind] : kHighestInTr5[kind];
  const bool isCombo = kind >= kPuzzleCombo && kind <= 5;
  return object.Id >= 1 && object.Id <= highest &&
         (!isCombo || object.Combo == 1 || object.Combo == 2);
}

bool IsReadable(const LevelRecord& level) {
  for (int i = 0; i < level.ObjectCount; ++i) {
    if (!IsReadable(level.Objects[i])) return false;
  }
  for (int i = 0; i < level.CutCount; ++i) {
    if (level.Cuts[i].Type < 1 || level.Cuts[i].Type > 4) return false;
  }
  return true;
}

bool ScriptIsReadable() {
  if (TRScript.NumFileNames == 0) return false;
  for (int i = 0; i < TRScript.NumFileNames; ++i) {
    if (TRScript.FileNames[i].empty()) return false;
  }
  for (const std::string* extension : ShownExtensions(TRScript)) {
    if (extension->size() != kExtensionLength) return false;  // the dialog has cut it
  }
  for (int i = 0; i < TRScript.NumLevels; ++i) {
    if (!IsReadable(TRScript.Levels[i])) return false;
  }
  return true;
}

/// What of a level stands in the file, by the listing.
Json KeptLevel(const Json& level, int index) {
  std::vector<std::string> kept = {"Fmv", "UVRotate", "Cut", "CutCount", "Cuts", "AudioTrack"};
  const auto keep = [&](std::initializer_list<const char*> names) {
    kept.insert(kept.end(), names.begin(), names.end());
  };
  const auto keepIfOn = [&](const char* word, std::initializer_list<const char*> names) {
    if (level[word] == kOn) keep(names);
  };
  keepIfOn("Layer1On", {"Layer1On", "Layer1"});
  keepIfOn("Layer2On", {"Layer2On", "Layer2"});
  if (index > 0) keep({"NameString", "LevelFlags", "FileNameIndex"});
  if (IsTr4()) {
    keep({"Camera", "CameraRoom", "ResetHub"});
    keepIfOn("LegendOn", {"LegendOn", "Legend"});
    keepIfOn("LensFlareOn", {"LensFlareOn", "LensFlarePos", "LensFlareColour"});
    keepIfOn("FogOn", {"FogOn", "Fog"});
    keepIfOn("MirrorOn", {"MirrorOn", "MirrorValue", "MirrorRoom"});
  }
  Json result;
  for (const std::string& name : kept) result[name] = level[name];
  std::vector<Json> objects;
  for (Json object : level["Objects"]) {
    const int kind = object["Kind"];
    if (!IsTr4() && kind > kPuzzleCombo) continue;
    if (kind < kPuzzleCombo || kind > 5) object["Combo"] = 0;
    objects.push_back(object);
  }
  std::stable_sort(objects.begin(), objects.end(),
                   [](const Json& a, const Json& b) { return a["Kind"] < b["Kind"]; });
  result["Objects"] = objects;
  return result;
}

/// Without the names of the languages, which double with every load of one run.
Json KeptScript() {
  const Json listing = ListScript();
  Json kept;
  for (const char* name :
       {"ScriptFlags", "ScriptFrameRate", "ScriptSecurity", "NumLevels", "NumFileNames",
        "FileNamesSize", "ScriptDataSize", "PsxLevelExt", "PsxCutExt", "PsxFmvExt", "PcLevelExt",
        "PcCutExt", "PcFmvExt", "FileNameOffsets", "FileNames", "LevelOffsets"}) {
    kept[name] = listing[name];
  }
  int index = 0;
  for (const Json& level : listing["Levels"]) kept["Levels"].push_back(KeptLevel(level, index++));
  return kept;
}

/// The strings of a language as they come back: the mask's own character turns into a zero.
std::vector<std::string> KeptStrings(const LanguageSlot& slot) {
  std::vector<std::string> strings;
  for (int i = 0; i < slot.Total; ++i) {
    strings.emplace_back(slot.Strings[i]);
    std::replace(strings.back().begin(), strings.back().end(), '\\', '\0');
  }
  return strings;
}

/// The file may be longer than what was saved: its last string then takes the tail.
bool ComesBack(const LanguageSlot& saved, const LanguageSlot& loaded) {
  std::vector<std::string> wanted = KeptStrings(saved);
  std::vector<std::string> read = KeptStrings(loaded);
  if (wanted.size() != read.size()) return false;
  if (wanted.empty()) return true;
  return read.back().starts_with(wanted.back()) &&
         std::equal(wanted.begin(), wanted.end() - 1, read.begin());
}

/// Lines of a scenario that load the saved script and look for what it should hold.
std::string Expectation(const std::string& path, const Json& saved, const std::string& place) {
  std::string language = "none.dat";
  for (int i = 0; i < kLanguageCount; ++i) {
    if (IsOn(StringsMod.Slots[i].Loaded)) language = LanguageFileName(static_cast<Language>(i));
  }
  const Json::json_pointer pointer(place);
  std::string lines = "> press OK\n> click frmEditor.Command7\n";
  lines += R"(file open "${58}" "SCRIPT.DAT|SCRIPT.DAT")"
           "\n> choose \"" +
           path + "\"\n";
  lines += R"(file open "${59}" "<LANGUAGE>.DAT|*.dat")"
           "\n> choose \"" +
           JoinPath(GetPath(path), language) + "\"\n";
  if (!IsTr4()) lines += "> click frmSelScript.Option2\n";
  lines += "> click frmSelScript.Command1\nmodel " + place + " ";
  return lines + (saved.contains(pointer) ? JsonLine(saved[pointer]) : "null");
}

void Load(const std::string& path, std::uint8_t game) {
  ForgetLanguages();
  TRScript = {};
  LoadCallbacks callbacks;
  callbacks.chooseGame = [game] { TRScript.ScriptKind = game; };
  callbacks.languageFound = ReadFoundLanguage;
  try {
    if (!LoadScript(path, callbacks)) throw Finding{"a saved script is refused", "# " + path};
  } catch (const Fault& fault) {
    throw Finding{"a saved script can't be loaded", std::string("# ") + fault.what()};
  } catch (const MissingEndOfData&) {
    throw Finding{"a saved script has no end", "# " + path};
  }
  Files.CloseFiles();
}

}  // namespace

void CheckSavedScript(const std::string& path) {
  if (!ScriptIsReadable()) return;
  const ScriptModel script = TRScript;
  const StringsModule strings = StringsMod;
  const Json saved = KeptScript();
  Load(path, script.ScriptKind);
  const Json loaded = KeptScript();
  if (loaded != saved) {
    const std::string place = Json::diff(saved, loaded)[0]["path"];
    throw Finding{"a saved script loads to another one", Expectation(path, saved, place)};
  }
  for (int i = 0; i < kLanguageCount; ++i) {
    if (IsOn(strings.Slots[i].Loaded) && !ComesBack(strings.Slots[i], StringsMod.Slots[i])) {
      throw Finding{"a saved language loads to another one", "# " + std::to_string(i)};
    }
  }
  TRScript = script;
  StringsMod = strings;
}

}  // namespace quillmark
