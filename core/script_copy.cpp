#include "core/script_copy.h"

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <optional>

#include "core/level_stream.h"
#include "core/object_groups.h"
#include "core/opcode_table.h"
#include "core/script_dat.h"
#include "platform/fault.h"

namespace quillmark {
namespace {

/// What the head of a script can say of the size of a block.
constexpr std::size_t kMostBytes = std::numeric_limits<std::int16_t>::max();

void LeaveOutObjectsWithoutPlace(LevelRecord& level) {
  std::array<std::size_t, kObjectKindCount> used{};
  const int count = std::clamp<int>(level.ObjectCount, 0, kObjectPlaces);
  level.ObjectCount = 0;
  for (int i = 0; i < count; ++i) {
    const LevelObject object = level.Objects[i];
    const auto kind = static_cast<std::size_t>(object.Kind.value());
    WithGroup(level, static_cast<ObjectKind>(kind), [&](const Byte&, const auto& entries) {
      if (used.at(kind) == entries.size()) return;
      ++used.at(kind);
      level.Objects[level.ObjectCount] = object;
      ++level.ObjectCount;
    });
  }
}

std::optional<std::size_t> StreamLength(LevelRecord& level, bool isTitle,
                                        const StreamFormat& format) {
  try {
    std::string stream;
    RebuildGroups(level);
    AppendStream(level, isTitle, format, stream);
    return stream.size();
  } catch (const Fault&) {
    return std::nullopt;
  }
}

/// Leaves out of the level what it can't be built with, and gives the length of the rest.
std::size_t MakeBuildable(LevelRecord& level, bool isTitle, const StreamFormat& format) {
  LeaveOutObjectsWithoutPlace(level);
  for (;; level.ObjectCount -= 1) {
    const auto length = StreamLength(level, isTitle, format);
    if (length && *length <= kRawPlaces) return *length;
    if (level.ObjectCount == 0) break;
  }
  LevelRecord empty;
  empty.NameString = level.NameString;
  level = empty;
  return StreamLength(level, isTitle, format).value_or(kMostBytes);
}

void MakeLevelsWritable(ScriptModel& script) {
  const StreamFormat& format = FormatOf(script.ScriptKind);
  const auto there = std::min<std::size_t>(script.NumLevels, script.Levels.size());
  std::size_t kept = 0;
  for (std::size_t size = 0; kept < there; ++kept) {
    size += MakeBuildable(script.Levels[kept], kept == 0, format);
    if (size > kMostBytes) break;
  }
  script.NumLevels = kept;
}

void MakeFileNamesWritable(ScriptModel& script) {
  const auto there = std::min<std::size_t>(script.NumFileNames, script.FileNames.size());
  std::size_t kept = 0;
  for (std::size_t size = 0; kept < there; ++kept) {
    size += script.FileNames[kept].size();
    if (size > kMostBytes) break;
  }
  script.NumFileNames = kept;
}

}  // namespace

FileCopy CopyOfScript(const ScriptModel& script) {
  FileCopy copy{.name = "SCRIPT.DAT", .bytes = {}};
  const auto model = std::make_unique<ScriptModel>(script);  // too large for the stack
  try {
    copy.bytes = SavedBytes(*model);
  } catch (const Fault&) {
    MakeLevelsWritable(*model);
    MakeFileNamesWritable(*model);
    copy.bytes = SavedBytes(*model);
    copy.whole = false;
  }
  return copy;
}

}  // namespace quillmark
