// Replaces or leaves out each byte of a text by a table, in one pass whatever the rule is.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace trillomat {

class ByteMap {
 public:
  /// For each byte, `replacement` gives the byte that takes its place, and `stays` whether it is kept at all.
  template <typename Replacement, typename Stays>
  constexpr ByteMap(Replacement replacement, Stays stays) {
    for (size_t i = 0; i < kBytes; ++i) {
      const char c = static_cast<char>(i);
      replacements_[i] = replacement(c);
      stays_[i] = stays(c);
    }
  }

  std::string operator()(std::string_view text) const;

 private:
  static constexpr size_t kBytes = 256;

  std::array<char, kBytes> replacements_{};
  std::array<bool, kBytes> stays_{};
};

}  // namespace trillomat
