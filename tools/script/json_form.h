#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/json_text.h"
#include "tools/script/diff.h"
#include "tools/script/finding.h"

namespace quillmark {

// How what the subcommands tell looks as JSON. Whoever only prints a document needs no more than
// this of that library, which is slow to compile.

/// A string or name in JSON: a text without its last zero, or, if it lacks that, an object with the
/// members "Text" and "Unterminated".
Json EntryToJson(std::string_view entry);

/// The text of a JSON value with a line for each entry of a list. Control characters above 0x7E are
/// escaped.
std::string JsonDocument(const Json& value);

Json FindingToJson(const Finding& finding);

/// What `check --json` and `diff --json` print.
std::string FindingsDocument(std::uint8_t game, const Findings& findings);
std::string DifferencesDocument(const std::vector<Difference>& differences);

}  // namespace quillmark
