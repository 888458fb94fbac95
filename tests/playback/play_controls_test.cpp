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

TEST(PlayControls, ButtonsDoNothingOnAnEmptyMelody) {
  Playing p;
  for (int control = 1; control <= 5; ++control) p.controls.Press(static_cast<Control>(control));
  EXPECT_THAT(p.host.calls, IsEmpty());
  p.Load("*3a2 *3c2");
  p.controls.Press(Control::ToEnd);
  p.controls.Press(Control::StartOver);
  p.controls.Press(Control::Pause);  // while nothing plays: the next Play takes it back, no more
  p.controls.Press(Control::Play);
  EXPECT_THAT(p.sound.lines, IsEmpty());
  EXPECT_THAT(p.host.calls, ElementsAre("1", "-1"));
  EXPECT_EQ(p.controls.State(), PlayState::Stopped);
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

// Each tone of these tokens has its own frequency, so that the beeps tell what was played in which order.
TEST(PlayControls, PlaysFromTheCursorAndTheSelectionWithItsRepeatsInside) {
  struct Case {
    const char* tokens;
    int32_t cursor;
    ElementRange selection;
    std::vector<int32_t> played;
    size_t logged = 1;  // "Done Playing", and what is amiss
  };
  constexpr int32_t a = 440;
  constexpr int32_t c = 264;
  constexpr int32_t d = 296;
  constexpr int32_t e = 328;
  for (const Case& t : {
           Case{"*3a2 *3c2 *3d2", 1, {}, {c, d}},
           Case{"*3a2 *3c2 *3d2", -1, {}, {a, c, d}},
           Case{"*3a2 *3c2 *3d2", 2, {1, 3}, {c, d}},
           Case{"*3a2 *3c2 *3d2 *3e2", 2, {1, 3}, {c, d}},
           Case{"*3a2 ( *3c2 *3d2 @3) *3e2", -1, {0, 5}, {a, c, d, c, d, c, d}},
           Case{"( *3a2 *3c2 *3d2 @2) *3e2", 2, {}, {c, d, c, d, e}},
           Case{"( *3a2 *3c2 @2) *3e2", -1, {2, 4}, {c, c}},
           Case{"( *3a2 *3c2 @2)", -1, {3, 4}, {}},
           Case{"*3a2 *3c2 @2)", 1, {}, {c}, 2},
           Case{"*3a2 ( *3c2", -1, {1, 3}, {c}},
       }) {
    Playing p(t.tokens);
    p.document.Apply({.cursor = t.cursor, .selection = t.selection});
    t.selection.IsEmpty() ? p.controls.PlayFromCursor() : p.controls.PlaySelection();
    EXPECT_EQ(p.sound.beeps, t.played) << t.tokens;
    EXPECT_EQ(p.document.Selection(), t.selection) << "stays selected";
    EXPECT_EQ(p.log.lines.size(), t.logged) << t.tokens;
    const auto whole = p.sound.beeps.size();
    p.controls.Press(Control::Play);
    EXPECT_EQ(p.sound.beeps[whole], a) << "Play starts where it starts";
  }
  Playing none("*3a2");
  none.controls.PlaySelection();
  EXPECT_THAT(none.host.calls, IsEmpty()) << "nothing is selected";
}

TEST(PlayControls, ALoopPlaysAgainUntilItIsStoppedOrTurnedOff) {
  for (const bool stop : {true, false}) {
    Playing p("*3a2 *3c2 *3d2");
    p.document.Apply({.cursor = 1, .selection = ElementRange{1, 3}});
    p.controls.SetLoop(true);
    AfterBeeps(p, 5, [&] { stop ? p.controls.Press(Control::Stop) : p.controls.SetLoop(false); });
    p.controls.PlaySelection();
    EXPECT_EQ(p.sound.beeps.size(), stop ? 5U : 6U);
    EXPECT_EQ(p.sound.beeps[4], 264);
    EXPECT_EQ(p.log.lines.size(), stop ? 0U : 1U);
    EXPECT_EQ(p.controls.State(), PlayState::Stopped);
  }
  Playing other("*3a2 *3c2");  // another song takes over, and loops as a whole
  other.document.Apply({.cursor = 0, .selection = ElementRange{1, 2}});
  other.controls.SetLoop(true);
  other.pump.onPump = [&other, loaded = false](int) mutable {
    if (other.sound.beeps.size() == 3 && !loaded) {
      loaded = true;
      other.Load("*3d2 *3e2");
      other.controls.SongReplaced();
    }
    if (other.sound.beeps.size() == 7) other.controls.Press(Control::Stop);
  };
  other.controls.PlaySelection();
  EXPECT_THAT(other.sound.beeps, ElementsAre(264, 264, 264, 296, 328, 296, 328));
}

TEST(PlayControls, ALoopThatTakesNoTimeSleepsEachRoundAndCanBeStopped) {
  Playing p("ledon ledoff");
  int rounds = 0;
  p.pump.onPump = [&](int) {
    if (p.document.Cursor() == 1 && ++rounds == 1000) p.controls.Press(Control::Stop);
  };
  p.controls.SetLoop(true);
  p.controls.Press(Control::Play);
  EXPECT_GT(p.clock.seconds, 0.4);
  EXPECT_EQ(p.controls.State(), PlayState::Stopped);
}

}  // namespace
}  // namespace trillomat
