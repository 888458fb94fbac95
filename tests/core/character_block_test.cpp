// Looking at 64 characters at once gives the same as looking at each, for all characters and lengths of text.
#include "core/character_block.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace trillomat {
namespace {

TEST(CharacterBlock, TellsTheSameOfEveryCharacterWhereverItStands) {
  constexpr size_t kMargin = 2;
  for (int other = 0; other < 256; other += 15) {
    for (int value = 0; value < 256; ++value) {
      for (size_t at = 0; at < CharacterBlock::kCount; at += 3) {
        std::string text(kMargin + CharacterBlock::kCount, static_cast<char>(other));
        text[kMargin + at] = static_cast<char>(value);
        const CharacterBlock block(text.data() + kMargin);
        const auto holds = [at](CharacterMask mask) { return ((mask >> at) & 1) != 0; };
        EXPECT_EQ(holds(block.Equal(')')), value == ')');
        EXPECT_EQ(holds(block.Equal('\xE4')), value == 0xE4);
        EXPECT_EQ(holds(block.Between('A', 'y')), value >= 'A' && value <= 'y') << value;
        const auto before = static_cast<unsigned char>(text[at]);
        EXPECT_EQ(holds(block.Shifted(-2).Between('0', '9')), before >= '0' && before <= '9');
      }
    }
  }
}

TEST(CharacterBlock, FindsCountsAndLeavesOutInTextsOfEveryLength) {
  const auto match = [](CharacterBlock block) { return block.Equal(' ') | block.Equal('\n'); };
  const auto matches = [](char c) { return c == ' ' || c == '\n'; };
  std::mt19937 random(5);
  for (size_t size = 0; size < 300; ++size) {
    std::string text(size, 'x');
    for (char& c : text) c = random() % 4 == 0 ? " \n\0!"[random() % 4] : static_cast<char>(random());
    const auto found = std::find_if(text.begin(), text.end(), matches);
    EXPECT_EQ(FindCharacter(text, match), static_cast<size_t>(found - text.begin()));
    EXPECT_EQ(CountCharacters(text, match),
              static_cast<size_t>(std::count_if(text.begin(), text.end(), matches)));
    std::string rest = text;
    std::erase_if(rest, matches);
    EXPECT_EQ(WithoutCharacters(text, match), rest);
  }
}

}  // namespace
}  // namespace trillomat
