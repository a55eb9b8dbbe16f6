#include "tools/script/json_reader.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "tools/script/text_form.h"

namespace quillmark {
namespace {

constexpr std::size_t kMostFindings = 50'000;
constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();

const Json& ListOrNone(const Json* json) {
  static const Json none = Json::array();
  return json != nullptr && json->is_array() ? *json : none;
}

}  // namespace

const Json* Member(const Json& object, std::string_view name) {
  const auto found = object.find(std::string(name));
  return found == object.end() ? nullptr : &*found;
}

void JsonReader::Add(Finding finding) {
  if (findings_.size() > kMostFindings) return;
  findings_.push_back(std::move(finding));
  if (findings_.size() <= kMostFindings) return;
  findings_.back() = {"too-many", Severity::Error, "",
                      "there is more than " + std::to_string(kMostFindings) +
                          " times something to say; this is not all of it"};
}

void JsonReader::Error(std::string_view id, const std::string& place, const std::string& sentence) {
  MarkFailed(place);
  Add({id, Severity::Error, place, sentence});
}

bool JsonReader::HasFailed(const std::string& place) const {
  return failed_.contains(place) || lost_.contains(place.substr(0, place.rfind('/')));
}

bool JsonReader::HasFailed(const std::string& record,
                           std::initializer_list<const char*> members) const {
  return std::any_of(members.begin(), members.end(),
                     [&](const char* member) { return HasFailed(record + '/' + member); });
}

bool JsonReader::HasFailedWithin(const std::string& place) const {
  const std::string below = place + '/';
  const auto first = failed_.lower_bound(below);
  return HasFailed(place) || (first != failed_.end() && first->starts_with(below));
}

void JsonReader::RefuseOthers(const Json& object, const std::string& place, const Names& known) {
  for (const auto& member : object.items()) {
    if (known.contains(member.key())) continue;
    Error("unknown-member", MemberPlace(place, member.key()),
          game_ == kAnyGame
              ? "there is no such member"
              : "there is no such member in a script of " + std::string(GameName(game_)));
  }
}

const Json& JsonReader::ListOfExactly(std::size_t count, const char* what, const Json& json,
                                      const std::string& place) {
  if (!json.is_array() || json.size() != count) {
    Error("wrong-type", place, "a list of " + std::to_string(count) + ' ' + what + " is needed");
  }
  return ListOrNone(&json);
}

const Json& JsonReader::ListOf(const Json* member, const std::string& place, std::size_t most) {
  if (member != nullptr && !member->is_array()) Error("wrong-type", place, "a list is needed");
  const Json& list = ListOrNone(member);
  if (list.size() > most) {
    Error("over-limit", place,
          std::to_string(list.size()) + " entries; " + std::to_string(most) + " are the most");
  }
  return list;
}

std::optional<std::int64_t> JsonReader::ReadNumber(const Json& json, const std::string& place,
                                                   std::int64_t lowest, std::int64_t highest) {
  const auto range = [&] { return std::to_string(lowest) + " to " + std::to_string(highest); };
  if (!json.is_number_integer()) {
    Error("wrong-type", place, "a whole number from " + range() + " is needed");
    return std::nullopt;
  }
  const bool beyond = json.is_number_unsigned() && json.get<std::uint64_t>() > kLargest;
  const std::int64_t number = beyond ? highest : json.get<std::int64_t>();
  if (!beyond && number >= lowest && number <= highest) return number;
  Error("out-of-range", place, json.dump() + " is not in the range from " + range());
  return std::nullopt;
}

std::optional<std::size_t> JsonReader::ReadWord(const Json& json, const std::string& place,
                                                std::span<const std::string_view> words) {
  const auto found = std::find(words.begin(), words.end(),
                               json.is_string() ? json.get<std::string>() : std::string());
  if (found != words.end()) return static_cast<std::size_t>(found - words.begin());
  std::string known;
  for (const std::string_view word : words) known += ' ' + std::string(word);
  Error("unknown-word", place, "one of these words is needed:" + known);
  return std::nullopt;
}

std::int64_t JsonReader::ReadOnOff(const Json& json, const std::string& place) {
  if (!json.is_boolean()) Error("wrong-type", place, "true or false is needed");
  return json == true ? kOn : kOff;
}

std::string JsonReader::ReadEntryText(const Json& json, const std::string& place) {
  const Json* text = &json;
  bool terminated = true;
  if (json.is_object()) {
    text = Member(json, "Text");
    const Json* unterminated = Member(json, "Unterminated");
    terminated =
        unterminated == nullptr || ReadOnOff(*unterminated, place + "/Unterminated") != kOn;
    RefuseOthers(json, place, {"Text", "Unterminated"});
  }
  if (text == nullptr || !text->is_string()) {
    Error("wrong-type", place, "a text is needed");
    return {};
  }
  try {
    return InCodePage(text->get<std::string>()) + (terminated ? std::string(1, '\0') : "");
  } catch (const NoBytes& trouble) {
    Error("code-page", place, trouble.what());
    return {};
  }
}

}  // namespace quillmark
