// Looks at 64 characters of a text at a time, with a bit for each. With it, characters of long texts are
// found, counted and left out many times as fast as one after the other.
#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace trillomat {

/// A selection of 64 characters: a bit for each, the lowest for the first.
using CharacterMask = uint64_t;

class CharacterBlock {
 public:
  static constexpr size_t kCount = 64;

  /// The 64 characters from `at` on, which have to exist as long as the block does.
  explicit CharacterBlock(const char* at) : at_(at) {}

  /// Which of the characters are `c`.
  CharacterMask Equal(char c) const {
    return Where([c](Vector characters) { return characters == static_cast<signed char>(c); });
  }
  /// Which of them lie between `low` and `high`, two ASCII characters, both included.
  CharacterMask Between(char low, char high) const {
    return Where([low, high](Vector characters) {
      return (characters >= static_cast<signed char>(low)) & (characters <= static_cast<signed char>(high));
    });
  }

  /// The 64 characters that begin `places` further on, or before where it is negative; they have to exist
  /// too.
  CharacterBlock Shifted(ptrdiff_t places) const { return CharacterBlock(at_ + places); }

 private:
  static constexpr size_t kVector = 16;
  using Vector __attribute__((vector_size(kVector))) = signed char;

  template <typename Test>
  CharacterMask Where(const Test& test) const {
    CharacterMask mask = 0;
    for (size_t i = 0; i < kCount; i += kVector) {
      Vector characters;
      std::memcpy(&characters, at_ + i, kVector);
      mask |= CharacterMask{Bits(test(characters))} << i;
    }
    return mask;
  }

  // A bit for each element that is not 0. Compilers do not find the single instruction for this by
  // themselves.
  static uint16_t Bits(Vector found) {
#ifdef __SSE2__
    return static_cast<uint16_t>(_mm_movemask_epi8(std::bit_cast<__m128i>(found)));
#else
    unsigned bits = 0;
    for (size_t i = 0; i < kVector; ++i) bits |= (found[i] != 0 ? 1U : 0U) << i;
    return static_cast<uint16_t>(bits);
#endif
  }

  const char* at_;
};

/// A function object that selects the characters that are looked for in a block. It must not select NUL, with
/// which the last block of a text is filled up.
template <typename Match>
concept BlockMatch = requires(Match match, CharacterBlock block) {
  { match(block) } -> std::same_as<CharacterMask>;
};

/// What `match` selects of the 64 characters of `text` from `at` on, or of as many as there are.
CharacterMask MatchesIn(std::string_view text, size_t at, BlockMatch auto match) {
  if (text.size() - at >= CharacterBlock::kCount) return match(CharacterBlock(text.data() + at));
  std::array<char, CharacterBlock::kCount> end{};
  text.copy(end.data(), end.size(), at);
  return match(CharacterBlock(end.data()));
}

/// Index of the first character of `text` that `match` selects; the size of the text for none.
size_t FindCharacter(std::string_view text, BlockMatch auto match) {
  for (size_t at = 0; at < text.size(); at += CharacterBlock::kCount) {
    const CharacterMask found = MatchesIn(text, at, match);
    if (found != 0) return at + static_cast<size_t>(std::countr_zero(found));
  }
  return text.size();
}

/// The number of selected characters. std::popcount would be a call of a function, as the program has to run
/// on processors without an instruction for it.
inline size_t CountOf(CharacterMask mask) {
  mask -= (mask >> 1U) & 0x5555555555555555;
  mask = (mask & 0x3333333333333333) + ((mask >> 2U) & 0x3333333333333333);
  return static_cast<size_t>((((mask + (mask >> 4U)) & 0x0F0F0F0F0F0F0F0F) * 0x0101010101010101) >> 56U);
}

/// How many characters of `text` `match` selects.
size_t CountCharacters(std::string_view text, BlockMatch auto match) {
  size_t count = 0;
  for (size_t at = 0; at < text.size(); at += CharacterBlock::kCount) {
    count += CountOf(MatchesIn(text, at, match));
  }
  return count;
}

/// `text` without the characters that `match` selects.
std::string WithoutCharacters(std::string_view text, BlockMatch auto match) {
  std::string result(text.size(), '\0');
  size_t size = 0;
  for (size_t at = 0; at < text.size(); at += CharacterBlock::kCount) {
    const std::string_view block = text.substr(at, CharacterBlock::kCount);
    size_t kept = 0;
    for (CharacterMask leftOut = MatchesIn(text, at, match); leftOut != 0; leftOut &= leftOut - 1) {
      const auto next = static_cast<size_t>(std::countr_zero(leftOut));
      size += block.substr(kept, next - kept).copy(&result[size], next - kept);
      kept = next + 1;
    }
    size += block.substr(kept).copy(&result[size], block.size() - kept);
  }
  result.resize(size);
  return result;
}

}  // namespace trillomat
