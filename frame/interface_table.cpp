#include "frame/interface_table.h"

#include <algorithm>

#include "forms/interface_texts.h"
#include "platform/file_numbers.h"
#include "platform/files.h"

namespace quillmark {
namespace {

constexpr int kTableFile = 1;

}  // namespace

bool ReadInterfaceTable() {
  Files.OpenBinary(kTableFile, ProgramPath("language.bin"));
  if (Files.ReadText(kTableFile, std::ssize(kTableMagic)) != kTableMagic) return false;

  const std::string texts =
      Files.ReadText(kTableFile, Files.Length(kTableFile) - std::ssize(kTableMagic));
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

}  // namespace quillmark
