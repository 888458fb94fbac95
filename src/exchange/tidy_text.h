// A text that is tidied from its front to its end, and the list of what is changed on the way.
#pragma once

#include <string>
#include <string_view>

#include "exchange/tidy.h"

namespace trillomat {

class TidyText {
 public:
  /// `original` has to outlive it.
  explicit TidyText(std::string_view original) : rest_(original) {}

  /// What was not passed yet.
  std::string_view Rest() const { return rest_; }

  /// The next `count` characters stay.
  void Keep(size_t count);
  /// Everything in front of `place`, a part of Rest(), stays.
  void KeepTo(std::string_view place) { Keep(static_cast<size_t>(place.data() - rest_.data())); }
  /// The next `count` characters become `after`. Goes on the list unless they are `after` already.
  void Replace(size_t count, std::string_view after, std::string_view why);
  /// Puts `after` in front of Rest().
  void Insert(std::string_view after, std::string_view why) { Replace(0, after, why); }
  /// Leaves out the next `count` characters; whitespace alone stays, so that nothing is listed for it.
  void LeaveOut(size_t count, std::string_view why);

  /// What is left stays; the result.
  Tidied Finish() &&;

 private:
  void Pass(size_t count);

  std::string_view rest_;
  Tidied tidied_;
  size_t line_ = 1;
  size_t column_ = 1;
};

}  // namespace trillomat
