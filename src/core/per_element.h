// What was worked out for elements, found again for equal ones: a melody holds the same few again and again.
#pragma once

#include <cstdint>
#include <utility>

#include "core/element.h"
#include "core/remembered.h"

namespace trillomat {

template <typename Value>
class PerElement {
 public:
  /// For a song of some `elements`.
  explicit PerElement(size_t elements) : known_(elements) {}

  /// The value of an element that is the same as `element`, or null. It is valid until the next Keep.
  const Value* Find(const Element& element) const { return known_.Find({element.Words()}); }

  /// Keeps the value of an element that HasWords; of others nothing is kept.
  void Keep(const Element& element, Value value) {
    if (element.HasWords()) known_.Keep({element.Words()}, std::move(value));
  }

 private:
  struct Key {
    // By itself those of an element without words, which nothing is kept for.
    ElementWords words{UINT64_MAX, UINT64_MAX, UINT64_MAX};

    uint64_t Hash() const {
      constexpr ElementWords kFactors{0x9E3779B97F4A7C15, 0xC2B2AE3D27D4EB4F, 0x165667B19E3779F9};
      return words.first * kFactors.first + words.second * kFactors.second + words.third * kFactors.third;
    }
    bool operator==(const Key&) const = default;
  };

  Remembered<Key, Value> known_;
};

}  // namespace trillomat
