#include "core/code_page.h"

#include <gtest/gtest.h>

namespace trillomat {
namespace {

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

}  // namespace
}  // namespace trillomat
