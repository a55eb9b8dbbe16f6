#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quillmark {

/// The system's form of a UTF-8 path, with the letter case that its last component has on disk and,
/// where the system needs it, in the form that has no limit of length.
std::filesystem::path SystemPath(std::string_view path);

/// The UTF-8 form of a path of the system.
std::string PathText(const std::filesystem::path& path);

}  // namespace quillmark
