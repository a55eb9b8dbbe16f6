#include "walk/saved_script.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <nlohmann/json.hpp>
#include <regex>
#include <string_view>
#include <vector>

#include "core/level_stream.h"
#include "core/script_model.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "strings/language_files.h"
#include "tools/adventure.h"
#include "tools/json_text.h"
#include "tools/listing.h"
#include "walk/checks.h"

namespace quillmark {
namespace {

bool IsTr4() { return TRScript.ScriptKind == kTr4; }

/// The highest numbers of objects that have opcodes, by kind. Objects of other kinds are left out
/// of the game's streams.
const std::vector<int>& HighestNumbers() {
  static const std::vector<int> tr4 = {12, 12, 4, 8, 8, 4, 3};
  static const std::vector<int> tr5 = {8, 8, 4, 4};
  return IsTr4() ? tr4 : tr5;
}

bool IsWritten(int kind) { return kind >= 0 && kind < std::ssize(HighestNumbers()); }

bool IsCombo(int kind) { return kind >= 3 && kind <= 5; }

bool IsReadable(const LevelObject& object) {
  const int kind = object.Kind;
  if (!IsWritten(kind)) return true;
  const int highest = HighestNumbers()[static_cast<std::size_t>(kind)];
  return object.Id >= 1 && object.Id <= highest &&
         (!IsCombo(kind) || object.Combo == 1 || object.Combo == 2);
}

/// Behind a refresh that failed a new film can get the number of a row of another level.
bool IsReadableFilm(const CutEntry& cut) { return cut.Type >= 1 && cut.Type <= 4; }

bool ScriptIsReadable() {
  if (TRScript.NumFileNames == 0) return false;
  for (const std::string* extension : ShownExtensions(TRScript)) {
    if (extension->size() != kExtensionLength) return false;  // the dialog has cut it
  }
  for (const LevelRecord& level : TRScript.Levels.First(TRScript.NumLevels)) {
    const auto objects = level.Objects.First(std::max<int>(0, level.ObjectCount));
    const auto cuts = level.Cuts.First(level.CutCount);
    if (!std::all_of(objects.begin(), objects.end(), IsReadable)) return false;
    if (!std::all_of(cuts.begin(), cuts.end(), IsReadableFilm)) return false;
  }
  return true;
}

/// Takes the fields out whose names match.
void Lose(Json& fields, const std::string& names) {
  const std::regex lost(names);
  for (auto field = fields.begin(); field != fields.end();) {
    field = std::regex_match(field.key(), lost) ? fields.erase(field) : std::next(field);
  }
}

/// Of the objects a save keeps those that are written, in the order of their kinds.
Json KeptObjects(const Json& listed) {
  std::vector<Json> objects;
  for (Json object : listed) {
    if (!IsWritten(object["Kind"])) continue;
    if (!IsCombo(object["Kind"])) object["Combo"] = 0;
    objects.push_back(object);
  }
  std::stable_sort(objects.begin(), objects.end(),
                   [](const Json& a, const Json& b) { return a["Kind"] < b["Kind"]; });
  return objects;
}

/// The listing without what a save does not keep. The names of the languages double with every load
/// of one run.
Json KeptListing() {
  Json listing = ListScript();
  Lose(listing, "ExtReserved|LanguageNames|Languages|NumStrings");
  for (Json& level : listing["Levels"]) {
    Lose(level, "Mips|LevelRaw|UVRotateOn|ObjectCount");
    for (const std::string part : {"Layer1", "Layer2", "Legend", "LensFlare", "Fog", "Mirror"}) {
      if (level[part + "On"] != kOn) Lose(level, part + ".*");
    }
    Lose(level, IsTr4() ? "Tr5List.*"
                        : "(Camera|ResetHub|Legend|LensFlare|Fog|Mirror|KeyCombo|PickupCombo|"
                          "Examine).*");
    level["Objects"] = KeptObjects(level["Objects"]);
  }
  Lose(listing["Levels"][0],
       IsTr4() ? "NameString|FileNameIndex|LevelFlags" : "NameString|FileNameIndex");
  return listing;
}

/// The mask's own character comes back as a zero, and the last string takes the tail of a file that
/// was longer than what was saved.
bool ComesBack(const LanguageSlot& saved, const LanguageSlot& loaded) {
  for (int i = 0; i < saved.Total; ++i) {
    std::string wanted(saved.Strings[i]);
    std::replace(wanted.begin(), wanted.end(), '\\', '\0');
    const std::string_view read = loaded.Strings[i];
    if (i + 1 < saved.Total ? read != wanted : !read.starts_with(wanted)) return false;
  }
  return saved.Total == loaded.Total;
}

/// Lines of a scenario that load the saved script and look for what it should hold.
std::string Expectation(const std::filesystem::path& path, const Json& saved,
                        const std::string& place) {
  std::string language = "none.dat";
  for (int i = 0; i < kLanguageCount; ++i) {
    if (IsOn(StringsMod.Slots[i].Loaded)) language = LanguageFileName(static_cast<Language>(i));
  }
  const std::string folder = path.parent_path().filename().string() + "/";
  const Json::json_pointer pointer(place);
  return "> press OK\n@ include load.inc " + folder + path.filename().string() + " " + folder +
         language + (IsTr4() ? "" : "\n> click frmSelScript.Option2") +
         "\n> click frmSelScript.Command1\nmodel " + place + " " +
         (saved.contains(pointer) ? JsonLine(saved[pointer]) : "null");
}

void Load(const std::string& path, std::uint8_t game) {
  ForgetLanguages();
  TRScript = {};
  try {
    if (LoadAdventure(path, game)) return Files.CloseFiles();
  } catch (const Fault&) {
  } catch (const MissingEndOfData&) {
  }
  throw Finding{"a saved script can't be loaded", "# " + path};
}

}  // namespace

void CheckSavedScript(const std::string& path) {
  if (!ScriptIsReadable()) return;
  const ScriptModel script = TRScript;
  const StringsModule strings = StringsMod;
  const Json saved = KeptListing();
  Load(path, script.ScriptKind);
  const Json loaded = KeptListing();
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
