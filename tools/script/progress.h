#pragma once

#include <string_view>

namespace quillmark {

/// Progress is told from half a second after this call on; before it, never.
void StartProgress();

/// Tells on standard error what is being done: what is quick is silent.
void TellProgress(std::string_view step);

}  // namespace quillmark
