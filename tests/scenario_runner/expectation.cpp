#include "scenario_runner/expectation.h"

#include <nlohmann/json.hpp>

#include "scenario_runner/failure.h"

namespace quillmark {

namespace {

using nlohmann::json;

constexpr std::size_t kShownLength = 2000;

[[noreturn]] void FailDifferent(const std::string& expected, const std::string& got) {
  throw Failure("\n  expected: " + expected + "\n  got:      " + got.substr(0, kShownLength));
}

json Parsed(const std::string& text) {
  json value = json::parse(text, nullptr, false);
  if (value.is_discarded()) throw Failure("not JSON: " + text.substr(0, kShownLength));
  return value;
}

/// Objects hold at least the members of the expected one; all else is the same.
bool Covers(const json& value, const json& expected) {
  if (!expected.is_object() || !value.is_object()) return value == expected;
  for (const auto& [key, member] : expected.items()) {
    if (!value.contains(key) || !Covers(value.at(key), member)) return false;
  }
  return true;
}

void CheckPlace(const std::string& line, const json& object) {
  const auto blank = line.find(' ');
  if (blank == std::string::npos) throw Failure("no value behind the pointer: " + line);
  const json::json_pointer pointer(line.substr(0, blank));
  if (!object.contains(pointer)) FailDifferent(line, "nothing there");
  if (!Covers(object.at(pointer), Parsed(line.substr(blank + 1)))) {
    FailDifferent(line, object.at(pointer).dump());
  }
}

}  // namespace

void CheckAnswer(const std::vector<std::string>& expected, const std::vector<std::string>& answer) {
  std::size_t place = 0;
  json object;
  const auto nextLine = [&](const std::string& wanted) -> const std::string& {
    if (place == answer.size()) FailDifferent(wanted, "nothing more");
    return answer[place++];
  };
  for (const std::string& line : expected) {
    if (line.starts_with('/')) {
      if (object.is_null()) object = Parsed(nextLine(line));
      CheckPlace(line, object);
      continue;
    }
    const std::string& got = nextLine(line);
    object = nullptr;
    if (line.starts_with('{') || line.starts_with('[')) {
      if (!got.starts_with(line.front())) FailDifferent(line, got);
      object = Parsed(got);
      if (!Covers(object, Parsed(line))) FailDifferent(line, got);
    } else if (got != line) {
      FailDifferent(line, got);
    }
  }
  if (place < answer.size() && answer[place] != "ready") {
    FailDifferent(expected.empty() ? "ready" : "nothing more", answer[place]);
  }
}

}  // namespace quillmark
