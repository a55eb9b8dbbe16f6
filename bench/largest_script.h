#pragma once

#include <cstdint>
#include <string>

namespace quillmark {

/// Fills the model with a script of `levels` levels and seven languages, the same at every call.
/// With `kMostLevels` it is the largest script that can be saved: both of its blocks have 32767
/// bytes, and each language has 2,000 strings in 32767 bytes. With fewer levels all of it is less
/// in proportion.
void FillLargestScript(std::uint8_t game, int levels);

/// Writes such a script and its languages into `folder`.
void WriteLargestScript(const std::string& folder, std::uint8_t game, int levels);

}  // namespace quillmark
