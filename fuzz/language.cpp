// A language file: what loads can be listed and becomes the string pool; what can be saved loads
// again to the same strings, with the one zero character more that each load puts behind the last.

#include <algorithm>
#include <nlohmann/json.hpp>

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

/// What one string may take beyond its file: zeros from behind the file's end.
constexpr std::size_t kMostZeros = 32769;
/// Damaged offsets can ask for so many zeros that to list them takes seconds.
constexpr std::size_t kMostListed = 1U << 20U;

/// Checks that each string has its bytes; gives how many all of them have.
std::size_t TouchStrings(std::string_view file) {
  std::size_t bytes = 0;
  std::size_t zeros = 0;
  const TextArray& texts = Slot(kLanguage).Strings;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string_view text = texts[i];
    Require(text.size() <= file.size() + kMostZeros, "no string is much longer than the file");
    zeros += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\0'));
    bytes += text.size();
  }
  Require(bytes <= file.size() + zeros, "what is not in the file is zero");
  return bytes;
}

void TestLanguage(std::string_view file) {
  bool failed = false;
  StartAfresh(failed);
  PutFile(kFileName, file);
  Require(!Read(), "no language is primary by itself");
  LanguageSlot& slot = Slot(kLanguage);
  Require(IsOn(slot.Loaded) != failed, "a language is loaded or fails");
  const bool listable = TouchStrings(file) <= kMostListed;
  if (listable) ListSlot();
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
