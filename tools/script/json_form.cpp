#include "tools/script/json_form.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "platform/ansi.h"
#include "tools/script/script_fields.h"
#include "tools/script/text_form.h"

namespace quillmark {
namespace {

/// The lists that have a line for each entry.
bool IsLongList(std::string_view name) {
  constexpr std::array<std::string_view, 6> kNames = {"FileNames", "LanguageNames", "Levels",
                                                      "Objects",   "Strings",       "lost"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

/// Whether the members of an object stand on lines of their own; every other value is one line.
bool HasLongList(const Json& value) {
  if (!value.is_object()) return false;
  const auto members = value.items();
  return std::any_of(members.begin(), members.end(), [](const auto& member) {
    return IsLongList(member.key()) || HasLongList(member.value());
  });
}

void AppendLine(std::string& text, const Json& value) {
  text += value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void AppendValue(std::string& text, const Json& value, std::string_view name, std::size_t depth) {
  const bool list = value.is_array() && IsLongList(name);
  if (value.empty() || (!list && !HasLongList(value))) return AppendLine(text, value);
  const std::string indent(2 * depth + 2, ' ');
  text += list ? "[\n" : "{\n";
  std::size_t left = value.size();
  for (const auto& [key, member] : value.items()) {
    text += indent;
    if (!list) text.append("\"").append(key).append("\": ");  // names of ours, which need no escape
    AppendValue(text, member, list ? "" : key, depth + 1);
    text += --left > 0 ? ",\n" : "\n";
  }
  text.append(2 * depth, ' ') += list ? ']' : '}';
}

Json ToJson(const std::optional<std::string>& text) { return text ? Json(*text) : Json(); }

}  // namespace

Json EntryToJson(std::string_view entry) {
  if (entry.ends_with('\0')) return AnsiToUtf8(entry.substr(0, entry.size() - 1));
  return {{"Text", AnsiToUtf8(entry)}, {"Unterminated", true}};
}

std::string JsonDocument(const Json& value) {
  std::string plain;
  AppendValue(plain, value, "", 0);
  std::string text;
  text.reserve(plain.size());
  std::size_t done = 0;
  for (std::size_t at = 0; at < plain.size(); ++at) {
    const unsigned byte = static_cast<unsigned char>(plain[at]);
    if (byte != 0x7F && byte != 0xC2) continue;
    const unsigned next = at + 1 < plain.size() ? static_cast<unsigned char>(plain[at + 1]) : 0;
    if (byte == 0xC2 && next >= 0xA0) continue;
    const unsigned control = byte == 0xC2 ? next : byte;
    text.append(plain, done, at - done) += "\\u00";
    text += {kHexDigits[control >> 4U], kHexDigits[control & 0xFU]};
    done = at + (byte == 0xC2 ? 2 : 1);
  }
  return text.append(plain, done) += '\n';
}

Json FindingToJson(const Finding& finding) {
  return {{"Id", finding.id},
          {"Severity", SeverityName(finding.severity)},
          {"Place", finding.place},
          {"Sentence", finding.sentence}};
}

std::string FindingsDocument(std::uint8_t game, const Findings& findings) {
  Json list = Json::array();
  for (const Finding& finding : findings) list.push_back(FindingToJson(finding));
  return JsonDocument({{"Game", GameName(game)}, {"Findings", std::move(list)}});
}

std::string DifferencesDocument(const std::vector<Difference>& differences) {
  Json list = Json::array();
  for (const Difference& difference : differences) {
    list.push_back({{"Part", difference.part},
                    {"Name", difference.name},
                    {"First", ToJson(difference.first)},
                    {"Second", ToJson(difference.second)}});
  }
  return JsonDocument({{"Differences", std::move(list)}});
}

}  // namespace quillmark
