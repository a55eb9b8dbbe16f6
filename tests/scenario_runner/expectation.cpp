#include "scenario_runner/expectation.h"

#include <nlohmann/json.hpp>

namespace quillmark {

namespace {

using nlohmann::json;

constexpr std::size_t kShownLength = 2000;

[[noreturn]] void FailDifferent(const std::string& expected, const std::string& got) {
  throw Failure("\n  expected: " + expected + "\n  got:      " + got.substr(0, kShownLength));
}

/// An expected object names what is looked at: members of an object, or entries of an array by
/// number. All else is the same.
bool Covers(const json& value, const json& expected) {
  if (!expected.is_object() || !value.is_structured()) return value == expected;
  for (const auto& [key, member] : expected.items()) {
    const json::json_pointer place = json::json_pointer() / key;
    if (!value.contains(place) || !Covers(value.at(place), member)) return false;
  }
  return true;
}

/// Compares an object, and what stands in it at a pointer such as "/rows/3".
void CheckObject(const std::string& expected, const std::string& got) {
  const std::size_t start = expected.starts_with('/') ? expected.find(' ') : 0;
  const json value = json::parse(got, nullptr, false);
  const json::json_pointer pointer(expected.substr(0, start));
  if (value.is_discarded() || !value.contains(pointer)) FailDifferent(expected, got);
  if (!Covers(value.at(pointer), json::parse(expected.substr(start)))) {
    FailDifferent(expected, value.at(pointer).dump());
  }
}

}  // namespace

void CheckAnswer(const std::vector<std::string>& expected, const std::vector<std::string>& answer) {
  std::size_t next = 0;   // of the answer
  bool inObject = false;  // whether the line before can be looked into
  for (const std::string& line : expected) {
    const bool pointer = line.starts_with('/');
    if (!pointer || !inObject) ++next;
    if (next > answer.size()) FailDifferent(line, "nothing more");
    const std::string& got = answer[next - 1];
    inObject = pointer || line.starts_with('{') || line.starts_with('[');
    if (inObject) {
      CheckObject(line, got);
    } else if (got != line) {
      FailDifferent(line, got);
    }
  }
  if (next < answer.size() && answer[next] != "ready") {
    FailDifferent(expected.empty() ? "ready" : "nothing more", answer[next]);
  }
}

}  // namespace quillmark
