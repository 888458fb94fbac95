// One line at a terminal that tells how far the work is: it comes when work takes long, is written over again
// and again, and leaves nothing behind.
#pragma once

#include <cstddef>
#include <functional>
#include <mutex>
#include <ostream>
#include <string>
#include <string_view>

namespace trillomat {

class ProgressLine {
 public:
  /// What it needs of the terminal and the time.
  struct Seams {
    std::ostream& terminal;
    std::function<double()> seconds;  ///< that go on steadily
    std::function<size_t()> columns;  ///< of the terminal, which can change
    std::function<bool()> isFree;     ///< whether its cursor stands at the start of a line
  };

  /// The work begins.
  explicit ProgressLine(Seams seams) : seams_(std::move(seams)), start_(seams_.seconds()) {}
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine() { Clear(); }

  /// Called once, before the line is shown for the first time.
  std::function<void()> beforeFirst;

  /// Shows what `text` (UTF-8) gives, if half a second of work and a tenth since the last time have passed.
  void Show(const std::function<std::string()>& text);
  /// To be called before anything else is written to the terminal.
  void Clear();
  /// Clears it, from another thread, while the process is being ended: nothing is shown after that.
  void End();

 private:
  bool IsDue();
  void Write(std::string_view text);
  void WriteBlank();

  Seams seams_;
  double start_;
  double last_ = -1;  ///< when it was shown; below 0 for not yet
  std::mutex writing_;
  size_t shown_ = 0;  ///< columns
};

}  // namespace trillomat
