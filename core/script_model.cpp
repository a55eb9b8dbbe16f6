#include "core/script_model.h"

namespace quillmark {

ScriptModel TRScript;

ScriptModel::ScriptModel() {
  const std::string blank(kExtensionLength, '\0');
  for (std::string* extension :
       {&PsxLevelExt, &PsxCutExt, &PsxFmvExt, &ExtReserved, &PcLevelExt, &PcCutExt, &PcFmvExt}) {
    *extension = blank;
  }
}

bool HasFlag(const LevelRecord& level, LevelFlag flag) {
  const auto bits = static_cast<std::uint16_t>(level.LevelFlags.value());
  return (bits & static_cast<std::uint16_t>(flag)) != 0;
}

void FlipFlag(LevelRecord& level, LevelFlag flag) {
  const auto bits = static_cast<std::uint16_t>(level.LevelFlags.value());
  const auto flipped = static_cast<std::uint16_t>(bits ^ static_cast<std::uint16_t>(flag));
  level.LevelFlags = static_cast<std::int16_t>(flipped);
}

std::array<std::string*, 6> ShownExtensions(ScriptModel& script) {
  return {&script.PsxLevelExt, &script.PsxCutExt, &script.PsxFmvExt,
          &script.PcLevelExt,  &script.PcCutExt,  &script.PcFmvExt};
}

}  // namespace quillmark
