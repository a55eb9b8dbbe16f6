// The entry names of the language editor: its rows are the fields of the file, fields written out
// are the same names again, and a save keeps the texts of the rows and nothing behind them.

#include <algorithm>
#include <string>
#include <vector>

#include "forms/dialog_forms.h"
#include "forms/interface_texts.h"
#include "frame/dialogs.h"
#include "frame/settings.h"
#include "fuzz/workspace.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "tests/support/silent_screen.h"

namespace quillmark {
namespace {

constexpr const char* kNamesName = "interface.h";
constexpr const char* kTableName = "language.bin";

/// False if there are more names than places.
bool LoadDialog() {
  frmLangEditor.Unload();
  Files.CloseAll();
  std::fill(InterfaceNames.begin(), InterfaceNames.end(), std::string());
  try {
    frmLangEditor.Load();
    return true;
  } catch (const Fault& fault) {
    Require(fault.kind() == FaultKind::Subscript, "names fault by their number alone");
    return false;
  }
}

/// The names that were read, each of which has its row.
std::vector<std::string> Names() {
  const auto& rows = frmLangEditor.l.Rows();
  Require(rows.size() <= InterfaceNames.size(), "names have 4097 places");
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Require(rows[i].cells.front() == ShownText(InterfaceNames[i]), "each name has its row");
  }
  return {InterfaceNames.begin(), InterfaceNames.begin() + std::ssize(rows)};
}

/// The names as a text that a reader takes apart in the same way.
std::string Written(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    const bool quoted = name.starts_with(' ') || name.find_first_of(",\r\n") != std::string::npos;
    text += quoted ? '"' + name + "\"\n" : name + '\n';
  }
  return text;
}

std::string TextOfEntry(int entry) { return "Text " + std::to_string(entry); }

void TestNames(std::string_view file) {
  PutFile(kNamesName, file);
  for (int i = 0; i < kInterfaceEntries; ++i) InterfaceTable[i] = TextOfEntry(i);
  const bool fits = LoadDialog();
  const std::vector<std::string> names = Names();
  Require(fits || names.size() == InterfaceNames.size(), "a fault comes behind 4097 names");
  if (!fits) return;

  PutFile(kNamesName, Written(names));
  Require(LoadDialog() && Names() == names, "names written out are the same again");

  PutFile(kTableName, "");
  Settings.InterfaceFile = kTableName;
  frmLangEditor.Command2.onPress();
  const int rows = static_cast<int>(names.size());
  for (int i = 0; i < kInterfaceEntries; ++i) {
    Require(InterfaceTable[i] == (i < rows ? TextOfEntry(i) : std::string()),
            "a save keeps the texts of the rows alone");
  }
}

}  // namespace
}  // namespace quillmark

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
  static quillmark::SilentScreen screen;
  quillmark::AttachLanguageEditor();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillmark::TestNames(quillmark::InputBytes(data, size));
  return 0;
}
