#include "scenario_runner/expectation.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

using Lines = std::vector<std::string>;

const std::string kAnswer = R"({"text":"25","row":-1,"rows":["a",{"b":1}],"in":{"x":1,"y":2}})";

TEST(Expectation, ReportsEveryDifference) {
  const std::vector<std::pair<Lines, Lines>> cases = {
      {{}, {"refused", "ready"}},
      {{}, {"ended"}},
      {{"refused"}, {"ready"}},
      {{"ready", "ready"}, {"ready"}},
      {{"refused"}, {"refused", "box none OK \"\" \"\""}},
      {{R"({"row": 1})"}, {kAnswer, "ready"}},
      {{R"({"column": 1})"}, {kAnswer, "ready"}},
      {{R"({"rows": ["a"]})"}, {kAnswer, "ready"}},
      {{R"({"rows": {"2": "a"}})"}, {kAnswer, "ready"}},
      {{R"(["a"])"}, {R"(["a","b"])", "ready"}},
      {{"/in/z 1"}, {kAnswer, "ready"}},
      {{"/in/x 2"}, {kAnswer, "ready"}},
      {{"/in/x 1"}, {"refused", "ready"}},
  };
  for (const auto& [expected, answer] : cases) {
    EXPECT_THROW(CheckAnswer(expected, answer), Failure) << expected.size();
  }
}

}  // namespace
}  // namespace quillmark
