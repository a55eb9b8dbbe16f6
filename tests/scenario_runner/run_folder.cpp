#include "scenario_runner/run_folder.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace quillmark {

namespace fs = std::filesystem;

void FillRunFolder(const fs::path& folder, const fs::path& programFiles, const fs::path& samples) {
  fs::create_directories(folder / "program");
  for (const auto& entry : fs::directory_iterator(programFiles)) {
    const std::string type = entry.path().extension().string();
    if (type == ".bin" || type == ".BIN" || type == ".h") {
      fs::copy(entry.path(), folder / "program");
    }
  }
  for (const char* game : {"tr4", "tr5"}) fs::copy(samples / game, folder / game);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
  }
}

fs::path MakeRunFolder(const fs::path& programFiles, const fs::path& samples) {
  std::string folder = (fs::temp_directory_path() / "quillmark-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
  FillRunFolder(folder, programFiles, samples);
  return folder;
}

}  // namespace quillmark
