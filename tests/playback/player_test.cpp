#include <map>

#include "playback/beat.h"
#include "playback/tone_table.h"
#include "playing.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Beat, RoundsHalfToEvenAndReplacesZero) {
  const std::map<int32_t, int32_t> cases = {{100, 600},   {120, 500},     {90, 667},     {63, 952},
                                            {1, 60000},   {32, 1875},     {96, 625},     {480, 125},
                                            {160, 375},   {96000, 1},     {120000, 0},   {40000, 2},
                                            {-60, -1000}, {INT32_MAX, 0}, {INT32_MIN, 0}};
  for (const auto& [tempo, beat] : cases) {
    SongHeader header;
    header.BPM = tempo;
    EXPECT_EQ(UpdateBeatLength(header), beat) << tempo;
    EXPECT_EQ(header.BPM, tempo);
  }
  SongHeader header;
  header.BPM = 0;
  EXPECT_EQ(UpdateBeatLength(header), 600);
  EXPECT_EQ(header.BPM, 100);
}

TEST(ToneTable, DoublesTheRoundedBase) {
  EXPECT_EQ(ToneFrequency(*BaseFrequency("a"), 3), 440);
  EXPECT_EQ(ToneFrequency(*BaseFrequency("c"), 3), 264);
  EXPECT_EQ(ToneFrequency(*BaseFrequency("a"), 4), 880);
  EXPECT_EQ(ToneFrequency(*BaseFrequency("b"), 3), 496);
  EXPECT_EQ(ToneFrequency(*BaseFrequency("#F"), 0), 46);
  EXPECT_EQ(ToneFrequency(*BaseFrequency("&g"), -1), 46);
  EXPECT_EQ(ToneFrequency(62, 25), 2080374784);
  EXPECT_EQ(ToneFrequency(62, 26), std::nullopt);
  EXPECT_EQ(ToneFrequency(0, 32767), 0);
  for (const char* unknown : {"", "h", "#e", "&c", "cc", "r"})
    EXPECT_FALSE(BaseFrequency(unknown)) << unknown;
  const std::map<const char*, const char*> same{
      {"#c", "&d"}, {"#d", "&e"}, {"#f", "&g"}, {"#g", "&a"}, {"#a", "&b"}};
  for (const auto& [sharp, flat] : same) EXPECT_EQ(BaseFrequency(sharp), BaseFrequency(flat));
}

TEST(Player, SoundsTonesAndWaitsOutPauses) {
  Playing p("*3a2. *4a3; *3C2 r2. *0c5 *9b0");
  for (int32_t i = 0; i <= p.ws.melody.UpperBound(); ++i) {
    EXPECT_EQ(p.player.PlayElement(p.ws.melody.At(i), 600, i), 0);
  }
  EXPECT_THAT(p.sound.lines, ElementsAre("440 900", "880 200", "264 600", "33 75", "31744 2400"));
  EXPECT_THAT(p.view.calls, ElementsAre("Hz 440", "Hz 880", "Hz 264", "Hz 33", "Hz 31744"));
  EXPECT_NEAR(p.clock.seconds, 0.9 + 0.2 + 0.6 + 0.9 + 0.075 + 2.4, 0.001);
  EXPECT_THAT(p.log.lines, IsEmpty());
}

TEST(Player, RoundsLengthsHalfToEven) {
  Playing p("*3a3");
  for (const auto& [beat, line] : {std::pair{1, "440 0"}, {3, "440 2"}, {5, "440 2"}, {7, "440 4"}}) {
    p.player.PlayElement(p.ws.melody.At(0), beat, 0);
    EXPECT_EQ(p.sound.lines.back(), line);
  }
}

TEST(Player, ReportsWhatItCannotPlay) {
  Playing p;
  MelodyNote unknown = p.ws.codec.DecodeNote("*3a2", FormatMode::IMelody);
  unknown.Note = "h";
  p.player.PlayElement(unknown, 600, 0);
  EXPECT_THAT(p.view.calls, ElementsAre("Hz 0"));
  EXPECT_FALSE(p.player.NoteIsSounding());
  EXPECT_EQ(p.player.LastPlayed().length, 600);

  MelodyNote flagged = p.ws.codec.DecodeNote("*3a2", FormatMode::IMelody);
  flagged.NotSupported = true;
  p.player.PlayElement(flagged, 600, 0);
  p.player.PlayElement(MelodyNote{}, 600, 0);
  p.player.PlayElement(CommandNote("Error"), 600, 0);
  p.player.PlayElement(CommandNote("@99999999999)"), 600, 3);
  flagged.NotSupported = false;
  flagged.Octave = 100;
  p.player.PlayElement(flagged, 600, 0);
  flagged.Duration = 1e9F;
  p.player.PlayElement(flagged, 600, 0);

  EXPECT_THAT(p.sound.lines, ElementsAre("440 600"));
  EXPECT_THAT(p.log.lines,
              ElementsAre("1: Unknown tone-->h", "1: Can not play this note -> not supported in this mode",
                          "1: Error - can not find any note", "1: Error - can not find any note",
                          "1: Error in PlayElement", "1: Error in PlayTone", "1: Error in PlayElement"));
}

