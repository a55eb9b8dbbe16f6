#include "forms/interface_texts.h"

#include "controls/desktop.h"

namespace quillmark {

FixedArray<std::string, kInterfaceEntries> InterfaceTable;
FixedArray<std::string, kInterfaceEntries> InterfaceNames;

const std::string& TextOf(Entry entry) { return InterfaceTable[static_cast<int>(entry)]; }

void ShowErrorEntry(Entry entry) { TheDesktop().ShowError(TextOf(Entry::Error), TextOf(entry)); }

bool AskQuestion(const std::string& text) {
  return TheDesktop().AskYesNo(TextOf(Entry::QuestionTitle), text);
}

}  // namespace quillmark
