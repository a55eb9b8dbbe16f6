#pragma once

#include <string>

namespace quillmark {

/// Moves the file at `path`, UTF-8, to the desktop's trash. True only if it really lies there then;
/// otherwise it stands where it stood, and nothing of ours is left in any trash.
bool MoveToTrash(const std::string& path);

}  // namespace quillmark
