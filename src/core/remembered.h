// A bounded memory of what was worked out, for work whose inputs repeat: each key has a few places, one
// behind the other, and where all are taken, it takes over the first. So it never grows beyond its bound,
// whatever it is asked.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace trillomat {

/// `Key` has operator== and `uint64_t Hash() const`, in whose top bits all that it is has a say; one that was
/// made without arguments is never asked for.
template <typename Key, typename Value>
class Remembered {
 public:
  explicit Remembered(size_t questions = 0) { Expect(questions); }

  /// Makes room for some `questions` more: places grow with the work, so that short work is not spent on
  /// clearing them. What was kept may be lost.
  void Expect(size_t questions) {
    expected_ = std::min(expected_ + std::min(questions, kMost), kMost);
    const size_t firsts = std::bit_ceil(std::max(expected_, kFewest));
    if (firsts + kPlacesOfOne <= places_.size()) return;
    places_ = std::vector<Place>(firsts + kPlacesOfOne);
    shift_ = 64 - std::countr_zero(firsts);
  }

  /// The value of `key`, or null. It is valid until the next Keep or Expect.
  const Value* Find(const Key& key) const {
    for (const Place& place : std::span(&places_[FirstOf(key)], kPlacesOfOne)) {
      if (place.key == key) return &place.value;
    }
    return nullptr;
  }
  const Value& Keep(const Key& key, Value value) {
    const std::span places(&places_[FirstOf(key)], kPlacesOfOne);
    const auto free =
        std::find_if(places.begin(), places.end(), [](const Place& p) { return p.key == Key(); });
    Place& place = free == places.end() ? places.front() : *free;
    place = {key, std::move(value)};
    return place.value;
  }

 private:
  static constexpr size_t kPlacesOfOne = 8;
  static constexpr size_t kFewest = 32;
  static constexpr size_t kMost = 8192;

  struct Place {
    Key key{};
    Value value{};
  };

  size_t FirstOf(const Key& key) const { return static_cast<size_t>(key.Hash() >> shift_); }

  std::vector<Place> places_;  ///< those that can be first, a power of two of them, and the last one's others
  int shift_ = 0;
  size_t expected_ = 0;  ///< questions, as far as they matter
};

}  // namespace trillomat
