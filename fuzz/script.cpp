// A script of one game: whatever loads or fails can be listed and checked, what can be saved loads
// again to the same listing but for what a save is known to lose, and the text that it is exported
// to builds the same file.

#include <nlohmann/json.hpp>

#include "core/level_stream.h"
#include "core/script_dat.h"
#include "core/script_model.h"
#include "fuzz/workspace.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "tools/listing.h"
#include "tools/script/check.h"
#include "tools/script/json_form.h"
#include "tools/script/save_losses.h"
#include "tools/script/script_files.h"
#include "tools/script/script_json.h"
#include "tools/script/script_scan.h"
#include "tools/script/show.h"

namespace quillmark {
namespace {

constexpr std::uint8_t kGame = QUILLMARK_SCRIPT_KIND;
constexpr const char* kScriptName = "SCRIPT.DAT";
constexpr int kHighestWrittenTr5Combo = 4;

/// Runs `work`, which gives true for success. What a file's content can bring about is a number or
/// an index out of range, and nothing else.
template <class Work>
bool Succeeds(Work work) {
  try {
    return work();
  } catch (const Fault& fault) {
    Require(fault.kind() == FaultKind::Subscript || fault.kind() == FaultKind::Overflow,
            "a script faults by a number or an index alone");
  } catch (const MissingEndOfData&) {
  }
  return false;
}

bool Load() {
  Files.CloseAll();
  TRScript = {};
  LoadCallbacks callbacks;
  callbacks.chooseGame = [] { TRScript.ScriptKind = kGame; };
  return Succeeds([&] { return LoadScript(InWorkspace(kScriptName), callbacks); });
}

bool Save() {
  return Succeeds([] { return SaveScript(InWorkspace(kScriptName)); });
}

/// True if a saved file holds everything in a form that a load finds again: not without a file
/// name, and not with a combination that has no opcode.
bool SaveIsReadable() {
  if (TRScript.NumFileNames == 0) return false;
  if (kGame == kTr4) return true;
  for (int i = 0; i < TRScript.NumLevels; ++i) {
    const LevelRecord& level = TRScript.Levels[i];
    for (int at = 0; at < level.PuzzleComboCount; ++at) {
      if (level.PuzzleCombos[at].Id > kHighestWrittenTr5Combo) return false;
    }
  }
  return true;
}

/// The listing without what a save does not keep.
Json KeptListing() {
  Json listing = ListScript();
  listing["ExtReserved"] = nullptr;
  for (Json& level : listing["Levels"]) {
    level["Mips"] = nullptr;
    level["LevelRaw"] = nullptr;
    if (level["UVRotate"] == 0) level["UVRotateOn"] = kOff;
  }
  if (!listing["Levels"].empty()) {
    Json& title = listing["Levels"][0];
    title["NameString"] = 0;
    title["FileNameIndex"] = 0;
    if (kGame == kTr4) title["LevelFlags"] = 0;
  }
  return listing;
}

/// What the tool builds of its own text of the script; nothing if it refuses the one or the other.
std::string BuiltOfText() {
  const ScriptSource source = OpenSource(InWorkspace(kScriptName));
  CheckScript(source, kGame);
  try {
    const ScriptValue value = ReadScript(source, kGame, Beside::Nothing);
    ScriptText(value, std::nullopt);
    const Findings losses = SaveLosses(value, ScanScript(source.bytes, FormatOf(kGame)));
    Findings findings;
    const Json json = ParseJson(JsonDocument(ScriptToJson(value, losses)), findings);
    const ScriptValue again = ScriptFromJson(json, findings);
    if (HasSeverity(findings, Severity::Error)) return {};
    return ScriptFiles(again).front().bytes;
  } catch (const Trouble&) {
    return {};
  }
}

void TestScript(std::string_view script) {
  PutFile(kScriptName, script);
  const std::string builtOfText = BuiltOfText();
  const bool loaded = Load();
  ListScript();
  Require(FileBytes(kScriptName) == script, "a load leaves the file alone");
  if (!loaded) return;

  if (!Save()) {
    ListScript();
    return;
  }
  const Json saved = KeptListing();
  const std::string firstFile = FileBytes(kScriptName);
  Require(builtOfText == firstFile, "the tool builds of the exported text what a save writes");
  const bool readable = SaveIsReadable();
  Require(Save() && FileBytes(kScriptName) == firstFile, "a second save gives the same file");

  const bool loadedAgain = Load();
  if (!readable) return;
  Require(loadedAgain, "what was saved loads again");
  Require(KeptListing() == saved, "what was saved loads again to the same listing");
}

}  // namespace
}  // namespace quillmark

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillmark::TestScript(quillmark::InputBytes(data, size));
  return 0;
}
