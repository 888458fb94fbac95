// The tokens that have been decoded, in a bounded memory. A reader has one for each text, unless it is handed
// one that lives longer: the tokens of short tunes repeat from one to the next.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/codec.h"
#include "core/remembered.h"

namespace trillomat {

/// A token as it stands in a text, and all of it in one word if it is short.
class CutToken {
 public:
  /// The longest that goes into a word.
  static constexpr size_t kLongestWord = 7;

  /// The characters of `text` from `begin` up to `end`.
  CutToken(std::string_view text, size_t begin, size_t end)
      : text_(text.data() + begin, end - begin), word_(WordOf(text, begin, end)) {}

  std::string_view Text() const { return text_; }
  /// Its characters and its length, or kNoWord.
  uint64_t Word() const { return word_; }

  static constexpr uint64_t kNoWord = 0;

 private:
  static uint64_t WordOf(std::string_view text, size_t begin, size_t end) {
    const size_t size = end - begin;
    if (size > kLongestWord) return kNoWord;
    uint64_t word = 0;
    if (text.size() - begin >= sizeof(word)) {
      // Of one size and cut afterwards, it is one instruction.
      std::memcpy(&word, text.data() + begin, sizeof(word));
      if constexpr (std::endian::native == std::endian::big) word = __builtin_bswap64(word);
      word &= (uint64_t{1} << (8 * size)) - 1;
    } else {
      for (size_t i = 0; i < size; ++i)
        word |= uint64_t{static_cast<unsigned char>(text[begin + i])} << (8 * i);
    }
    return word | uint64_t{size + 1} << 56U;
  }

  std::string_view text_;
  uint64_t word_;
};

struct DecodedToken {
  Element element;
  bool understood = false;  ///< IsUnderstood
  bool refused = false;     ///< it is the command kRefusedToken
};

/// The notation of a token, and what it takes where it leaves something out, in one word.
class TokenRules {
 public:
  TokenRules(FormatMode mode, const TokenDefaults& defaults)
      : word_(static_cast<uint64_t>(mode) | uint64_t{static_cast<uint16_t>(defaults.octave)} << 16U |
              uint64_t{std::bit_cast<uint32_t>(defaults.duration)} << 32U) {}

  uint64_t Word() const { return word_; }

 private:
  uint64_t word_;
};

struct TokenKey {
  uint64_t token = CutToken::kNoWord;
  uint64_t rules = 0;

  uint64_t Hash() const {
    constexpr uint64_t kGolden = 0x9E3779B97F4A7C15;
    return (token ^ std::rotl(rules, 13)) * kGolden;
  }
  bool operator==(const TokenKey&) const = default;
};

class TokenMemory : public Remembered<TokenKey, DecodedToken> {
 public:
  using Remembered::Remembered;
};

}  // namespace trillomat
