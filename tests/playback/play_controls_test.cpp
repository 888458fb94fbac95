#include "playback/play_controls.h"

#include <algorithm>
#include <stdexcept>

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
  p.document.Apply({.cursor = 2});
  p.pump.onPump = [&](int) { p.controls.Press(Control::Play); };  // ignored: it plays already
  p.controls.Press(Control::Play);
  EXPECT_THAT(p.sound.lines, ElementsAre("440 600", "264 600"));
  EXPECT_THAT(p.host.calls, ElementsAre("playing", "0", "1", "2", "stopped"));
  EXPECT_THAT(p.log.lines, ElementsAre("1: Done Playing"));
  EXPECT_EQ(p.view.calls.back(), "Hz 264") << "the end leaves the phone as the last command did";
  EXPECT_TRUE(p.player.Lights().led);
}

TEST(PlayControls, ButtonsButClearDoNothingOnAnEmptyMelody) {
  Playing p;
  for (int control = 1; control <= 5; ++control) p.controls.Press(static_cast<Control>(control));
  EXPECT_THAT(p.host.calls, IsEmpty());
  p.Load("*3a2 *3c2");
  p.controls.Press(Control::ToEnd);
  p.controls.Press(Control::StartOver);
  p.controls.Press(Control::Pause);  // while nothing plays: the next Play takes it back, no more
  p.controls.Press(Control::Play);
  EXPECT_THAT(p.sound.lines, IsEmpty());
  p.controls.Press(Control::Clear);
  EXPECT_TRUE(p.document.IsEmpty());
  EXPECT_THAT(p.host.calls, ElementsAre("1", "-1", "-1"));
  EXPECT_EQ(p.controls.State(), PlayState::Stopped);
}

TEST(PlayControls, ClearPutsThePhoneToRestButNotWhileAMelodyPlays) {
  Playing p("ledon backon vibeon *3a2");
  AfterBeeps(p, 1, [&] { p.controls.Press(Control::Clear); });
  p.controls.Press(Control::Play);
  EXPECT_FALSE(p.document.IsEmpty());
  EXPECT_THAT(p.view.calls, ElementsAre("picture 2", "picture 3", "shake", "Hz 440"));
  p.view.calls.clear();
  p.controls.Press(Control::Clear);
  EXPECT_THAT(p.view.calls, ElementsAre("still", "picture 0", "Hz 0"));
  EXPECT_EQ(p.player.Lights().Picture(), 0);
}

TEST(PlayControls, StopEndsBetweenElementsAndIsNotLogged) {
  for (const auto button : {Control::Stop, Control::StartOver}) {
    Playing p("*3a2 *3c2 *3d2");
    AfterBeeps(p, 2, [&] {
      p.controls.Press(button);
      p.controls.Press(Control::Pause);  // too late to pause anything
    });
    p.controls.Press(Control::Play);
    EXPECT_EQ(p.sound.lines.size(), 2U);
    EXPECT_EQ(p.document.Cursor(), button == Control::Stop ? 1 : -1);
    EXPECT_THAT(p.log.lines, IsEmpty());
    p.pump.onPump = nullptr;
    p.controls.Press(Control::Play);  // and plays again
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
      if (p.sound.lines.size() == 1 && paused == 0) p.controls.Press(Control::Pause);
      if (p.controls.State() != PlayState::Paused || ++paused < 20) return;
      if (c.button) p.controls.Press(*c.button);
      p.pump.ending = !c.button;
    };
    p.controls.Press(Control::Play);
    EXPECT_EQ(p.sound.lines.size(), c.tones);
    EXPECT_GE(p.clock.seconds, 10);  // the pump slept: it moves the clock only then
    EXPECT_EQ(p.log.lines.size(), c.tones - 1) << "only the end of the melody is logged";
    EXPECT_EQ(std::count(p.host.calls.begin(), p.host.calls.end(), "paused"), 1);
    EXPECT_EQ(p.host.calls.back(), "stopped");
  }
}

TEST(PlayControls, AnotherSongTakesOverWithAutoPlayUnlessStopped) {
  struct Case {
    bool autoPlay;
    bool stop;
    const char* song;
    size_t tones;
  };
  for (const Case& c :
       {Case{true, false, "*3b2 *3a2 *3a2 *3a2 *3b2", 5}, Case{false, false, "*3b2 *3a2", 0},
        Case{true, true, "*3b2 *3a2", 0}, Case{true, false, "*3b2", 1}, Case{false, false, "", 0}}) {
    Playing p("*3a2 *3c2 *3d2");
    p.settings.autoPlay = c.autoPlay;
    AfterBeeps(p, 1, [&] {
      p.Load(c.song);
      p.controls.SongReplaced();
      if (c.autoPlay) p.controls.Press(Control::Play);
      if (c.stop) p.controls.Press(Control::Stop);
    });
    p.controls.Press(Control::Play);
    EXPECT_EQ(p.sound.lines.size(), c.tones);
    EXPECT_EQ(p.document.Cursor(), static_cast<int>(c.tones) - 1);
    EXPECT_EQ(p.log.lines.size(), c.tones > 0 ? 1U : 0U);
    EXPECT_EQ(std::count(p.host.calls.begin(), p.host.calls.end(), "playing"), 1);
  }
}

TEST(PlayControls, EndsInTheMiddleOfAWaitWithTheProgramAndWithAFault) {
  Playing p("r0 *3a2 *3c2");
  p.pump.onPump = [&](int) { p.pump.ending = true; };
  p.controls.Press(Control::Play);
  EXPECT_EQ(p.pump.pumps, 2);  // the one of the wait, and the loop's own
  EXPECT_THAT(p.sound.lines, IsEmpty());
  EXPECT_THAT(p.log.lines, IsEmpty());
  p.pump.onPump = [](int) { throw std::runtime_error("fault"); };
  EXPECT_THROW(p.controls.Press(Control::Play), std::runtime_error);
  EXPECT_EQ(p.controls.State(), PlayState::Stopped);
  EXPECT_EQ(p.host.calls.back(), "stopped");
}

TEST(PlayControls, AnEndlessBlockThatTakesNoTimeSleepsEachRound) {
  Playing p("( ledon ledoff @0)");
  int pumps = 0;
  p.pump.onPump = [&](int) {
    if (p.document.Cursor() == 3 && ++pumps == 200000) p.controls.Press(Control::Stop);
  };
  p.controls.Press(Control::Play);
  EXPECT_EQ(p.player.repeat.Counter(), 32767);  // saturated
  EXPECT_GT(p.clock.seconds, 0.001 * 32767);

  Playing timed("( *3a2 @3)");  // sleeps not a moment more than its tones take
  timed.controls.Press(Control::Play);
  EXPECT_NEAR(timed.clock.seconds, 1.8, 0.0005);
}

}  // namespace
}  // namespace trillomat
