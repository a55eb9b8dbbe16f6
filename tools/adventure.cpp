#include "tools/adventure.h"

#include "core/script_dat.h"
#include "strings/language_files.h"

namespace quillmark {

bool LoadAdventure(const std::string& path, std::uint8_t game) {
  LoadCallbacks callbacks;
  callbacks.chooseGame = [game] { TRScript.ScriptKind = game; };
  callbacks.languageFound = ReadFoundLanguage;
  return LoadScript(path, callbacks);
}

}  // namespace quillmark
