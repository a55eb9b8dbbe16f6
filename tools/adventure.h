#pragma once

#include <cstdint>
#include <string>

namespace quillmark {

/// Loads the script at `path` and the languages beside it into the modules, without a question: it
/// is one of `game`. Gives false for what is no script. Throws what `LoadScript` throws; of a
/// language that can't be read the string listeners are told.
bool LoadAdventure(const std::string& path, std::uint8_t game);

}  // namespace quillmark
