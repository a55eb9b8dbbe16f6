#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/script/script_value.h"

namespace quillmark {

/// One thing that is not the same in two scripts.
struct Difference {
  std::string part;                   ///< such as "Level DATA\GATES"
  std::string name;                   ///< of the field, the entry or the string; of a whole part ""
  std::optional<std::string> first;   ///< nothing if only the second has it
  std::optional<std::string> second;  ///< nothing if only the first has it
};

/// What differs, level by level, field by field, string by string. Levels are told apart by their
/// file names.
std::vector<Difference> Differences(const ScriptValue& first, const ScriptValue& second);

}  // namespace quillmark
