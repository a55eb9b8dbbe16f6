#pragma once

#include <array>
#include <atomic>

namespace quillmark {

/// What happens to a call of the system.
enum class Trouble {
  Failed,        ///< it goes wrong, on a disk that is broken
  Full,          ///< nothing more can be written
  Refused,       ///< the system does not allow what changes files
  Short,         ///< half of the bytes is read or written
  Killed,        ///< the process ends there, with half of the bytes written
  FullUnrenamed  ///< nothing more can be written, where no file ever takes another's name
};

/// What the sweep and the program that it watches say to each other, in memory that both share.
struct TroublePlan {
  std::array<char, 256> folder;  ///< only calls on what stands in it count
  Trouble trouble;
  int at;        ///< which call meets the trouble, from 1
  bool lasting;  ///< so do all behind it
  bool noTrash;  ///< nobody may throw anything away
  std::atomic<bool> armed;
  std::atomic<int> calls;        ///< those that could have met it, while armed
  std::array<char, 300> struck;  ///< the first call that met it, and the path
};

inline constexpr const char* kPlanVariable = "QUILLMARK_TROUBLE_PLAN";

}  // namespace quillmark
