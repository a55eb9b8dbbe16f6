// The table of the interface's texts: the entries are what stands between the zeros of the file,
// and the same entries written out give the same table.

#include "frame/interface_table.h"

#include <algorithm>
#include <vector>

#include "forms/interface_texts.h"
#include "fuzz/workspace.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"

namespace quillmark {
namespace {

constexpr const char* kTableName = "language.bin";
constexpr std::string_view kMagic("\xCD\x00\xCD\xCD", 4);

enum class Outcome { Read, Refused, TooLong };

Outcome Read() {
  Files.CloseAll();
  std::fill(InterfaceTable.begin(), InterfaceTable.end(), std::string());
  try {
    return ReadInterfaceTable() ? Outcome::Read : Outcome::Refused;
  } catch (const Fault& fault) {
    Require(fault.kind() == FaultKind::Subscript, "a table faults by its length alone");
    return Outcome::TooLong;
  }
}

/// The texts of the file, less the empty ones at its end.
std::vector<std::string> Entries(std::string_view texts) {
  std::vector<std::string> entries(1);
  for (const char c : texts) {
    if (c == '\0') {
      entries.emplace_back();
    } else {
      entries.back() += c;
    }
  }
  while (!entries.empty() && entries.back().empty()) entries.pop_back();
  return entries;
}

void TestTable(std::string_view file) {
  PutFile(kTableName, file);
  const Outcome outcome = Read();
  if (!file.starts_with(kMagic)) {
    Require(outcome == Outcome::Refused, "a table without its magic number is refused");
    return;
  }
  std::vector<std::string> entries = Entries(file.substr(kMagic.size()));
  const bool fits = entries.size() <= InterfaceTable.size();
  Require(outcome == (fits ? Outcome::Read : Outcome::TooLong), "a table has 4097 places");
  entries.resize(InterfaceTable.size());
  Require(std::equal(entries.begin(), entries.end(), InterfaceTable.begin()),
          "the table holds the entries of the file");
  if (!fits) return;

  std::string written(kMagic);
  for (const std::string& entry : InterfaceTable) written += entry + '\0';
  PutFile(kTableName, written);
  Require(Read() == Outcome::Read, "what was written loads again");
  Require(std::equal(entries.begin(), entries.end(), InterfaceTable.begin()),
          "what was written loads again to the same table");
}

}  // namespace
}  // namespace quillmark

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillmark::TestTable(quillmark::InputBytes(data, size));
  return 0;
}
