#pragma once

#include <string>

#include "core/script_model.h"

namespace quillmark {

/// What a save would write into one file, for a copy that is kept in case nobody saves.
struct FileCopy {
  std::string name;
  std::string bytes;
  bool whole = true;  ///< otherwise what has no room in such a file was left out

  bool operator==(const FileCopy&) const = default;
};

/// The bytes of `SCRIPT.DAT` as a save would write them now. Nothing is changed by it.
///
/// A script that no save could write is copied without what has no room, so that the rest can be
/// loaded and each level keeps its number: objects of a kind that is full; the last objects of a
/// level that is too long; the file names behind the last one that fits the block, and the levels
/// behind the last one that fits theirs. A level that can't be built without any object either is
/// copied empty, but for its name.
FileCopy CopyOfScript(const ScriptModel& script);

}  // namespace quillmark
