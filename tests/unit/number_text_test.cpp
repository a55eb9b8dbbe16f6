#include "platform/number_text.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

TEST(NumberTextTest, TellsNumbersFromOtherTexts) {
  const std::pair<const char*, double> numbers[] = {
      {"0", 0},    {" 25 ", 25}, {"+25", 25},  {"-1", -1},    {"25.", 25},
      {".5", 0.5}, {"2e1", 20},  {"2D+1", 20}, {"1d-1", 0.1}, {"007", 7}};
  for (const auto& [text, number] : numbers) {
    ASSERT_TRUE(NumberOf(text)) << text;
    EXPECT_DOUBLE_EQ(*NumberOf(text), number) << text;
  }
  for (const char* text : {"", " ", ".", "-", "+-1", "--1", "1-", "1e", "e1", "1,5", "1 5", "0x19",
                           "25 fps", "inf", "nan", "1e999", "1.2.3"}) {
    EXPECT_FALSE(NumberOf(text)) << text;
  }
}

TEST(NumberTextTest, RoundsAHalfToTheEvenNeighbour) {
  const std::pair<double, std::int64_t> cases[] = {{0.5, 0},
                                                   {1.5, 2},
                                                   {2.5, 2},
                                                   {-0.5, 0},
                                                   {-1.5, -2},
                                                   {2.49, 2},
                                                   {2147483647.5, 2147483648},
                                                   {1e300, 1'000'000'000'000'000}};
  for (const auto& [number, rounded] : cases) EXPECT_EQ(RoundedNumber(number), rounded);
}

}  // namespace
}  // namespace quillmark
