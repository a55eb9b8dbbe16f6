#include "tools/script/private_folder.h"

#include <filesystem>
#include <limits>
#include <random>
#include <system_error>

#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/system_path.h"
#include "tools/script/whole_files.h"

namespace quillmark {

namespace fs = std::filesystem;

PrivateFolder::PrivateFolder() : programFolder_(ProgramFolder()) {
  std::error_code error;
  const fs::path base = fs::temp_directory_path(error);
  std::random_device number;
  const fs::path folder = base / ("quillmark-script-" + std::to_string(number()));
  if (error || !fs::create_directory(folder, error)) {
    throw Fault(FaultKind::File, "no folder for temporary files can be made");
  }
  fs::permissions(folder, fs::perms::owner_all, error);
  path_ = PathText(folder);
  SetProgramFolder(path_);
}

PrivateFolder::~PrivateFolder() {
  Files.CloseAll();
  SetProgramFolder(programFolder_);
  std::error_code ignored;
  fs::remove_all(FormOfSystem(path_), ignored);
}

std::string PrivateFolder::PathOf(std::string_view name) const { return JoinPath(path_, name); }

void PrivateFolder::Put(std::string_view name, std::string_view bytes) const {
  WriteWholeFiles({{PathOf(name), std::string(bytes)}});
}

std::string PrivateFolder::Take(std::string_view name) const {
  return ReadWholeFile(PathOf(name), std::numeric_limits<std::int32_t>::max());
}

}  // namespace quillmark
