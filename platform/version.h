#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace quillmark {

/// Major, minor and revision: what the splash form, the boxes and the settings file tell.
inline constexpr std::array<std::uint8_t, 3> kVersion = {QUILLMARK_VERSION};

/// The three numbers with dots between them.
inline std::string VersionText() {
  return std::to_string(kVersion[0]) + "." + std::to_string(kVersion[1]) + "." +
         std::to_string(kVersion[2]);
}

}  // namespace quillmark
