// A cache of decoded tokens. A reader makes one for each text, unless it is handed one that lives longer
// (Services::tokens): the tokens of short tunes repeat from one tune to the next.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/cache.h"
#include "core/codec.h"

namespace trillomat {

/// A token as it stands in a text; a short one also packed into one word, which is quick to compare.
class CutToken {
 public:
  /// The longest token that fits the word: its length takes the eighth byte.
  static constexpr size_t kLongestWord = 7;

  /// The characters of `text` from `begin` up to `end`.
  CutToken(std::string_view text, size_t begin, size_t end)
      : text_(text.data() + begin, end - begin), word_(WordOf(text, begin, end)) {}

  std::string_view Text() const { return text_; }
  /// Its characters and its length; kNoWord for a longer token.
  uint64_t Word() const { return word_; }

  static constexpr uint64_t kNoWord = 0;

 private:
  static uint64_t WordOf(std::string_view text, size_t begin, size_t end) {
    const size_t size = end - begin;
    if (size > kLongestWord) return kNoWord;
    uint64_t word = 0;
    if (text.size() - begin >= sizeof(word)) {
      // A copy of fixed size is one instruction; what does not belong to the token is masked out.
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
  bool understood = false;  ///< IsUnderstood(element)
  bool refused = false;     ///< it is the command kRefusedToken
};

/// What else decides how a token is decoded, packed into one word: its notation, and the defaults for what it
/// leaves out.
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

class TokenCache : public Cache<TokenKey, DecodedToken> {
 public:
  using Cache::Cache;
};

}  // namespace trillomat
