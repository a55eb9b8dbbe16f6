#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

/// Ends the process as a finding, with `expectation` on standard error, if it does not hold.
void Require(bool holds, const char* expectation);

/// The path of `name` in the program's own folder, which is a temporary one of this process.
std::string InWorkspace(std::string_view name);

/// Replaces a file of the workspace, or gives all its bytes.
void PutFile(std::string_view name, std::string_view bytes);
std::string FileBytes(std::string_view name);

/// The input of a fuzz run as text.
std::string_view InputBytes(const std::uint8_t* data, std::size_t size);

}  // namespace quillmark
