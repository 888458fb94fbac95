// A cache of what was worked out for elements: a melody holds the same few again and again.
#pragma once

#include <cstdint>
#include <utility>

#include "core/cache.h"
#include "core/element.h"

namespace trillomat {

template <typename Value>
class ElementCache {
 public:
  /// `elements`: about how many will be asked for.
  explicit ElementCache(size_t elements) : known_(elements) {}

  /// The value that was kept for an equal element, or null. Valid until the next Keep.
  const Value* Find(const Element& element) const { return known_.Find({element.Bits()}); }

  /// Keeps the value, unless the element has a text on the heap: its bits would not be found again.
  void Keep(const Element& element, Value value) {
    if (element.IsSelfContained()) known_.Keep({element.Bits()}, std::move(value));
  }

 private:
  struct Key {
    // No self-contained element has the default: its last byte would be that of a text on the heap.
    ElementBits bits{UINT64_MAX, UINT64_MAX, UINT64_MAX};

    uint64_t Hash() const {
      constexpr ElementBits kFactors{0x9E3779B97F4A7C15, 0xC2B2AE3D27D4EB4F, 0x165667B19E3779F9};
      return bits.first * kFactors.first + bits.second * kFactors.second + bits.third * kFactors.third;
    }
    bool operator==(const Key&) const = default;
  };

  Cache<Key, Value> known_;
};

}  // namespace trillomat
