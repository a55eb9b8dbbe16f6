#include "tools/script/script_files.h"

#include "core/script_dat.h"
#include "platform/fault.h"
#include "tools/script/private_folder.h"
#include "tools/script/progress.h"

namespace quillmark {
namespace {

/// The state of the modules while a save runs on it.
class SavedState {
 public:
  explicit SavedState(const ScriptModel& model) {
    TRScript = model;
    StringsMod = {};
  }
  ~SavedState() {
    TRScript = {};
    StringsMod = {};
  }
  SavedState(const SavedState&) = delete;
  SavedState& operator=(const SavedState&) = delete;
};

}  // namespace

std::vector<NewFile> ScriptFiles(const ScriptValue& value) {
  std::vector<NewFile> files;
  {
    TellProgress("Building the script");
    const PrivateFolder folder;
    const SavedState state(value.model);
    folder.Put(kScriptName, "");
    SaveScript(folder.PathOf(kScriptName));
    files.push_back({std::string(kScriptName), folder.Take(kScriptName)});
  }
  for (const Language language : LoadedLanguages(value)) {
    files.push_back({std::string(LanguageFileName(language)),
                     LanguageFile(language, value.languages[static_cast<int>(language)])});
  }
  return files;
}

std::string LanguageFile(Language language, const LanguageSlot& slot) {
  const PrivateFolder folder;
  const SavedState state({});
  Slot(language) = slot;
  const std::string_view name = LanguageFileName(language);
  if (!WriteLanguage(language, folder.PathOf(name))) {
    throw Fault(FaultKind::File, std::string(name) + " can't be written");
  }
  return folder.Take(name);
}

}  // namespace quillmark
