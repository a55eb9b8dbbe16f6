// The code page, byte by byte, against the letters themselves.

#include "platform/ansi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

namespace quillmark {
namespace {

/// The bytes 80 to FF as letters; the five that the code page leaves out are controls.
const std::string kUpperHalf =
    "\u20AC\xC2\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\xC2\x8D\u017D"
    "\xC2\x8F\xC2\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153"
    "\xC2\x9D\u017E\u0178\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"
    "àáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ";
const std::string kSmall = "abcdefghijklmnopqrstuvwxyzšœžàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþÿ";
const std::string kCapital = "ABCDEFGHIJKLMNOPQRSTUVWXYZŠŒŽÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞŸ";

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

TEST(AnsiTest, EachByteStandsForItsLetter) {
  const std::string bytes = AllBytes();
  EXPECT_EQ(AnsiToUtf8(bytes), bytes.substr(0, 128) + kUpperHalf);
  EXPECT_EQ(Utf8ToAnsi(bytes.substr(0, 128) + kUpperHalf), bytes);
}

TEST(AnsiTest, SmallLettersHaveCapitalsAndNothingElseHas) {
  const std::string small = Utf8ToAnsi(kSmall);
  const std::string capital = Utf8ToAnsi(kCapital);
  std::string expected = AllBytes();
  for (std::size_t i = 0; i < small.size(); ++i) {
    std::replace(expected.begin(), expected.end(), small[i], capital[i]);
  }
  EXPECT_EQ(AnsiInCapitals(AllBytes()), expected);
}

TEST(AnsiTest, WhatHasNoByteBecomesAQuestionMark) {
  const std::map<std::string, std::string> cases = {{"", ""},
                                                    {"a\u0100b", "a?b"},
                                                    {"\U0001F600\u20AC", "?\x80"},
                                                    {"\xE2\x82", "??"},
                                                    {"\x80\xC0\x80", "???"},
                                                    {"\xC1\xBF\xE0\x80\x80", "?????"},
                                                    {"\xED\xA0\x80", "???"},
                                                    {"\xF4\x8F\xBF\xBF", "?"},
                                                    {"\xF4\x90\x80\x80", "????"},
                                                    {"\xC3(\xC3\xA9", "?(\xE9"}};
  for (const auto& [utf8, ansi] : cases) EXPECT_EQ(Utf8ToAnsi(utf8), ansi) << utf8;
}

}  // namespace
}  // namespace quillmark
