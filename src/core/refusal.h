// How work that can be refused answers: with its value, or with why there is none.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace trillomat {

/// Why something was refused, for the user. Texts are Windows-1252.
struct Refusal {
  std::string why;          ///< a plain sentence without its full stop, which names what is wrong
  size_t line = 0;          ///< of the text that was read, from 1; 0 where no place is to blame
  size_t column = 0;        ///< in bytes, from 1
  std::string text = {};    ///< what stands there, up to the end of the line, cut when it is long
  std::string advice = {};  ///< what was expected, a sentence without its full stop; empty for nothing to add

  bool operator==(const Refusal&) const = default;
};

/// Why work was broken off when EventPump said that the program is ending.
inline constexpr std::string_view kProgramEnding = "the program is ending";

/// A value, or the refusal in its place.
template <typename Value>
class Result {
 public:
  Result(Value value) : value_(std::move(value)) {}          // NOLINT(google-explicit-constructor)
  Result(Refusal refusal) : refusal_(std::move(refusal)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return value_.has_value(); }
  const Value& operator*() const { return *value_; }
  Value& operator*() { return *value_; }
  const Value* operator->() const { return &*value_; }
  /// Why there is no value; only where there is none.
  const Refusal& Why() const { return refusal_; }

 private:
  std::optional<Value> value_;
  Refusal refusal_;
};

}  // namespace trillomat
