// A cache of bounded size, for work whose inputs repeat. Each key hashes to a few neighbouring places; when
// all of them are taken, a new value replaces the first.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace trillomat {

/// `Key` has operator== and `uint64_t Hash() const`, whose top bits have to depend on all of the key. A key
/// made without arguments marks a free place: nothing may be kept for it.
template <typename Key, typename Value>
class Cache {
 public:
  explicit Cache(size_t lookups = 0) { Expect(lookups); }

  /// Makes room for about `lookups` more, up to a bound: the cache grows with the work, so that short work
  /// does not spend its time on clearing places. What was kept may be lost.
  void Expect(size_t lookups) {
    expected_ = std::min(expected_ + std::min(lookups, kMost), kMost);
    const size_t firsts = std::bit_ceil(std::max(expected_, kFewest));
    if (firsts + kPlacesOfOne <= places_.size()) return;
    places_ = std::vector<Place>(firsts + kPlacesOfOne);
    shift_ = 64 - std::countr_zero(firsts);
  }

  /// The value kept for `key`, or null. Valid until the next Keep or Expect.
  const Value* Find(const Key& key) const {
    for (const Place& place : std::span(&places_[FirstOf(key)], kPlacesOfOne)) {
      if (place.key == key) return &place.value;
    }
    return nullptr;
  }
  /// Keeps `value` and returns it as Find does.
  const Value& Keep(const Key& key, Value value) {
    const std::span places(&places_[FirstOf(key)], kPlacesOfOne);
    const auto free =
        std::find_if(places.begin(), places.end(), [](const Place& p) { return p.key == Key(); });
    Place& place = free == places.end() ? places.front() : *free;
    place = {key, std::move(value)};
    return place.value;
  }

 private:
  static constexpr size_t kPlacesOfOne = 8;  ///< of one key, in a row
  static constexpr size_t kFewest = 32;
  static constexpr size_t kMost = 8192;

  struct Place {
    Key key{};
    Value value{};
  };

  size_t FirstOf(const Key& key) const { return static_cast<size_t>(key.Hash() >> shift_); }

  std::vector<Place> places_;  ///< a power of two that FirstOf can give, and the rest of the last one's row
  int shift_ = 0;              ///< of a hash, to give an index
  size_t expected_ = 0;        ///< lookups, at most kMost
};

}  // namespace trillomat
