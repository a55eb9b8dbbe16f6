#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/checked_integer.h"

namespace quillmark {

inline constexpr std::size_t kInterfaceFileLength = 256;
inline constexpr std::int64_t kSettingsLength = 284;

/// The record that `settings.dat` begins with, in the file's order. The version bytes of the
/// program that wrote it stand behind it.
struct SettingsRecord {
  std::string Marker = std::string(9, '\0');
  Int32 Magic1;
  Int16 Magic2;
  Int16 BackupFlag;
  Int32 Reserved;
  Int32 Magic3;
  /// The name under which the language editor saves, in ANSI, filled with blanks to its full
  /// length; zeros before anything was read.
  std::string InterfaceFile = std::string(kInterfaceFileLength, '\0');
};

/// The settings of the process.
extern SettingsRecord Settings;

/// Reads `settings.dat` of the program's folder, or builds it where there is none; a file that
/// can't be used is replaced after the boxes that say so. `BackupFlag` is what the check box of the
/// main form shows from then on. Leaves the file open under number 1. Throws the faults of the
/// files.
void LoadSettings();

/// Writes the whole file at the program's end and leaves it open under number 1. The backup flag is
/// always written as on.
void SaveSettings();

/// Makes the file at the UTF-8 `path` the interface file, in memory and in `settings.dat`, whose
/// other fields stay.
void StoreInterfaceFile(std::string_view path);

/// The interface file without the blanks behind it, as UTF-8.
std::string InterfaceFileName();

}  // namespace quillmark
