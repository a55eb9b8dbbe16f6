#include "platform/number_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "platform/fault.h"

namespace quillmark {
namespace {

using Real = std::pair<std::string, double>;
using Whole = std::pair<std::string, std::int64_t>;

constexpr double kHighest = std::numeric_limits<double>::max();
constexpr std::uint64_t kAllBits = std::numeric_limits<std::uint64_t>::max();
constexpr std::int64_t kFarthest = 1'000'000'000'000'000;

TEST(NumberTextTest, TellsNumbersFromOtherTexts) {
  const Real numbers[] = {{"0", 0},    {" 25 ", 25}, {"+25", 25},  {"-1", -1},    {"25.", 25},
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
                                                   {1e300, kFarthest}};
  for (const auto& [number, rounded] : cases) EXPECT_EQ(RoundedNumber(number), rounded);
}

TEST(NumberTextTest, ReadsANumberAtTheStartOfAText) {
  const std::string far(400, '9');
  const std::string tiny = "0." + std::string(400, '0') + "1";
  const Real cases[] = {
      {"", 0},    {" ", 0},         {"  12x", 12}, {"-7 8", -7},    {"+7", 7},
      {"--7", 0}, {"255.4", 255.4}, {".5.5", 0.5}, {".", 0},        {"1e3", 1},
      {"inf", 0}, {"x1", 0},        {tiny, 0},     {far, kHighest}, {"-" + far, -kHighest}};
  for (const auto& [text, number] : cases) EXPECT_EQ(ValueAtStart(text), number) << text;
  const Whole rounded[] = {{"2.5", 2}, {"3.5", 4}, {"-3.5", -4}, {"255.4", 255}, {far, kFarthest}};
  for (const auto& [text, number] : rounded) EXPECT_EQ(NumberAtStart(text), number) << text;
}

TEST(NumberTextTest, TakesAWholeTextOrFaults) {
  EXPECT_EQ(WholeNumber(" 12.5 "), 12);
  EXPECT_EQ(RequireNumber("-0.25"), -0.25);
  for (const char* text : {"", "12x", "0x1"}) {
    try {
      WholeNumber(text);
      ADD_FAILURE() << text;
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.kind(), FaultKind::Type);
      EXPECT_EQ(fault.what(), "'" + std::string(text) + "' is not a number");
    }
  }
}

TEST(NumberTextTest, ReadsDigitsUpToTheFirstOther) {
  using Case = std::tuple<const char*, std::uint64_t, int>;
  for (const auto& [text, hex, digits] : {Case{"", 0, 0},
                                          {"g", 0, 0},
                                          {" 1", 0, 0},
                                          {"-1", 0, 0},
                                          {"0", 0, 0},
                                          {"007x", 7, 7},
                                          {"12G4", 0x12, 12},
                                          {"fFfF", 0xffff, 0},
                                          {"80000000", 0x80000000U, 80000000},
                                          {"2147483647", 0x2147483647, 2147483647},
                                          {"2147483648", 0x2147483648, 2147483647},
                                          {"99999999999 ", 0x99999999999, 2147483647},
                                          {"ffffffffffffffff", kAllBits, 0},
                                          {"10000000000000000", kAllBits, 2147483647}}) {
    EXPECT_EQ(HexAtStart(text), hex) << text;
    EXPECT_EQ(DigitsAtStart(text), digits) << text;
  }
  for (const char* text : {"0", "0123456789"}) EXPECT_TRUE(IsAllDigits(text)) << text;
  for (const char* text : {"", " 1", "1 ", "-1", "1.0", "/", ":", "\xB2"}) {
    EXPECT_FALSE(IsAllDigits(text)) << text;
  }
}

TEST(NumberTextTest, WritesNumbers) {
  const std::pair<std::uint32_t, const char*> cases[] = {
      {0, "0"}, {9, "9"}, {10, "A"}, {0xC00, "C00"}, {0xFFFFFFFFU, "FFFFFFFF"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(HexText(number), text);
  EXPECT_EQ(DecimalText(Int16(-32768)), "-32768");
}

}  // namespace
}  // namespace quillmark
