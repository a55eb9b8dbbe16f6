#pragma once

#include <string>
#include <string_view>

#include "tools/json_text.h"
#include "tools/script/finding.h"
#include "tools/script/script_fields.h"
#include "tools/script/script_value.h"

namespace quillmark {

/// The form of a script as JSON; docs/script-json.md describes it.
inline constexpr std::string_view kFormatName = "quillmark-script";
inline constexpr int kFormatVersion = 1;

/// The most bytes of a JSON file that are read.
inline constexpr std::int64_t kMostJsonBytes = 8 << 20;

/// The whole script and its languages; `losses` are what the form has no place for.
Json ScriptToJson(const ScriptValue& value, const Findings& losses);

/// A JSON text as a value. What is wrong goes to `findings`: a member that stands twice, of which
/// the last one stays; no JSON at all, or more of it than any script has, for which the value is
/// "discarded".
Json ParseJson(std::string_view text, Findings& findings);

/// The script that the JSON says. Everything that is wrong with it goes to `findings`, each with
/// the place where it stands; without an error among them the script can be built.
ScriptValue ScriptFromJson(const Json& json, Findings& findings);
/// The same of a text.
ScriptValue ScriptFromText(std::string_view text, Findings& findings);

/// The name of the member that shows a reference's text.
std::string CommentName(std::string_view field);
/// The start of the text, which stands there: null for a reference to nothing.
Json ReferenceText(const ScriptValue& value, Meaning meaning, std::int64_t number);

}  // namespace quillmark
