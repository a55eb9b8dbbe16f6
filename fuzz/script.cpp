// A script of one game: whatever loads or fails can be listed, and what can be saved loads again to
// the same listing but for what a save is known to lose.

#include <nlohmann/json.hpp>

#include "core/level_stream.h"
#include "core/script_dat.h"
#include "core/script_model.h"
#include "fuzz/workspace.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "tools/listing.h"

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

void TestScript(std::string_view script) {
  PutFile(kScriptName, script);
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