TEST(Player, PerformsCommandsInIMelodyAlone) {
  Playing p("ledon backon backoff ledoff backon V10 V+ vibeon vibeoff thereupon");
  const auto playAll = [&p] {
    for (const MelodyNote& note : p.ws.melody.Elements()) p.player.PlayElement(note, 600, 0);
  };
  playAll();
  EXPECT_THAT(p.view.calls, ElementsAre("picture 2", "picture 3", "picture 2", "picture 0", "picture 1",
                                        "timer on 0", "timer off 0"));
  EXPECT_TRUE(p.player.Lights().backlight);
  EXPECT_FALSE(p.player.Lights().led);
  p.view.calls.clear();
  for (const auto mode : {FormatMode::EMelody, FormatMode::Rtttl, FormatMode::Melody}) {
    p.ws.iNoteMode = mode;
    playAll();
  }
  EXPECT_THAT(p.view.calls, IsEmpty());
  EXPECT_THAT(p.log.lines, IsEmpty());
  EXPECT_EQ(p.clock.seconds, 0);
}

TEST(Player, FindsTheStartOfARepeat) {
  Playing p("*3a2 ( *3c2 *3d2 @2) @2)");
  const auto play = [&p](int32_t i) { return p.player.PlayElement(p.ws.melody.At(i), 600, i); };
  EXPECT_EQ(play(1), 0);
  EXPECT_EQ(play(4), 3);
  EXPECT_EQ(p.player.repeat.Counter(), 1);
  EXPECT_EQ(play(4), 0);  // the second round is the last
  EXPECT_EQ(p.player.repeat.Counter(), 0);
  EXPECT_EQ(play(5), 4);
  p.ws.iNoteMode = FormatMode::Rtttl;
  EXPECT_EQ(play(4), 0);

  p.Load("*3a2 @2)");
  p.ws.iNoteMode = FormatMode::IMelody;
  p.player.repeat.Start();
  EXPECT_EQ(play(1), 0);
  EXPECT_EQ(p.player.PlayElement(CommandNote("@2)"), 600, 0), 0);
  EXPECT_THAT(p.log.lines, ElementsAre("2: Can not find the start of the Repeat"));
}

TEST(Player, WaitSleepsThroughThePumpAndEndsWithTheProgram) {
  Playing p;
  p.player.Wait(0);
  p.player.Wait(-5);
  EXPECT_EQ(p.pump.pumps, 0);
  p.player.Wait(250);
  EXPECT_NEAR(p.clock.seconds, 0.25, 0.001);
  EXPECT_LE(p.pump.pumps, 3);

  FakePump stuck;  // time stands still
  stuck.onPump = [&stuck](int pumps) { stuck.ending = pumps == 100; };
  Player player(p.ws, PlayerSeams{p.log, stuck, p.clock, p.sound, p.view});
  player.Wait(1);
  EXPECT_EQ(stuck.pumps, 100);
}

TEST(Player, AWaitAcrossMidnightLastsUntilTheStartComesAgain) {
  Playing p;
  p.clock.seconds = 86399;
  p.pump.onPump = [&p](int) { p.clock.seconds = std::fmod(p.clock.seconds, 86400); };
  p.player.Wait(2000);
  EXPECT_GE(p.clock.seconds, 86399);
  EXPECT_LT(p.clock.seconds, 86399.1);
}

TEST(Player, WaveOutputLoopsTheImageForTheLengthOfTheTone) {
  Playing p;
  p.player.outputType = OutputType::Wave;
  bool sounded = false;
  p.pump.onPump = [&](int) { sounded = p.player.NoteIsSounding(); };
  p.player.PlayTone(600, 55, 3);
  EXPECT_TRUE(sounded);
  EXPECT_FALSE(p.player.NoteIsSounding());
  EXPECT_THAT(p.sound.lines, ElementsAre("stop at 0", "start 2050 at 0", "stop at 600"));

  p.sound.works = false;
  p.player.PlayTone(600, 55, 3);
  EXPECT_NEAR(p.clock.seconds, 1.2, 0.001);
  EXPECT_THAT(p.log.lines, ElementsAre("1: Failed to start Wave file.."));
}

TEST(Player, MidiSoundsNothingAndTakesNoTimeButForPauses) {
  Playing p("*3a2 r2");
  p.player.outputType = OutputType::Midi;
  for (const MelodyNote& note : p.ws.melody.Elements()) p.player.PlayElement(note, 600, 0);
  EXPECT_THAT(p.sound.lines, IsEmpty());
  EXPECT_THAT(p.view.calls, ElementsAre("Hz 440"));
  EXPECT_NEAR(p.clock.seconds, 0.6, 0.001);
}

TEST(PhoneLights, VibrationStaysInItsSquare) {
  const VibrationSpot first = RandomVibrationSpot(0, 0);
  const VibrationSpot last = RandomVibrationSpot(0.9999, 0.9999);
  EXPECT_THAT((std::vector{first.left, first.top, last.left, last.top}), ElementsAre(200, 260, 280, 340));
}

}  // namespace
}  // namespace trillomat
