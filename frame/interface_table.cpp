#include "frame/interface_table.h"

#include <algorithm>

#include "controls/desktop.h"
#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {
namespace {

constexpr int kTableFile = 1;
constexpr std::uint32_t kMagic = 0xCDCD00CDU;
constexpr int kMagicLength = 4;

constexpr int kErrorTitle = 0;
constexpr int kQuestionTitle = 20;

}  // namespace

FixedArray<std::string, kInterfaceEntries> InterfaceTable;
FixedArray<std::string, kInterfaceEntries> InterfaceNames;

bool ReadInterfaceTable() {
  Files.OpenBinary(kTableFile, ProgramPath("language.bin"));
  const Int32 magic = Files.ReadInt32(kTableFile);
  if (magic != static_cast<std::int32_t>(kMagic)) return false;

  const std::string texts = Files.ReadText(kTableFile, Files.Length(kTableFile) - kMagicLength);
  std::size_t from = 0;
  for (int index = 0; from < texts.size(); ++index) {
    const std::size_t end = std::min(texts.find('\0', from), texts.size());
    // Only an entry that has a text needs a place.
    if (end > from) InterfaceTable[index].append(texts, from, end - from);
    from = end + 1;
  }
  Files.CloseFiles();
  return true;
}

void ShowErrorEntry(int entry) {
  TheDesktop().ShowError(InterfaceTable[kErrorTitle], InterfaceTable[entry]);
}

bool AskQuestion(const std::string& text) {
  return TheDesktop().AskYesNo(InterfaceTable[kQuestionTitle], text);
}

}  // namespace quillmark
