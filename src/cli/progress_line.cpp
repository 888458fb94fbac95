#include "cli/progress_line.h"

#include <algorithm>

#include "cli/shown_line.h"

namespace trillomat {

bool ProgressLine::IsDue() {
  constexpr double kPatience = 0.5;
  constexpr double kPause = 0.1;
  const double now = seams_.seconds();
  if (now - start_ < kPatience || (last_ >= 0 && now - last_ < kPause)) return false;
  if (last_ < 0 && beforeFirst) beforeFirst();
  last_ = now;
  return true;
}

void ProgressLine::Show(const std::function<std::string()>& text) {
  if (!IsDue() || !seams_.isFree()) return;
  const size_t columns = seams_.columns();
  // A character in the last column would move some terminals on to the next line.
  const std::string fitted = FittedTo(text(), columns - std::min<size_t>(1, columns));
  const std::scoped_lock lock(writing_);
  Write(fitted);
}

// The rest of what stood there before becomes blank, in a way that any terminal understands.
void ProgressLine::Write(std::string_view text) {
  const size_t columns = ColumnsOf(text);
  const std::string rest(shown_ - std::min(shown_, columns), ' ');
  seams_.terminal << '\r' << text << rest << std::string(rest.size(), '\b') << std::flush;
  shown_ = columns;
}

void ProgressLine::Clear() {
  const std::scoped_lock lock(writing_);
  WriteBlank();
}

void ProgressLine::WriteBlank() {
  if (shown_ == 0) return;
  // What the terminal shows of a Ctrl-C stands behind.
  const size_t columns = seams_.columns();
  const size_t blank = std::min(shown_ + 2, columns - std::min<size_t>(1, columns));
  seams_.terminal << '\r' << std::string(blank, ' ') << '\r' << std::flush;
  shown_ = 0;
}

// Stays locked. A terminal that takes nothing just now would keep the lock of the other thread.
void ProgressLine::End() {
  if (writing_.try_lock()) WriteBlank();
}

}  // namespace trillomat
