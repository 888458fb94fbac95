#include <chrono>
#include <iostream>
#include <optional>

#include "cli/command_line.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/progress_line.h"
#include "cli/terminal_buffer.h"
#include "platform/terminal.h"

namespace {

using namespace trillomat;

double SteadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// The standard streams as far as they go to a terminal, and the line of progress between them.
class Terminal {
 public:
  Terminal() {
    if (IsErrorWatched()) {
      progress_.emplace(
          ProgressLine::Seams{errorItself_, SteadySeconds, ErrorColumns, [this] { return IsFree(); }});
    }
    const auto clear = [this] {
      if (progress_) progress_->Clear();
    };
    if (IsTerminal(StandardStream::Output)) output_.emplace(std::cout, clear);
    if (IsTerminal(StandardStream::Error)) error_.emplace(std::cerr, clear);
  }

  ProgressLine* Progress() { return progress_ ? &*progress_ : nullptr; }

 private:
  bool IsFree() {
    if (output_) std::cout.flush();
    return (!output_ || output_->IsAtLineStart()) && (!error_ || error_->IsAtLineStart());
  }

  std::ostream errorItself_{std::cerr.rdbuf()};
  std::optional<ProgressLine> progress_;
  std::optional<TerminalBuffer> output_;
  std::optional<TerminalBuffer> error_;
};

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  PrepareStreams();
  try {
    Terminal terminal;
    return RunCommandLine(Utf8Arguments(argc, argv), terminal.Progress());
  } catch (const std::exception& exception) {
    Complain(exception);
    return 1;
  }
}
