// "Fits this phone?": what each export makes of a song before it is made, by the very code that makes it, and
// the words for that.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "exchange/export.h"

namespace trillomat {

inline constexpr size_t kLosses = static_cast<size_t>(Loss::TooMany) + 1;

/// An element that does not fit, and why.
struct Misfit {
  size_t index;
  Loss loss;

  bool operator==(const Misfit&) const = default;
};

struct PhoneFit {
  Phone phone = Phone::Rtttl;
  size_t elements = 0;  ///< of the song
  bool inRange = true;  ///< the song can be moved into the octaves of the export; without that there is none
  int octaves = 0;      ///< by which it is moved up, or down when negative
  std::optional<Misfit> first = {};         ///< in the order of the song
  std::array<size_t, kLosses> losses = {};  ///< how many elements are lost, by Loss; of a song in range

  bool Fits() const { return !first; }
};

/// `spelling` is that of RTTTL.
PhoneFit FitOf(Phone phone, const Song& song, RtttlSpelling spelling = RtttlSpelling::Classic);

/// One line: "Nokia Composer: fits when moved 1 octave up; 42 elements, it takes 50 notes". `firstWords` are
/// those of the element that does not fit first. Elements count from 1.
std::string FitText(const PhoneFit& fit, std::string_view firstWords);

/// "element 12 has a length that it lacks".
std::string MisfitText(const Misfit& misfit);

/// "3 of 42 elements left out: 2 commands, 1 dot or triplet"; empty where the export says everything.
std::string LossText(const PhoneFit& fit);

}  // namespace trillomat
