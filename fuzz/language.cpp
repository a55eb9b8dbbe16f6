// A language file: what loads can be listed and becomes the string pool; what can be saved loads
// again to the same strings, with the one zero character more that each load puts behind the last.

#include "fuzz/workspace.h"
#include "platform/file_numbers.h"
#include "strings/language_files.h"
#include "tools/listing.h"

namespace quillmark {
namespace {

constexpr Language kLanguage = Language::GERMAN;
constexpr const char* kFileName = "GERMAN.DAT";

Json ListSlot() { return ListScript()["Languages"]["GERMAN"]; }

void StartAfresh(bool& failed) {
  Files.CloseAll();
  StringsMod = {};
  SizeOffsetArrays();
  StringListeners listeners;
  listeners.failed = [&failed](Language, FileWork) { failed = true; };
  SetStringListeners(listeners);
}

bool Read() {
  const bool result = ReadLanguage(kLanguage, InWorkspace(kFileName));
  Files.CloseFiles();
  return result;
}

void TestPrimary() {
  LanguageSlot& slot = Slot(kLanguage);
  slot.Primary = kOn;
  Require(Read(), "the file loads as the primary language");
  SetPrimaryLanguage(kLanguage);
  for (int i = 0; i < slot.Total; ++i) {
    Require(StringsMod.StringPool[i] == slot.Strings[i], "the pool is the primary language");
  }
}

/// What a slot may take beyond a few times its file: zeros for texts that lie behind the file's
/// end.
constexpr std::size_t kMostZeros = 1100000;

std::size_t BytesOfStrings() {
  std::size_t bytes = 0;
  const TextArray& texts = Slot(kLanguage).Strings;
  for (std::size_t i = 0; i < texts.size(); ++i) bytes += texts[i].size();
  return bytes;
}

void TestLanguage(std::string_view file) {
  bool failed = false;
  StartAfresh(failed);
  PutFile(kFileName, file);
  Require(!Read(), "no language is primary by itself");
  LanguageSlot& slot = Slot(kLanguage);
  Require(IsOn(slot.Loaded) != failed, "a language is loaded or fails");
  Require(BytesOfStrings() <= file.size() + kMostZeros, "the strings are no more than the file");
  ListSlot();
  Require(FileBytes(kFileName) == file, "a read leaves the file alone");
  if (failed) return;

  TestPrimary();
  PutFile(kFileName, "");
  Require(WriteLanguage(kLanguage, InWorkspace(kFileName)) != failed, "a write is done or fails");
  if (failed) return;
  if (slot.Total > 0) {
    const int last = slot.Total - 1;
    slot.Strings.Set(last, std::string(slot.Strings[last]) + '\0');
  }
  const Json saved = ListSlot();
  Require(Read(), "what was saved loads again");
  Require(ListSlot() == saved, "what was saved loads again to the same listing");
}

}  // namespace
}  // namespace quillmark

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillmark::TestLanguage(quillmark::InputBytes(data, size));
  return 0;
}
