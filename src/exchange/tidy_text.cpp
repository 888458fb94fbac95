#include "exchange/tidy_text.h"

#include <algorithm>

#include "core/ascii.h"

namespace trillomat {

void TidyText::Keep(size_t count) {
  tidied_.text += rest_.substr(0, count);
  Pass(count);
}

void TidyText::Replace(size_t count, std::string_view after, std::string_view why) {
  const std::string_view before = rest_.substr(0, count);
  if (before == after) return Keep(count);
  tidied_.changes.push_back({.line = line_,
                             .column = column_,
                             .before = std::string(before),
                             .after = std::string(after),
                             .why = std::string(why)});
  tidied_.text += after;
  Pass(count);
}

void TidyText::LeaveOut(size_t count, std::string_view why) {
  const std::string_view before = rest_.substr(0, count);
  if (std::all_of(before.begin(), before.end(), IsWhitespace)) return Keep(count);
  Replace(count, "", why);
}

Tidied TidyText::Finish() && {
  Keep(rest_.size());
  return std::move(tidied_);
}

// CR, CR LF or a lone LF ends a line.
void TidyText::Pass(size_t count) {
  for (size_t i = 0; i < count; ++i) {
    const bool ends = rest_[i] == '\n' || (rest_[i] == '\r' && !rest_.substr(i + 1).starts_with('\n'));
    line_ += ends ? 1 : 0;
    column_ = ends ? 1 : column_ + 1;
  }
  rest_.remove_prefix(count);
}

}  // namespace trillomat
