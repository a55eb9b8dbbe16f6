#pragma once

#include "tools/script/finding.h"
#include "tools/script/script_scan.h"
#include "tools/script/script_value.h"

namespace quillmark {

/// What a load and a save in the editor do not give back of the script and its languages.
Findings SaveLosses(const ScriptValue& value, const ScriptScan& scan);

}  // namespace quillmark
