// Where the tokens of a text end, found for 64 characters at once: then cutting them is to count off bits,
// without a branch that depends on how long each token is.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/eight_bytes.h"

namespace trillomat {

/// Eight characters of a text and their neighbours; NUL where the text has none.
class Neighbourhood {
 public:
  /// How many characters in front of the eight and behind them there are.
  static constexpr size_t kMargin = 2;

  explicit Neighbourhood(const char* at) : at_(at) {}

  EightBytes Here() const { return Behind(0); }
  /// Those that stand so many places behind each of the eight, from -kMargin to kMargin.
  EightBytes Behind(ptrdiff_t places) const { return EightBytes({at_ + places, EightBytes::kCount}); }

 private:
  const char* at_;
};

/// `Ends` is a function object: of a Neighbourhood it gives the characters that end a token, NUL not among
/// them.
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

  /// Goes on at `index`, which is not in front of the last that Next gave.
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
  static constexpr size_t kBlock = 64;

  void TakeBlock() {
    constexpr size_t kMargin = Neighbourhood::kMargin;
    if (next_ >= kMargin && next_ + kBlock + kMargin <= text_.size()) {
      ends_ = EndsFrom(text_.data() + next_);
    } else {
      std::array<char, kMargin + kBlock + kMargin> block{};
      const size_t front = std::min(next_, kMargin);
      const std::string_view part = text_.substr(next_ - front, front + kBlock + kMargin);
      std::memcpy(block.data() + kMargin - front, part.data(), part.size());
      ends_ = EndsFrom(block.data() + kMargin);
    }
    next_ += kBlock;
  }

  static uint64_t EndsFrom(const char* block) {
    uint64_t ends = 0;
    for (size_t i = 0; i < kBlock; i += EightBytes::kCount) {
      ends |= uint64_t{Ends()(Neighbourhood(block + i)).Packed()} << i;
    }
    return ends;
  }

  std::string_view text_;
  size_t next_ = 0;    ///< the block that follows
  uint64_t ends_ = 0;  ///< those that are left of the block in front of it, a bit each
};

}  // namespace trillomat
