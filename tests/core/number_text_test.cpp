#include "core/number_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace trillomat {
namespace {

TEST(NumberTextTest, LeadingNumberTakesBlanksSignDigitsAndOnePoint) {
  struct Case {
    std::string text;
    double value;
  };
  const Case cases[] = {{"120", 120},
                        {"  120 bpm", 120},
                        {"120.5", 120.5},
                        {"-7", -7},
                        {"+7", 7},
                        {".5", 0.5},
                        {"5.", 5},
                        {"1.2.3", 1.2},
                        {"1e3", 1},
                        {"0x10", 0},
                        {"", 0},
                        {"-", 0},
                        {".", 0},
                        {"Slow", 0},
                        {"\t5", 0},
                        {"- 5", 0},
                        {"--5", 0},
                        {std::string("1\0002", 3), 1},
                        {"0." + std::string(500, '0') + "1", 0}};
  for (const Case& c : cases) EXPECT_EQ(LeadingNumber(c.text), c.value) << c.text;
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

}  // namespace
}  // namespace trillomat
