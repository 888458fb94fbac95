// Looking at eight characters at once tells what looking at each tells, for all characters and lengths.
#include "core/eight_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace trillomat {
namespace {

TEST(EightBytes, TellTheSameOfEveryByteWhereverItStands) {
  for (int other = 0; other < 256; other += 15) {
    for (int value = 0; value < 256; ++value) {
      for (size_t at = 0; at < EightBytes::kCount; ++at) {
        std::string text(EightBytes::kCount, static_cast<char>(other));
        text[at] = static_cast<char>(value);
        const EightBytes bytes(text);
        EXPECT_EQ(bytes.Equal(')').Holds(at), value == ')');
        EXPECT_EQ(bytes.Equal('\xE4').Holds(at), value == 0xE4);
        EXPECT_EQ(bytes.Between('A', 'y').Holds(at), value >= 'A' && value <= 'y') << value;
        EXPECT_EQ((bytes.Between('0', '9').Packed() >> at) & 1, value >= '0' && value <= '9' ? 1 : 0);
      }
    }
  }
}

TEST(EightBytes, FindCountAndLeaveOutInTextsOfEveryLength) {
  const auto match = [](EightBytes bytes) { return bytes.Equal(' ') | bytes.Equal('\n'); };
  const auto matches = [](char c) { return c == ' ' || c == '\n'; };
  std::mt19937 random(5);
  for (size_t size = 0; size < 100; ++size) {
    std::string text(size, 'x');
    for (char& c : text) c = random() % 4 == 0 ? " \n\0!"[random() % 4] : static_cast<char>(random());
    const auto found = std::find_if(text.begin(), text.end(), matches);
    EXPECT_EQ(FindByte(text, match), static_cast<size_t>(found - text.begin()));
    EXPECT_EQ(CountBytes(text, match), static_cast<size_t>(std::count_if(text.begin(), text.end(), matches)));
    std::string rest = text;
    std::erase_if(rest, matches);
    EXPECT_EQ(WithoutBytes(text, match), rest);
  }
}

}  // namespace
}  // namespace trillomat
