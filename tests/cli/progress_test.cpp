// The line of progress, as it is seen at a terminal.
#include "cli/progress.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "cli/terminal_buffer.h"
#include "platform/pump_sleep.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

// The lines that a terminal would show of what was written to it.
std::vector<std::string> Screen(const std::string& written) {
  std::vector<std::string> lines{""};
  size_t at = 0;
  for (const char c : written) {
    if (c == '\r' || c == '\n') {
      at = 0;
      if (c == '\n') lines.emplace_back();
    } else if (c == '\b') {
      --at;
    } else {
      lines.back().resize(std::max(lines.back().size(), at + 1), ' ');
      lines.back()[at++] = c;
    }
  }
  for (std::string& line : lines) line.erase(line.find_last_not_of(' ') + 1);
  return lines;
}

class ProgressTest : public testing::Test {
 protected:
  std::vector<std::string> Seen() const { return Screen(terminal_.str()); }

  double now_ = 1000;
  bool free_ = true;
  std::ostringstream terminal_;
  ProgressLine line_{
      {terminal_, [this] { return now_; }, [] { return size_t{30}; }, [this] { return free_; }}};
  SleepPump pump_;
  Progress progress_{pump_, line_};
};

TEST_F(ProgressTest, ItComesLateIsRewrittenNowAndThenAndLeavesNothing) {
  progress_.BeginFile("a.imy", 1, 12);
  now_ += 0.4;
  progress_.BeginFile("b.imy", 2, 12);
  EXPECT_EQ(terminal_.str(), "");
  now_ += 0.2;
  progress_.BeginFile("\x1B[2J of a long name.imy", 3, 12);
  EXPECT_THAT(Seen(), ElementsAre("3 of 12: ?[2J of a long na..."));
  now_ += 0.05;
  progress_.BeginFile("d.imy", 4, 12);
  EXPECT_THAT(Seen(), ElementsAre("3 of 12: ?[2J of a long na..."));
  now_ += 0.1;
  progress_.BeginFile("e.imy", 5, 12);
  EXPECT_THAT(Seen(), ElementsAre("5 of 12: e.imy"));
  now_ += 1;
  free_ = false;
  progress_.BeginFile("f.imy", 6, 12);
  EXPECT_THAT(Seen(), ElementsAre("5 of 12: e.imy"));
  {
    // Other text takes its place.
    std::ostream stream(terminal_.rdbuf());
    const TerminalBuffer buffer(stream, [this] { line_.Clear(); });
    stream << "done\n" << std::flush;
  }
  EXPECT_THAT(Seen(), ElementsAre("done", ""));
}

TEST_F(ProgressTest, LongWorkCountsItsElements) {
  progress_.Begin("rendering", "a.imy", 1000, 1000);
  for (int i = 0; i < 1600; ++i) {
    now_ += 0.499 / 1600;
    progress_.PumpEvents();
  }
  EXPECT_EQ(terminal_.str(), "");
  now_ += 1;
  for (int i = 0; i < 256; ++i) progress_.PumpEvents();
  EXPECT_THAT(Seen(), ElementsAre("rendering a.imy, 79 %"));
  now_ += 1;
  progress_.Begin("reading", "b.imy");
  for (int i = 0; i < 300; ++i) progress_.PumpEvents();
  now_ += 1;
  for (int i = 0; i < 300; ++i) progress_.PumpEvents();
  EXPECT_THAT(Seen(), ElementsAre("reading b.imy, 512 elements"));
  now_ += 1;
  progress_.SayElement(7, 9);
  EXPECT_THAT(Seen(), ElementsAre("reading b.imy: element 7 of 9"));
  line_.Clear();
  EXPECT_THAT(Seen(), ElementsAre(""));
}

}  // namespace
}  // namespace trillomat
