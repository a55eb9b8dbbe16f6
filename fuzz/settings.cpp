// The settings file: it is taken as it is or replaced, with the boxes that belong to what is wrong
// with it; storing a name changes the name alone; what is saved at the end loads without a word.

#include "frame/settings.h"

#include <algorithm>
#include <string>
#include <vector>

#include "forms/interface_texts.h"
#include "fuzz/workspace.h"
#include "platform/file_numbers.h"
#include "platform/version.h"
#include "tests/support/silent_screen.h"

namespace quillmark {
namespace {

using Boxes = std::vector<std::string>;

constexpr const char* kSettingsName = "settings.dat";
constexpr const char* kBadLength = "bad length";
constexpr const char* kLaterVersion = "later version";
constexpr const char* kReplaced = "replaced";

constexpr std::size_t kFlagAt = 15;
constexpr std::size_t kZerosAt = 17;
constexpr std::size_t kNameAt = 25;
constexpr std::size_t kVersionAt = 281;
constexpr std::string_view kFront("QUILLMARK\xCD\x00\x00\xCD\x00\xCD", kFlagAt);
constexpr std::string_view kZerosAndMagic("\0\0\0\0\xCD\xCD\xCD\xCD", kNameAt - kZerosAt);

SilentScreen& Screen() {
  static SilentScreen screen;
  return screen;
}

bool IsOfLaterVersion(std::string_view file) {
  return !std::equal(
      kVersion.begin(), kVersion.end(), file.begin() + kVersionAt,
      [](std::uint8_t ours, char theirs) { return static_cast<unsigned char>(theirs) <= ours; });
}

Boxes ExpectedBoxes(std::string_view file) {
  if (file.size() != kSettingsLength) return {kBadLength, kReplaced};
  if (IsOfLaterVersion(file)) return {kLaterVersion, kReplaced};
  if (!file.starts_with(kFront) || !file.substr(kZerosAt).starts_with(kZerosAndMagic)) {
    return {kReplaced};
  }
  return {};
}

void Load(const Boxes& expected) {
  Screen().boxes.clear();
  LoadSettings();
  Files.CloseFiles();
  Require(Screen().boxes == expected, "the boxes tell what is wrong with the file");
}

std::string BlankFilled(std::string name) {
  name.resize(kInterfaceFileLength, ' ');
  return name;
}

void TestSettings(std::string_view file) {
  InterfaceTable[63] = kBadLength;
  InterfaceTable[64] = kLaterVersion;
  InterfaceTable[65] = kReplaced;
  Files.CloseAll();
  Settings = {};
  PutFile(kSettingsName, file);

  const Boxes boxes = ExpectedBoxes(file);
  Load(boxes);
  if (boxes.empty()) {
    Require(FileBytes(kSettingsName) == file, "a good file stays as it is");
    Require(Settings.InterfaceFile == file.substr(kNameAt, kInterfaceFileLength),
            "the name is taken");
    Require(IsOn(Settings.BackupFlag) == (file.substr(kFlagAt, 2) == "\xFF\xFF"),
            "the flag ticks the box");
  }

  std::string stored = FileBytes(kSettingsName);
  StoreInterfaceFile("OTHER.BIN");
  stored.replace(kNameAt, kInterfaceFileLength, BlankFilled("OTHER.BIN"));
  Require(FileBytes(kSettingsName) == stored, "storing a name changes the name alone");
  Require(InterfaceFileName() == "OTHER.BIN", "the name has no blanks behind it");

  SaveSettings();
  Files.CloseFiles();
  Load({});
  Require(InterfaceFileName() == "OTHER.BIN" && IsOn(Settings.BackupFlag),
          "what was saved loads again");
}

}  // namespace
}  // namespace quillmark

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillmark::TestSettings(quillmark::InputBytes(data, size));
  return 0;
}
