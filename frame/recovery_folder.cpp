#include "frame/recovery_folder.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/system_path.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostCopies = 10;
constexpr const char* kRecoveredFolder = "recovered";
constexpr const char* kNote = "copy.txt";
/// Behind the name of a folder that is not whole yet, or any more.
constexpr const char* kUnfinished = " unfinished";

// The disk is not told to flush: that would hold the user up for longer than the whole rest. So a
// power cut may cost the newest copy, and leaves the one before it.
void Write(const fs::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw Fault(FaultKind::File, "'" + PathText(path) + "' can't be written");
}

std::string Content(const fs::path& path) {
  std::string bytes(fs::file_size(path), '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return file ? bytes : std::string();
}

/// The note's line about one file, by which the file is known again. The sum is FNV-1a.
std::string NoteLine(const std::string& name, std::string_view bytes) {
  std::uint64_t sum = 0xcbf29ce484222325U;
  for (const char byte : bytes) sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
  std::ostringstream line;
  line << name << ", " << bytes.size() << " bytes, sum " << std::hex << sum << "\n";
  return line.str();
}

std::string NoteOf(const std::vector<FileCopy>& files) {
  std::string note =
      "This is what Quillmark held in memory and nobody had saved. To go on with it, load the\n"
      "SCRIPT.DAT of this folder, or copy the files over yours.\n"
      "As long as nothing in it is changed, the program removes this folder when it has made ten\n"
      "newer ones. Rename the folder to keep it.\n\n";
  for (const FileCopy& file : files) {
    note += NoteLine(file.name, file.bytes);
    if (!file.whole) note += "  Not whole: what has no room in such a file was left out.\n";
  }
  return note;
}

/// Whether the name has this form, in which a 0 stands for any digit.
bool HasForm(std::string_view name, std::string_view form) {
  const auto fits = [](char character, char sample) {
    return sample == '0' ? character >= '0' && character <= '9' : character == sample;
  };
  return std::equal(name.begin(), name.end(), form.begin(), form.end(), fits);
}

bool IsNamedByTime(const fs::path& folder) {
  const std::string name = PathText(folder.filename());
  return HasForm(name, "0000-00-00 00.00.00") || HasForm(name, "0000-00-00 00.00.00 (0)");
}

/// Whether the folder holds nothing but what was put there, so that nobody misses it.
bool IsAsItWasMade(const fs::path& folder) {
  const std::string note = Content(folder / kNote);
  const fs::directory_iterator files(folder);
  return std::all_of(begin(files), end(files), [&](const fs::directory_entry& file) {
    if (!file.is_regular_file() || file.is_symlink()) return false;
    const std::string name = PathText(file.path().filename());
    return name == kNote || note.find(NoteLine(name, Content(file.path()))) != std::string::npos;
  });
}

fs::path Unfinished(fs::path folder) { return folder += kUnfinished; }

using DatedCopies = std::vector<std::pair<fs::file_time_type, fs::path>>;

/// Gives the note of the newest copy a time behind that of all others, which a clock that was set
/// back did not.
void PutBehind(const fs::path& newest, const DatedCopies& others) {
  constexpr auto kStep = std::chrono::seconds(2);  // the coarsest that file systems tell apart
  if (others.empty()) return;
  const fs::file_time_type last = std::max_element(others.begin(), others.end())->first;
  if (fs::last_write_time(newest / kNote) > last) return;
  fs::last_write_time(newest / kNote, last + kStep);
}

/// Removes all but the newest copy and the newest ones of the others. They are in the order of
/// their notes' times: the local time that names them may be set back.
void RemoveOldest(const fs::path& recovered, const fs::path& newest) {
  DatedCopies others;
  for (const fs::directory_entry& entry : fs::directory_iterator(recovered)) {
    const fs::path& copy = entry.path();
    if (copy == newest || !IsNamedByTime(copy)) continue;
    if (!entry.is_directory() || entry.is_symlink() || !IsThere(copy / kNote)) continue;
    others.emplace_back(fs::last_write_time(copy / kNote), copy);
  }
  PutBehind(newest, others);
  std::sort(others.rbegin(), others.rend());
  for (std::size_t i = kMostCopies - 1; i < others.size(); ++i) {
    const fs::path& copy = others[i].second;
    if (!IsAsItWasMade(copy)) continue;
    fs::rename(copy, Unfinished(copy));
    fs::remove_all(Unfinished(copy));
  }
}

/// Makes the folder for what will be named by the present time, and gives that name. Another
/// process may be at it in the same second.
fs::path BeginCopy(const fs::path& recovered) {
  const std::string time = PresentTimeAsName();
  for (int i = 1; i <= 9; ++i) {
    fs::path name = recovered / (i == 1 ? time : time + " (" + std::to_string(i) + ")");
    if (IsThere(name) || !fs::create_directory(Unfinished(name))) continue;
    if (!IsThere(name)) return name;
    fs::remove(Unfinished(name));
  }
  throw Fault(FaultKind::File, "there is no free name in '" + PathText(recovered) + "'");
}

}  // namespace

void PutIntoRecoveryFolder(const std::vector<FileCopy>& files) {
  const fs::path recovered = FormOfSystem(ProgramPath(kRecoveredFolder));
  fs::create_directories(recovered);
  const fs::path name = BeginCopy(recovered);
  const fs::path folder = Unfinished(name);
  try {
    for (const FileCopy& file : files) Write(folder / file.name, file.bytes);
    Write(folder / kNote, NoteOf(files));
    fs::rename(folder, name);
  } catch (...) {
    std::error_code passedOver;
    fs::remove_all(folder, passedOver);
    throw;
  }
  try {
    RemoveOldest(recovered, name);
  } catch (const fs::filesystem_error&) {
    return;  // the new copy stands, and the next one tries again
  }
}

}  // namespace quillmark
