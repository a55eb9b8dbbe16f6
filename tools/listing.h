#pragma once

#include "tools/json_text.h"

namespace quillmark {

/// Every field of the script, of its levels and of the language slots that are in memory, under the
/// names of the model. Texts stand for bytes one to one. A count that reaches past its array lists
/// what the array has.
Json ListScript();

}  // namespace quillmark
