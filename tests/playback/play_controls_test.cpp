#include "playback/play_controls.h"

#include <algorithm>

#include "playing.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Runs `event` once, when the pump runs for the first time after `beeps` beeps.
void AfterBeeps(Playing& p, size_t beeps, std::function<void()> event) {
  p.pump.onPump = [&p, beeps, event = std::move(event), done = false](int) mutable {
    if (done || p.sound.lines.size() != beeps) return;
    done = true;
    event();
  };
}

TEST(PlayControls, PlaysFromTheStartAndUnlocksAfterwards) {
  Playing p("*3a2 ledon *3c2");
  p.ws.melody.lCurrentIndex = 2;
  p.pump.onPump = [&](int) { p.Click(Control::Play); };  // ignored: it plays already
  p.Click(Control::Play);
  EXPECT_THAT(p.sound.lines, ElementsAre("440 600", "264 600"));
  EXPECT_THAT(p.host.calls, ElementsAre("lock", "Playing", "0", "1", "2", "unlock", "Play"));
  EXPECT_THAT(p.log.lines, ElementsAre("1: Done Playing"));
  EXPECT_FALSE(p.controls.IsPlaying());
}

TEST(PlayControls, ButtonsButClearDoNothingOnAnEmptyMelody) {
  Playing p;
  for (int index = -1; index <= 7; ++index) {
    if (index != 0) p.controls.cmdControl_Click(index);
  }
  EXPECT_THAT(p.host.calls, IsEmpty());
  EXPECT_FALSE(p.controls.IsPaused());
  p.Load("*3a2 *3c2");
  p.Click(Control::ToEnd);
  EXPECT_EQ(p.ws.melody.lCurrentIndex, 1);
  p.Click(Control::StartOver);
  EXPECT_EQ(p.ws.melody.lCurrentIndex, -1);
  p.Click(Control::Clear);
  EXPECT_TRUE(p.ws.melody.IsEmpty());
  EXPECT_THAT(p.host.calls, ElementsAre("1", "-1", "clear"));
}

TEST(PlayControls, StopEndsBetweenElementsAndIsNotLogged) {
  for (const auto button : {Control::Stop, Control::StartOver}) {
    Playing p("*3a2 *3c2 *3d2");
    AfterBeeps(p, 2, [&] { p.Click(button); });
    p.Click(Control::Play);
    EXPECT_EQ(p.sound.lines.size(), 2U);
    EXPECT_EQ(p.ws.melody.lCurrentIndex, button == Control::Stop ? 1 : -1);
    EXPECT_THAT(p.log.lines, IsEmpty());
    EXPECT_EQ(p.host.calls.back(), "Play");
    p.pump.onPump = nullptr;
    p.Click(Control::Play);  // and plays again
    EXPECT_EQ(p.sound.lines.size(), 5U);
  }
}

TEST(PlayControls, PauseSleepsUntilAButtonOrTheEndOfTheProgram) {
  struct Case {
    std::optional<Control> button;  // nothing: the program ends
    size_t tones;
  };
  for (const Case& c :
       {Case{Control::Pause, 2}, Case{Control::Play, 2}, Case{Control::Stop, 1}, Case{std::nullopt, 1}}) {
    Playing p("*3a2 *3c2");
    int paused = 0;
    p.pump.onPump = [&](int) {
      if (p.sound.lines.size() == 1 && paused == 0) p.Click(Control::Pause);
      if (!p.controls.IsPaused() || ++paused < 20) return;
      if (c.button) p.Click(*c.button);
      p.pump.ending = !c.button;
    };
    p.Click(Control::Play);
    EXPECT_EQ(p.sound.lines.size(), c.tones);
    EXPECT_GE(p.clock.seconds, 10);  // the pump slept: it moves the clock only then
    EXPECT_EQ(p.log.lines.size(), c.tones - 1) << "only the end of the melody is logged";
    EXPECT_FALSE(p.controls.IsPlaying() || p.controls.IsPaused());
  }
}

TEST(PlayControls, AMelodyThatShrinksEndsThePlaying) {
  Playing p("*3a2 *3c2 *3d2 *3e2");
  AfterBeeps(p, 2, [&] { p.ws.melody.Remove(3); });
  p.Click(Control::Play);
  EXPECT_EQ(p.sound.lines.size(), 3U);

  p.Load("( *3a2 r2 @0)");
  p.sound.lines.clear();
  AfterBeeps(p, 3, [&] { p.Click(Control::Clear); });
  p.Click(Control::Play);
  EXPECT_EQ(p.sound.lines.size(), 3U);
}

TEST(PlayControls, AFileOpenedWhilePlayingTakesOverWithAutoPlayUnlessStopped) {
  struct Case {
    bool autoPlay;
    bool stop;
  };
  for (const Case& c : {Case{true, false}, Case{false, false}, Case{true, true}}) {
    Playing p("*3a2 *3c2 *3d2");
    p.settings.bAutoPlay = c.autoPlay;
    AfterBeeps(p, 1, [&] {
      p.Load("*3b2 *3a2 *3a2 *3a2 *3b2");
      p.ws.melody.lCurrentIndex = -1;
      p.controls.MelodyReplaced();
      if (c.autoPlay) p.Click(Control::Play);
      if (c.stop) p.Click(Control::Stop);
    });
    p.Click(Control::Play);
    const bool played = c.autoPlay && !c.stop;
    EXPECT_EQ(p.sound.lines.size(), played ? 6U : 1U);
    EXPECT_EQ(p.ws.melody.lCurrentIndex, played ? 4 : -1);
    EXPECT_EQ(p.log.lines.size(), played ? 1U : 0U);
    EXPECT_EQ(std::count(p.host.calls.begin(), p.host.calls.end(), "Playing"), 1);
  }
}

TEST(PlayControls, EndsInTheMiddleOfAWaitWithTheProgram) {
  Playing p("r0 *3a2 *3c2");
  p.player.outputType = OutputType::Wave;
  p.pump.onPump = [&](int) { p.pump.ending = true; };
  p.Click(Control::Play);
  EXPECT_EQ(p.pump.pumps, 2);  // the one of the wait, and the loop's own
  EXPECT_THAT(p.sound.lines, IsEmpty());
  EXPECT_THAT(p.log.lines, IsEmpty());
}

TEST(PlayControls, AnEndlessBlockThatTakesNoTimeSleepsEachRound) {
  Playing p("( ledon ledoff @0)");
  int pumps = 0;
  p.pump.onPump = [&](int) {
    if (p.ws.melody.lCurrentIndex == 3 && ++pumps == 200000) p.Click(Control::Stop);
  };
  p.Click(Control::Play);
  EXPECT_EQ(p.player.repeat.Counter(), 32767);  // saturated
  EXPECT_GT(p.clock.seconds, 0.001 * 32767);

  Playing timed("( *3a2 @3)");  // sleeps not a moment more than its tones take
  timed.Click(Control::Play);
  EXPECT_NEAR(timed.clock.seconds, 1.8, 0.0005);
}

}  // namespace
}  // namespace trillomat
