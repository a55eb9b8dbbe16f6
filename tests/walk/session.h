#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "walk/checks.h"

namespace quillmark {

/// What all walks have in common.
struct WalkSettings {
  std::string programFiles;
  std::string samples;
  bool widgets = false;
};

/// How a walk went.
struct Outcome {
  std::optional<Finding> finding;
  std::vector<std::string> lines;  ///< all that was done, in words of a scenario
  std::string scenario;            ///< the same with the answers and what should have been
};

/// Runs the program in a process and a folder of its own. The lines come from a walk of `steps`
/// acts with that seed.
Outcome Walk(const WalkSettings& settings, std::uint32_t seed, int steps);
/// The same with given lines.
Outcome Replay(const WalkSettings& settings, const std::vector<std::string>& lines);

}  // namespace quillmark
