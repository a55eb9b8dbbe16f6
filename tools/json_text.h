#pragma once

#include <cstddef>
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

/// An object with room for so many members: one that grows copies all that it holds.
Json ObjectFor(std::size_t members);

/// Adds a member whose name is not there yet, without looking for it.
void Append(Json& object, std::string_view name, Json member);

}  // namespace quillmark
