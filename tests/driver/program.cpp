#include "driver/program.h"

#include <algorithm>
#include <cstdint>

#include "core/script_model.h"
#include "editor/editor.h"
#include "frame/inventory.h"
#include "frame/settings.h"
#include "frame/startup.h"
#include "platform/desktop.h"
#include "strings/language_files.h"
#include "tools/listing.h"

namespace quillmark {

namespace {

/// "FORM.MENU" of the popup menu that is open; null if none is.
Json OpenPopupName() {
  const PopupMenu* const popup = TheDesktop().Popup();
  if (popup == nullptr) return nullptr;
  return popup->Owner().Name() + "." + popup->FullName();
}

Json StringPool() {
  Json strings = Json::array();
  const auto& pool = StringsMod.StringPool;
  const auto count = static_cast<std::size_t>(std::max<std::int16_t>(StringsMod.NumStrings, 0));
  for (std::size_t i = 0; i < std::min(count, pool.size()); ++i) {
    strings.push_back(TextOfBytes(pool[i]));
  }
  return strings;
}

Json ItemsWithContent() {
  Json items = Json::array();
  for (const Tr5Item& item : Tr5Items) {
    if (item.Id == 0 && item.Name.empty()) continue;
    items.push_back({{"Id", item.Id.value()}, {"Name", TextOfBytes(item.Name)}});
  }
  return items;
}

}  // namespace

bool CallOperation(const std::string& name) {
  for (const PublicOperation& operation : PublicOperations()) {
    if (operation.name != name) continue;
    TheDesktop().RunAct(name, operation.run);
    return true;
  }
  throw CommandError("unknown operation: " + name);
}

Json ProgramState() {
  const auto [width, height] = TheDesktop().TheScreen().Size();
  return {{"ScriptPath", TRScript.ScriptPath},
          {"ScriptSaved", TRScript.ScriptSaved.value()},
          {"ClipboardFull", EditorMod.ClipboardFull.value()},
          {"StringPool", StringPool()},
          {"pointer", static_cast<int>(TheDesktop().ThePointer())},
          {"screen", {width, height}},
          {"InterfaceFile", TextOfBytes(Settings.InterfaceFile)},
          {"Tr5Items", ItemsWithContent()},
          {"popup", OpenPopupName()}};
}

}  // namespace quillmark
