#pragma once

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace quillmark {

using Json = nlohmann::ordered_json;

/// The Unicode text whose characters stand for `bytes` one to one, as UTF-8.
std::string TextOfBytes(std::string_view bytes);

/// `value` on one line of plain ASCII, every other character and every control character as a
/// `\u0000`-style escape. The texts in it are UTF-8.
std::string JsonLine(const Json& value);

/// Puts the same line, without its end, on `output` part by part: as text a model can take many
/// times the memory that it takes as such.
void PrintJson(std::ostream& output, const Json& value);

}  // namespace quillmark
