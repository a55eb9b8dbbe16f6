#include "tools/json_text.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <utility>

namespace quillmark {

std::string TextOfBytes(std::string_view bytes) {
  std::string text;
  for (const char character : bytes) {
    const unsigned byte = static_cast<unsigned char>(character);
    if (byte < 0x80U) {
      text += character;
    } else {
      text += static_cast<char>(0xC0U | byte >> 6U);
      text += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return text;
}

std::string JsonLine(const Json& value) {
  constexpr std::string_view shortForms = "btnfr";
  constexpr std::string_view longForms[] = {"\\u0008", "\\u0009", "\\u000a", "\\u000c", "\\u000d"};
  const std::string dumped = value.dump(-1, ' ', true, Json::error_handler_t::replace);
  std::string line;
  for (std::size_t at = 0; at < dumped.size(); ++at) {
    if (dumped[at] != '\\') {
      line += dumped[at];
      continue;
    }
    const std::size_t form = shortForms.find(dumped.at(++at));
    if (form == std::string_view::npos) {
      line.append(dumped, at - 1, 2);
    } else {
      line += longForms[form];
    }
  }
  return line;
}

void PrintJson(std::ostream& output, const Json& value) {
  if (value.empty() || !value.is_structured()) {
    output << JsonLine(value);
    return;
  }
  char separator = value.is_object() ? '{' : '[';
  for (const auto& [key, item] : value.items()) {
    output << std::exchange(separator, ',');
    if (value.is_object()) output << JsonLine(key) << ':';
    PrintJson(output, item);
  }
  output << (value.is_object() ? '}' : ']');
}

Json ObjectFor(std::size_t members) {
  Json object = Json::object();
  object.get_ref<Json::object_t&>().reserve(members);
  return object;
}

void Append(Json& object, std::string_view name, Json member) {
  object.get_ref<Json::object_t&>().emplace_back(name, std::move(member));
}

}  // namespace quillmark
