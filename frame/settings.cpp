#include "frame/settings.h"

#include "controls/control.h"
#include "forms/interface_texts.h"
#include "platform/ansi.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/log.h"
#include "platform/version.h"

namespace quillmark {

SettingsRecord Settings;

namespace {

constexpr int kSettingsNumber = 1;
/// The log may still hold number 6 while the language editor stores the interface file.
constexpr int kStoreNumber = 7;

constexpr std::string_view kMarker = "QUILLMARK";
constexpr Int32 kMagic1 = static_cast<std::int32_t>(0xCD0000CDU);
constexpr Int16 kMagic2 = static_cast<std::int16_t>(0xCD00U);
constexpr Int32 kMagic3 = static_cast<std::int32_t>(0xCDCDCDCDU);
constexpr std::string_view kDefaultInterfaceFile = "ENGLISH.BIN";

/// Hands the six fields in front of `InterfaceFile` to `take`, in the file's order.
template <class Take>
void WalkHead(SettingsRecord& record, const Take& take) {
  take(record.Marker);
  take(record.Magic1);
  take(record.Magic2);
  take(record.BackupFlag);
  take(record.Reserved);
  take(record.Magic3);
}

struct Reader {
  int number;
  void operator()(std::string& text) const {
    text = Files.ReadText(number, static_cast<std::int64_t>(text.size()));
  }
  void operator()(Int16& value) const { value = Files.ReadInt16(number); }
  void operator()(Int32& value) const { value = Files.ReadInt32(number); }
};

struct Writer {
  int number;
  void operator()(const std::string& text) const { Files.WriteText(number, text); }
  void operator()(Int16 value) const { Files.WriteInt16(number, value); }
  void operator()(Int32 value) const { Files.WriteInt32(number, value); }
};

template <class Take>
void WalkRecord(SettingsRecord& record, const Take& take) {
  WalkHead(record, take);
  take(record.InterfaceFile);
}

std::string SettingsPath() { return ProgramPath("settings.dat"); }

void SetInterfaceFile(std::string_view name) {
  Settings.InterfaceFile = name;
  Settings.InterfaceFile.resize(kInterfaceFileLength, ' ');
}

void FillHead() {
  Settings.Marker = kMarker;
  Settings.Magic1 = kMagic1;
  Settings.Magic2 = kMagic2;
  Settings.BackupFlag = kOn;
  Settings.Reserved = 0;
  Settings.Magic3 = kMagic3;
}

bool HeadIsValid() {
  return Settings.Marker == kMarker && Settings.Magic1 == kMagic1 && Settings.Magic2 == kMagic2 &&
         Settings.Reserved == 0 && Settings.Magic3 == kMagic3;
}

void WriteVersion() {
  for (const std::uint8_t part : kVersion) Files.WriteByte(kSettingsNumber, part);
}

/// Each part is compared by itself, so a program 2.0 refuses a file of version 1.5.
bool ReadLaterVersion() {
  for (const std::uint8_t part : kVersion) {
    if (Files.ReadByte(kSettingsNumber) > part) return true;
  }
  return false;
}

void BuildNewFile() {
  Files.OpenBinary(kSettingsNumber, SettingsPath());
  LogWrite("Building new settings file");
  FillHead();
  WalkRecord(Settings, Writer{kSettingsNumber});
  WriteVersion();
  // Kept as it is: the name comes into memory only now, so the file holds zeros until the program
  // ends.
  SetInterfaceFile(kDefaultInterfaceFile);
}

void Recover() {
  ShowErrorEntry(Entry::SettingsReplaced);
  Files.CloseFiles();
  EraseFile(SettingsPath());
  Files.OpenBinary(kSettingsNumber, SettingsPath());
  FillHead();
  SetInterfaceFile(kDefaultInterfaceFile);
  // Kept as it is: the version stands in front of the name here; the program's end mends the order.
  WalkHead(Settings, Writer{kSettingsNumber});
  WriteVersion();
  Files.WriteText(kSettingsNumber, Settings.InterfaceFile);
}

/// False if the file can't be used.
bool ReadFile() {
  if (FileLength(SettingsPath()) != kSettingsLength) {
    ShowErrorEntry(Entry::SettingsBadLength);
    return false;
  }
  LogWrite("Loading settings");
  Files.OpenBinary(kSettingsNumber, SettingsPath());
  WalkRecord(Settings, Reader{kSettingsNumber});
  if (ReadLaterVersion()) {
    ShowErrorEntry(Entry::SettingsLaterVersion);
    return false;
  }
  return HeadIsValid();
}

}  // namespace

void LoadSettings() {
  if (UpperCased(FindFile(SettingsPath())) != "SETTINGS.DAT") {
    BuildNewFile();
  } else if (!ReadFile()) {
    Recover();
  }
}

void SaveSettings() {
  Files.OpenBinary(kSettingsNumber, SettingsPath());
  FillHead();
  WalkRecord(Settings, Writer{kSettingsNumber});
  WriteVersion();
  SetInterfaceFile(kDefaultInterfaceFile);
}

void StoreInterfaceFile(std::string_view path) {
  SetInterfaceFile(Utf8ToAnsi(path));
  SettingsRecord stored;
  Files.OpenBinary(kStoreNumber, SettingsPath());
  WalkRecord(stored, Reader{kStoreNumber});
  stored.InterfaceFile = Settings.InterfaceFile;
  Files.Seek(kStoreNumber, 0);
  WalkRecord(stored, Writer{kStoreNumber});
  Files.CloseFiles();
}

std::string InterfaceFileName() {
  const std::string shown = ShownText(Settings.InterfaceFile);
  return AnsiToUtf8(shown.substr(0, shown.find_last_not_of(' ') + 1));
}

}  // namespace quillmark
