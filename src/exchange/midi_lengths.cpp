#include "exchange/midi_lengths.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/codec.h"
#include "exchange/midi_notes.h"

namespace trillomat {
namespace {

// Of one length, in the order of kDurationExtras: one length is cheaper than two, and a plain one cheaper
// than one with an extra.
constexpr std::array<int, kDurationExtras.size()> kCosts{4, 5, 6, 6};

int CostOf(const MidiLength& length) {
  return kCosts.at(static_cast<size_t>(DurationExtraIndex(length.extra)));
}

}  // namespace

MidiLengths::MidiLengths(FormatMode mode) {
  const int16_t octave = LimitsOf(mode).lowestOctave;
  for (const float duration : kDurations) {
    for (const float extra : kDurationExtras) {
      if (!Supports(Tone("c", octave, duration, extra), mode)) continue;
      const auto units = std::llround(double{duration} * double{extra} * static_cast<double>(kMidiUnits));
      lengths_.push_back({units, duration, extra});
      if (extra == kDurationExtras.front()) {
        grid_ = units;  // durations come from the longest on
        longest_ = std::max<int64_t>(longest_, units);
      }
      if (extra == kDurationExtras.back()) tripletGrid_ = units;
    }
  }
  std::sort(lengths_.begin(), lengths_.end(),
            [](const MidiLength& a, const MidiLength& b) { return a.units < b.units; });
  FindSums();
}

const MidiLength& MidiLengths::Nearest(int64_t units) const {
  return *std::min_element(lengths_.begin(), lengths_.end(),
                           [units](const MidiLength& a, const MidiLength& b) {
                             return std::abs(a.units - units) < std::abs(b.units - units);
                           });
}

const MidiLength& MidiLengths::LongestIn(int64_t units) const {
  const auto longer = std::find_if(lengths_.begin(), lengths_.end(),
                                   [units](const MidiLength& length) { return length.units > units; });
  return longer == lengths_.begin() ? *longer : *std::prev(longer);
}

std::vector<MidiLength> MidiLengths::Filling(int64_t units) const {
  const int64_t wholes = Wholes(units);
  std::vector<MidiLength> filling(static_cast<size_t>(wholes), Nearest(longest_));
  int64_t rest = Filled(units) - wholes * longest_;
  const auto first = static_cast<std::ptrdiff_t>(filling.size());
  while (rest > 0) {
    filling.push_back(lengths_[sums_[static_cast<size_t>(rest)].last]);
    rest -= filling.back().units;
  }
  std::sort(filling.begin() + first, filling.end(),
            [](const MidiLength& a, const MidiLength& b) { return a.units > b.units; });
  return filling;
}

int64_t MidiLengths::Filled(int64_t units) const {
  if (units <= 0) return 0;
  const int64_t wholes = Wholes(units) * longest_;
  int64_t rest = units - wholes;
  while (rest > 0 && sums_[static_cast<size_t>(rest)].cost == 0) --rest;
  return wholes + rest;
}

// How many of the longest lengths are taken off `units`, so that what is left is in the table of sums.
int64_t MidiLengths::Wholes(int64_t units) const { return std::max<int64_t>(0, units / longest_ - 1); }

// The cheapest way to make each sum, found from those of the smaller sums.
void MidiLengths::FindSums() {
  sums_.resize(static_cast<size_t>(2 * longest_));
  for (size_t sum = 1; sum < sums_.size(); ++sum) {
    for (size_t i = 0; i < lengths_.size(); ++i) {
      const auto units = static_cast<size_t>(lengths_[i].units);
      if (units > sum || (units < sum && sums_[sum - units].cost == 0)) continue;
      const int cost = sums_[sum - units].cost + CostOf(lengths_[i]);
      if (sums_[sum].cost == 0 || cost < sums_[sum].cost) sums_[sum] = {cost, i};
    }
  }
}

}  // namespace trillomat
