#include "tools/script/progress.h"

#include <chrono>
#include <iostream>
#include <optional>

namespace quillmark {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kSilence(500);
std::optional<Clock::time_point> startOfWork;

}  // namespace

void StartProgress() { startOfWork = Clock::now(); }

void TellProgress(std::string_view step) {
  if (startOfWork && Clock::now() - *startOfWork > kSilence) std::cerr << step << " ...\n";
}

}  // namespace quillmark
