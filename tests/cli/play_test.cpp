#include <chrono>

#include "cli/program.h"

namespace trillomat {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class PlayTest : public ProgramTest {
 protected:
  // At 240 beats per minute a quarter note lasts 250 ms, a sixteenth 62.5.
  PlayTest() {
    folder_.Write("tune.imy", "BEAT:240\r\nMELODY:ledon*3a4(c4@2)r4\r\nEND:IMELODY\r\n");
    folder_.Write("endless.imy", "BEAT:240\r\nMELODY:(*3a4@0)\r\nEND:IMELODY\r\n");
    folder_.Write("no_tempo.imy", "BEAT:0\r\nMELODY:*3a3\r\nEND:IMELODY\r\n");
  }
};

TEST_F(PlayTest, TraceListsTheElementsInTheOrderOfPlaying) {
  ExpectEach({
      {"play --trace tune.imy", 0,
       "0\tcommand\t0\t0\n1\ttone\t62\t440\n2\trepeat\t0\t0\n3\ttone\t62\t528\n4\trepeat\t0\t0\n"
       "3\ttone\t62\t528\n4\trepeat\t0\t0\n5\tpause\t62\t0\n",
       IsEmpty()},
      {"play --trace endless.imy", 0, "0\trepeat\t0\t0\n1\ttone\t62\t440\n2\trepeat\t0\t0\n", IsEmpty()},
      {"play --trace --endless 2 endless.imy", 0,
       "0\trepeat\t0\t0\n1\ttone\t62\t440\n2\trepeat\t0\t0\n1\ttone\t62\t440\n2\trepeat\t0\t0\n", IsEmpty()},
      {"play --trace no_tempo.imy", 0, "0\ttone\t300\t440\n", IsEmpty()},
      {"play --trace tune.imy >/dev/full", 1, IsEmpty(), HasSubstr("standard output")},
  });
}

TEST_F(PlayTest, RenderWritesOneWaveFileOfTheMelodysLength) {
  EXPECT_EQ(Run("render tune.imy a.wav").status, 0);
  const std::string wave = folder_.Read("a.wav");
  EXPECT_EQ(wave.substr(0, 4), "RIFF");
  const double milliseconds = static_cast<double>(wave.size() - 44) / 2 / 44.1;
  EXPECT_NEAR(milliseconds, 4 * 62, 1);

  EXPECT_EQ(Run("render --endless 3 endless.imy b.wav").status, 0);
  EXPECT_NEAR(static_cast<double>(folder_.Read("b.wav").size() - 44) / 2 / 44.1, 3 * 62, 1);
}

// Plays without a device: the timing stays.
TEST_F(PlayTest, PlayingTakesTheMelodysTime) {
  const auto start = std::chrono::steady_clock::now();
  for (const std::string output : {"wave", "beep"}) {
    const Ran ran = Run("play --output " + output + " tune.imy", "", "SDL_AUDIODRIVER=dummy");
    EXPECT_EQ(ran.status, 0) << ran.err;
    EXPECT_THAT(ran.out, IsEmpty());
  }
  EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2 * 4 * 60));
}

TEST_F(PlayTest, AnInterruptEndsPlayingCleanly) {
  // In the foreground, because it interrupts its group as well otherwise, and with that the program again.
  const Ran ran = Run("play endless.imy", "",
                      "SDL_AUDIODRIVER=dummy timeout --foreground --preserve-status --signal=INT 3");
  EXPECT_EQ(ran.status, 0) << ran.err;
}

}  // namespace
}  // namespace trillomat
