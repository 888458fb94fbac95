#include "playback/player.h"

#include <cmath>
#include <map>
#include <stdexcept>

#include "playback/element_sound.h"
#include "playback/tone_table.h"
#include "playing.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(BeatLength, RoundsHalfToEvenAndTakesZeroFor100) {
  const std::map<int32_t, int32_t> cases = {{100, 600},   {120, 500},     {90, 667},      {63, 952},
                                            {1, 60000},   {32, 1875},     {96, 625},      {480, 125},
                                            {160, 375},   {96000, 1},     {120000, 0},    {40000, 2},
                                            {-60, -1000}, {INT32_MAX, 0}, {INT32_MIN, 0}, {0, 600}};
  for (const auto& [tempo, beat] : cases) EXPECT_EQ(BeatLength(tempo), beat) << tempo;
}

TEST(Player, SoundsTonesAndWaitsOutPauses) {
  Playing p("*3a2. *4a3; *3C2 r2. *0c5 *8b0");
  p.PlayAll();
  EXPECT_THAT(p.sound.lines, ElementsAre("440 900", "880 200", "264 600", "33 75", "15872 2400"));
  EXPECT_THAT(p.view.calls, ElementsAre("Hz 440", "Hz 880", "Hz 264", "Hz 33", "Hz 15872"));
  EXPECT_NEAR(p.clock.seconds, 0.9 + 0.2 + 0.6 + 0.9 + 0.075 + 2.4, 0.001);
  EXPECT_THAT(p.log.lines, IsEmpty());
  // Lengths are rounded half to even, at the tempo of the moment.
  p.Load("*3a3");
  for (const auto& [bpm, line] : {std::pair{60000, "440 0"}, {20000, "440 2"}, {12000, "440 2"}}) {
    p.SetTempo(bpm);
    p.PlayAll();
    EXPECT_EQ(p.sound.lines.back(), line);
  }
}

TEST(Player, TellsWhichElementPlaysBeforeItSoundsAndWhenItHasEnded) {
  Playing p("*3#c2 r2 ledon *3&a2 *3B2");
  p.view.onPaint = [&] { p.view.playing.emplace_back("painted"); };  // a beep follows
  p.PlayAll();
  EXPECT_THAT(p.view.playing, ElementsAre("0 1", "painted", "none", "1 -1", "none", "2 -1", "none", "3 8",
                                          "painted", "none", "4 11", "painted", "none"));
}

TEST(Player, ReportsWhatItCannotPlay) {
  const std::string unsupported = "1: Can not play this note -> not supported in this mode";
  const std::string noNote = "1: Error - can not find any note";
  struct Case {
    Element element;
    std::vector<std::string> lines;
    std::vector<std::string> sounds;
  };
  for (const Case& c :
       {Case{Note("h", 3), {"1: Unknown tone-->h"}, {}}, Case{Note("a", 9, 1), {unsupported}, {"28160 600"}},
        Case{Element{}, {noNote}, {}}, Case{Command("Error"), {noNote}, {}},
        Case{Command("@99999999999)"), {"1: Error in PlayElement"}, {}},
        Case{Note("a", 100), {unsupported, "1: Error in PlayTone"}, {}},
        Case{Note("a", 3, 1e9F), {"1: Error in PlayElement"}, {}},
        Case{Rest(1e9F), {"1: Error in PlayPause"}, {}}}) {
    Playing p;
    p.player.PlayElement(c.element, 3);
    EXPECT_EQ(p.log.lines, c.lines) << Described(c.element);
    EXPECT_EQ(p.sound.lines, c.sounds) << Described(c.element);
    EXPECT_EQ(p.player.LastPlayed().length, c.sounds.empty() ? 0 : 600) << Described(c.element);
  }
  Playing p;
  p.player.PlayElement(Note("h"), 0);
  EXPECT_THAT(p.view.calls, ElementsAre("Hz 0")) << "shown, though not sounded";
}

TEST(Player, JumpsToTheNearestStartOfTheSongAsItIs) {
  struct Step {
    Change change;
    int32_t index;
    int32_t back;
  };
  Playing p("( *3a2 @0) *3c2 @0)");
  for (const Step& step :
       {Step{{}, 4, 4}, Step{{}, 2, 2}, Step{{}, 4, 4}, Step{{.at = 3, .removed = 1}, 3, 3},
        Step{{.at = 1, .inserted = {Command("(")}}, 4, 3}, Step{{}, 3, 2}, Step{{.removed = 2}, 2, 0},
        Step{{.inserted = {Command("(")}}, 2, 2}}) {
    p.document.Apply(step.change);
    EXPECT_EQ(p.player.PlayElement(p.document.At(step.index), step.index), step.back);
  }
  EXPECT_THAT(p.log.lines, ElementsAre("2: Can not find the start of the Repeat"));
  // Another song comes while the start is looked for: that one is searched from there on.
  p.Load("( *3a2 *3a2 *3a2 @0)");
  p.pump.onPump = [&](int) {
    if (p.document.At(0).Command() == "(") p.Load("*3a2 ( *3a2 *3a2 @0)");
  };
  EXPECT_EQ(p.player.PlayElement(p.document.At(4), 4), 3);
  EXPECT_EQ(p.player.PlayElement(p.document.At(4), 4), 3);
}

