// Gives a variable another value for as long as a piece of work lasts, however that ends.
#pragma once

#include <utility>

namespace trillomat {

template <typename Value>
class ScopedValue {
 public:
  ScopedValue(Value& variable, Value value) : variable_(variable), before_(std::exchange(variable, value)) {}
  ScopedValue(const ScopedValue&) = delete;
  ScopedValue& operator=(const ScopedValue&) = delete;
  ~ScopedValue() { variable_ = before_; }

 private:
  Value& variable_;
  Value before_;
};

}  // namespace trillomat
