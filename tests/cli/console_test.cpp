// What the program does at a terminal, and when a signal ends it.
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <sstream>

#include "cli/program.h"
#include "cli/signals.h"
#include "cli/terminal_buffer.h"
#include "core/terminal_text.h"
#include "support/child_process.h"

namespace trillomat {
namespace {

using testing::HasSubstr;
using testing::Not;

// Wherever a write ends, also one that is flushed.
TEST(TerminalBufferTest, CharactersAreShownWhole) {
  for (const std::string text : {"a\x1B[2J\r\nb\r", "Fr\xC3\xA8re \xE2\x82\xAC\xF0\x9F\x8E\xB5 \xC2\x9B 1",
                                 "\xE2\x82 \xF0\x9F\x8E \x9B\x80\x80\x80\x80", "\xE2\x82\xC3"}) {
    for (size_t i = 0; i <= text.size(); ++i) {
      std::ostringstream terminal;
      std::ostream stream(terminal.rdbuf());
      {
        const TerminalBuffer buffer(stream);
        stream << text.substr(0, i) << std::flush;
        EXPECT_THAT(EscapedForTerminal(text), testing::StartsWith(terminal.str()));
        for (const char c : text.substr(i)) stream.put(c);
      }
      EXPECT_EQ(terminal.str(), EscapedForTerminal(text)) << i;
    }
  }
}

TEST_F(ProgramTest, OnlyATerminalGetsTextWithoutItsOrders) {
  folder_.Write("a.rtx", "\x1B[2J:d=4,o=5,b=120:c,");
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  ASSERT_TRUE(grantpt(terminal) == 0 && unlockpt(terminal) == 0);
  const std::string name = ptsname(terminal);  // NOLINT(concurrency-mt-unsafe): one thread
  // Kept open, so that nothing is lost between the two programs.
  const int other = open(name.c_str(), O_RDWR | O_NOCTTY);
  EXPECT_THAT(Run("convert --mode rtttl a.rtx -").out, HasSubstr("\x1B[2J:"));
  EXPECT_EQ(Run("convert --mode rtttl a.rtx - >" + name).status, 0);
  EXPECT_EQ(Run("convert --mode rtttl a.rtx /dev/stdout >" + name).status, 0);
  EXPECT_EQ(Run("show '\x1B]2;gone.imy' 2>" + name).status, 1);
  // The system hands it over in a while, and in parts.
  std::string shown;
  pollfd reader{.fd = terminal, .events = POLLIN, .revents = 0};
  while (shown.find("gone.imy: ") == std::string::npos && poll(&reader, 1, 10000) == 1) {
    std::array<char, 4096> part{};
    shown.append(part.data(),
                 static_cast<size_t>(std::max<ssize_t>(0, read(terminal, part.data(), part.size()))));
  }
  EXPECT_THAT(shown, testing::AllOf(HasSubstr("\\x1B[2J:d=4"), HasSubstr("\\x1B]2;gone.imy: "),
                                    Not(HasSubstr("\x1B"))));
  close(other);
  close(terminal);
}

// Each prints more than a pipe holds. The signal of such a pipe ends processes, or is ignored from their
// start. program is started.
TEST_F(ProgramTest, AClosedPipeEndsItQuietly) {
  std::string notes;
  for (int i = 0; i < 20'000; ++i) notes += "c,d,";
  folder_.Write("long.rtx", "long:d=4,o=5,b=120:" + notes);
  const auto statusOf = [this](const std::string& before, const std::string& command) {
    return Run("", "",
               "bash -c '" + before + " exec 3>&1; { \"$0\" " + command + "; echo -n $? >&3; } | true' ");
  };
  for (const std::string before : {"", "trap \"\" PIPE;"}) {
    for (const std::string command :
         {"show long.rtx", "play --trace long.rtx", "export --to nokia long.rtx",
          "convert long.rtx - --mode imelody", "render --force long.rtx /dev/stdout"}) {
      const Ran ran = statusOf(before, command);
      EXPECT_EQ(ran.out, "141") << before << command;
      EXPECT_EQ(ran.err, "") << before << command;
    }
    // What nobody hears of is done all the same.
    statusOf(before, "convert --force --verbose long.rtx out.imy 2>&1");
    EXPECT_THAT(folder_.Read("out.imy"), testing::EndsWith("END:IMELODY\r\n"));
    EXPECT_THAT(folder_.Names(), testing::ElementsAre("long.rtx", "out.imy"));
  }
}

// The clean-up makes a file; then the process is ended by the signal itself, also while it waits.
TEST_F(ProgramTest, ASignalEndsTheProcessAfterCleaningUp) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    ChildProcess child([&] {
      const auto watch = WatchSignals([&] { folder_.Write("clean", std::to_string(signal)); });
      kill(getpid(), signal);
      pause();
      return 1;
    });
    EXPECT_EQ(child.WaitFor(), -signal);
    EXPECT_EQ(folder_.Read("clean"), std::to_string(signal));
  }
}

TEST(SignalsTest, WhatIsIgnoredStaysIgnoredAndWhatIsNotWatchedActsAsBefore) {
  ChildProcess child([] {
    std::signal(SIGHUP, SIG_IGN);
    const auto pump = MakeInterruptiblePump();
    {
      const auto watch = WatchSignals([] { _exit(1); });
    }
    kill(getpid(), SIGHUP);
    if (!pump->WaitForEvents(20)) return 2;
    kill(getpid(), SIGTERM);
    return pump->WaitForEvents(1000) ? 3 : 0;
  });
  EXPECT_EQ(child.WaitFor(), 0);
}

}  // namespace
}  // namespace trillomat
