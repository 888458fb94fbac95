// Finds where the tokens of a text end, 64 characters at a time. Cutting the tokens is then a matter of
// taking one bit after the other, without a branch that depends on how long each token is.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string_view>

#include "core/character_block.h"

namespace trillomat {

/// How many characters in front of a block and behind it `Ends` may look at.
inline constexpr size_t kEndsMargin = 2;

/// `Ends` is a function object that takes a CharacterBlock and returns which of its characters end a token.
/// NUL, with which the text is filled up at both ends, must not end one.
template <typename Ends>
class TokenEnds {
 public:
  static constexpr size_t kNone = SIZE_MAX;

  explicit TokenEnds(std::string_view text) : text_(text) {}

  /// The index of the next character that ends a token, or kNone.
  size_t Next() {
    while (ends_ == 0) {
      if (next_ >= text_.size()) return kNone;
      TakeBlock();
    }
    const size_t end = next_ - kBlock + static_cast<size_t>(std::countr_zero(ends_));
    ends_ &= ends_ - 1;
    return end;
  }

  /// Goes on at `index`, which must not lie in front of the last end that Next gave.
  void SkipTo(size_t index) {
    if (index >= next_) {
      next_ = index - index % kBlock;
      ends_ = 0;
      if (index == next_ || next_ >= text_.size()) return;
      TakeBlock();
    }
    ends_ &= ~uint64_t{0} << (index % kBlock);
  }

 private:
  static constexpr size_t kBlock = CharacterBlock::kCount;

  void TakeBlock() {
    if (next_ >= kEndsMargin && next_ + kBlock + kEndsMargin <= text_.size()) {
      ends_ = Ends()(CharacterBlock(text_.data() + next_));
    } else {
      std::array<char, kEndsMargin + kBlock + kEndsMargin> block{};
      const size_t front = std::min(next_, kEndsMargin);
      const std::string_view part = text_.substr(next_ - front, front + kBlock + kEndsMargin);
      part.copy(block.data() + kEndsMargin - front, part.size());
      ends_ = Ends()(CharacterBlock(block.data() + kEndsMargin));
    }
    next_ += kBlock;
  }

  std::string_view text_;
  size_t next_ = 0;    ///< where the next block begins
  uint64_t ends_ = 0;  ///< the ends in the block before that which were not taken yet, a bit for each
};

}  // namespace trillomat
