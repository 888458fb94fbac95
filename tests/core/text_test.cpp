// Numbers as text, and text as bytes.
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "core/code_page.h"
#include "core/number_text.h"
#include "core/terminal_text.h"

namespace trillomat {
namespace {

TEST(NumberTextTest, LeadingNumberTakesBlanksSignDigitsAndOnePoint) {
  const std::map<std::string, double> numbers = {
      {"120", 120}, {"  120 bpm", 120}, {"120.5", 120.5}, {"-7", -7}, {"+7", 7},
      {".5", 0.5},  {"5.", 5},          {"1.2.3", 1.2},   {"1e3", 1}, {std::string("1\0002", 3), 1}};
  const std::map<std::string, double> zeros = {
      {"0x10", 0}, {"", 0},     {"-", 0},
      {".", 0},    {"Slow", 0}, {"\t5", 0},
      {"- 5", 0},  {"--5", 0},  {"0." + std::string(500, '0') + "1", 0}};
  for (const auto& cases : {numbers, zeros}) {
    for (const auto& [text, value] : cases) EXPECT_EQ(LeadingNumber(text), value) << text;
  }
  EXPECT_TRUE(std::isinf(LeadingNumber(std::string(400, '9'))));
}

TEST(NumberTextTest, RoundingGoesToEvenAndRefusesWhatDoesNotFit) {
  EXPECT_EQ(RoundToInt32(120.5), 120);
  EXPECT_EQ(RoundToInt32(121.5), 122);
  EXPECT_EQ(RoundToInt32(-0.5), 0);
  EXPECT_EQ(RoundToInt32(2147483647.4), 2147483647);
  EXPECT_FALSE(RoundToInt32(2147483647.5));
  EXPECT_FALSE(RoundToInt32(99999999999.0));
  EXPECT_EQ(RoundToInt16(32767.5), std::nullopt);
  EXPECT_EQ(RoundToInt16(-32768.0), -32768);
  EXPECT_FALSE(RoundToInt16(40000));
  EXPECT_FALSE(RoundToInt16(std::nan("")));
  EXPECT_FALSE(RoundToInt32(HUGE_VAL));
}

TEST(NumberTextTest, TextOfNumbers) {
  EXPECT_EQ(DecimalText(120), "120");
  EXPECT_EQ(DecimalText(-120), "120");
  EXPECT_EQ(DecimalText(0), "0");
  EXPECT_EQ(DecimalText(INT64_MIN), "9223372036854775808");
  EXPECT_EQ(SignedText(2), " 2");
  EXPECT_EQ(SignedText(0), " 0");
  EXPECT_EQ(SignedText(-2), "-2");
  EXPECT_EQ(FloatText(0.0F), "0");
  EXPECT_EQ(FloatText(0.125F), "0.125");
  EXPECT_EQ(FloatText(static_cast<float>(2.0 / 3.0)), "0.6666667");
}

TEST(CodePageTest, EveryByteSurvivesTheRoundTrip) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
}

TEST(CodePageTest, TextConverts) {
  EXPECT_EQ(ToUtf8("Fr\xE8re \x80 \x93x\x94"), "Frère € “x”");
  EXPECT_EQ(FromUtf8("Frère € “x”"), "Fr\xE8re \x80 \x93x\x94");
  EXPECT_EQ(FromUtf8("\u0416 \U0001F3B5 c"), "? ? c");
  EXPECT_TRUE(CodePageHas(U'é'));
  EXPECT_TRUE(CodePageHas(U'€'));
  EXPECT_FALSE(CodePageHas(U'Ж'));
  EXPECT_FALSE(CodePageHas(0x80 + 0x100));
}

TEST(CodePageTest, WhatIsNoUtf8IsRefused) {
  const std::string cases[] = {"\xE9",     "caf\xE9",          "\xC3",         "\xC3(",
                               "\xC0\x80", "\xE0\x80\x80",     "\xED\xA0\x80", "\xF5\x80\x80\x80",
                               "\x80",     "\xF4\x90\x80\x80", "\xF0\x9F\x8E"};
  for (const std::string& text : cases)
    EXPECT_EQ(FromUtf8(text), std::nullopt) << testing::PrintToString(text);
}

TEST(TerminalTextTest, NothingIsLeftThatATerminalObeys) {
  const std::map<std::string, std::string> cases = {{"\x1B[2J\x07\x7F", "\\x1B[2J\\x07\\x7F"},
                                                    {"a\tb\r\nc\n", "a\tb\r\nc\n"},
                                                    {"over\rwritten\r", "over\\x0Dwritten\\x0D"},
                                                    {"\xC2\x9B"
                                                     "31m",
                                                     "\\u009B31m"},
                                                    {"\x9B"
                                                     "31m \xC3",
                                                     "\\x9B31m \\xC3"},
                                                    {"gpj\u202E.imy", "gpj\\u202E.imy"},
                                                    {"Frère € \U0001F3B5", "Frère € \U0001F3B5"},
                                                    {std::string("\0", 1), "\\x00"}};
  for (const auto& [text, shown] : cases) EXPECT_EQ(EscapedForTerminal(text), shown);
}

}  // namespace
}  // namespace trillomat
