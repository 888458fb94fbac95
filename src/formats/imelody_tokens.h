// Cuts the melody of an iMelody file into its tokens, which stand without a separator:
//
//   c2*5#d3.r2ledon(@2)   is   "c2"  "*5#d3."  "r2"  "ledon"  "("  "@2)"
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/ascii.h"
#include "core/token_cache.h"
#include "formats/token_ends.h"

namespace trillomat {

class IMelodyTokens {
 public:
  /// `original` holds the melody as it stands in the file, over one or more lines.
  explicit IMelodyTokens(std::string_view original);

  /// Whether all tokens were taken. False too when a damaged last token has reached into the sentinel: the
  /// next TakeToken throws then.
  bool IsEmpty() const { return text_.size() - begin_ == kSentinel.size(); }

  /// Throws a ReadFault where no token can be cut.
  CutToken TakeToken() {
    const size_t begin = begin_;
    begin_ = TokenEnd();
    return {text_, begin, begin_};
  }

  /// A number that the tokens do not exceed, as long as none is damaged.
  size_t MostTokens() const;

  /// Where a token stands in the file.
  std::string_view Origin(std::string_view token) const;

 private:
  // A note ends with its length, which is the first digit that does not stand behind a "*" (that one is its
  // octave), or with the mark behind the length.
  struct NoteEnds {
    static CharacterMask DigitsIn(CharacterBlock block) { return block.Between('0', '9'); }
    static CharacterMask LengthsIn(CharacterBlock block) {
      return DigitsIn(block) & ~block.Shifted(-1).Equal('*');
    }
    static CharacterMask MarksIn(CharacterBlock block) { return block.Equal('.') | block.Between(':', ';'); }

    CharacterMask operator()(CharacterBlock block) const {
      return (LengthsIn(block) & ~MarksIn(block.Shifted(1))) |
             (LengthsIn(block.Shifted(-1)) & MarksIn(block));
    }
  };

  // Stands behind the melody while tokens are cut. A damaged last token may reach into it.
  static constexpr std::string_view kSentinel = "--END--";

  // Whether a token with this first character may be something else than a whole note, so that NoteEnds does
  // not tell its end.
  static bool NeedsLook(char first) {
    static constexpr auto kNeedsLook = [] {
      std::array<bool, 256> needs{};
      for (const char each : std::string_view("V(@lbv.:;0123456789"))
        needs.at(static_cast<unsigned char>(each)) = true;
      return needs;
    }();
    return kNeedsLook.at(static_cast<unsigned char>(first));
  }

  size_t TokenEnd() {
    if (begin_ < text_.size() && !NeedsLook(text_[begin_])) {
      const size_t last = ends_.Next();
      if (last - begin_ < CutToken::kLongestWord) return last + 1;
    }
    const size_t end = begin_ + TokenLength(std::string_view(text_).substr(begin_));
    ends_.SkipTo(end);
    return std::min(end, text_.size());
  }

  size_t TokenLength(std::string_view rest) const;
  size_t RepeatEndLength(std::string_view rest) const;
  size_t NoteLength(std::string_view rest) const;
  [[noreturn]] void Fail(const std::string& why, std::string_view rest, std::string_view advice) const;

  std::string_view original_;
  std::string text_;  ///< without whitespace, and with the sentinel behind it
  TokenEnds<NoteEnds> ends_;
  size_t begin_ = 0;  ///< of what is left
};

}  // namespace trillomat