TEST(Player, PerformsCommandsInIMelodyAlone) {
  Playing p("ledon backon backoff ledoff backon V10 V+ vibeon vibeoff thereupon");
  p.PlayAll();
  EXPECT_THAT(p.view.calls,
              ElementsAre("picture 2", "picture 3", "picture 2", "picture 0", "picture 1", "shake", "still"));
  EXPECT_THAT(p.log.lines, IsEmpty());
  p.view.calls.clear();
  for (const auto mode : {FormatMode::EMelody, FormatMode::Rtttl, FormatMode::Melody}) {
    p.document.Apply({.mode = mode});
    p.PlayAll();
  }
  EXPECT_THAT(p.view.calls, IsEmpty());
  EXPECT_EQ(p.clock.seconds, 0);
}

TEST(Player, AWaitAcrossMidnightLastsUntilTheStartComesAgain) {
  Playing p;
  p.clock.seconds = 86399;
  p.pump.onPump = [&p](int) { p.clock.seconds = std::fmod(p.clock.seconds, 86400); };
  p.player.PlayElement(Rest(4), 0);
  EXPECT_GE(p.clock.seconds, 86399);
  EXPECT_LT(p.clock.seconds, 86399.1);
}

TEST(Player, WaveOutputLoopsTheImageForTheLengthOfTheTone) {
  Playing p("*3a2");
  p.player.outputType = OutputType::Wave;
  bool sounded = false;
  p.view.onPaint = [] { ADD_FAILURE() << "events run, so nothing need be painted"; };
  p.pump.onPump = [&](int) { sounded = p.player.NoteIsSounding(); };
  p.PlayAll();
  EXPECT_TRUE(sounded);
  EXPECT_FALSE(p.player.NoteIsSounding());
  EXPECT_THAT(p.sound.lines, ElementsAre("stop at 0", "start 2050 at 0", "stop at 600"));
  p.sound.works = false;
  p.PlayAll();
  EXPECT_NEAR(p.clock.seconds, 1.2, 0.001);
  EXPECT_THAT(p.log.lines, ElementsAre("1: Failed to start Wave file.."));
}

TEST(Player, CutShortEndsTheWaitThatRunsAndNoOther) {
  Playing p("*3a0 r2");
  p.player.outputType = OutputType::Wave;
  p.player.CutShort();  // nothing sounds
  p.pump.onPump = [&](int) {
    p.pump.onPump = nullptr;
    p.clock.seconds = 0.1;
    p.player.CutShort();
    p.player.PlayElement(Rest(), 0);  // inside the wait that is cut
  };
  p.player.PlayElement(p.document.At(0), 0);
  EXPECT_NEAR(p.clock.seconds, 0.7, 0.001);
  p.PlayAll();
  EXPECT_NEAR(p.clock.seconds, 0.7 + 2.4 + 0.6, 0.001);
}

TEST(Player, AFaultInATonePassesOnAndLeavesNothingSounding) {
  for (const auto output : {OutputType::Wave, OutputType::Beep}) {
    Playing p("*3a2");
    p.player.outputType = output;
    const auto fault = [] { throw std::runtime_error("device lost"); };
    p.sound.onBeep = fault;
    p.pump.onPump = [&fault](int) { fault(); };
    EXPECT_THROW(p.PlayAll(), std::runtime_error);
    EXPECT_FALSE(p.player.NoteIsSounding());
    EXPECT_EQ(p.sound.lines.back(), output == OutputType::Wave ? "stop at 600" : "440 600");
  }
}

TEST(Player, MidiSoundsNothingAndTakesNoTimeButForPauses) {
  Playing p("*3a2 r2");
  p.player.outputType = OutputType::Midi;
  p.PlayAll();
  EXPECT_THAT(p.sound.lines, IsEmpty());
  EXPECT_THAT(p.view.calls, ElementsAre("Hz 440"));
  EXPECT_NEAR(p.clock.seconds, 0.6, 0.001);
}

}  // namespace
}  // namespace trillomat
