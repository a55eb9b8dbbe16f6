#pragma once

#include <filesystem>

namespace quillmark {

/// Fills a folder for one run: copies of the adventures of both games that stand in `samples`, and
/// below `program` of the files that the program expects beside itself.
void FillRunFolder(const std::filesystem::path& folder, const std::filesystem::path& programFiles,
                   const std::filesystem::path& samples);

/// The same with a new folder below the system's temporary one.
std::filesystem::path MakeRunFolder(const std::filesystem::path& programFiles,
                                    const std::filesystem::path& samples);

}  // namespace quillmark
