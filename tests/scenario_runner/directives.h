#pragma once

#include <string>

namespace quillmark {

/// Carries out one line of the runner's own that prepares, changes or checks files, such as
/// "size /tmp/x 12" or "remove /tmp/x". Throws `Failure` if a check fails or the line is unknown.
void RunDirective(const std::string& line);

}  // namespace quillmark
