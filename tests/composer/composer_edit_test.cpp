#include <map>

#include "support/composer_fixture.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ComposerTest, ElementsAreInsertedRightOfTheCursor) {
  ws.melody.lCurrentIndex = 7;  // whatever the cursor was: the first element is element 0
  composer.cmdTone_Click(0);
  EXPECT_EQ(Tokens(), "*4c2| ");
  composer.SliderOctave_Change(5);
  composer.optDuration_Click(3);
  composer.optDurationExtra_Click(1);
  composer.cmdTone_Click(6);
  composer.cmdPause_Click();
  EXPECT_EQ(Tokens(), "*4c2 *5#f3. r3.| ");
  ws.melody.lCurrentIndex = -1;
  composer.cmdTone_Click(11);
  EXPECT_EQ(Tokens(), "*5b3.| *4c2 *5#f3. r3. ");
  ws.melody.lCurrentIndex = 1;
  composer.cmdPause_Click();
  EXPECT_EQ(Tokens(), "*5b3. *4c2 r3.| *5#f3. r3. ");
  EXPECT_EQ(view.melody.txtLeft, "   *5b3.   *4c2   r3.");
  EXPECT_EQ(view.melody.txtRight, "   *5#f3.   r3.");
}

TEST_F(ComposerTest, InsertButtonsMakeTheirCommands) {
  for (int i = 0; i < 12; ++i) composer.cmdInsert_Click(i, "3", "7");
  composer.cmdInsert_Click(kRepeatStop, "", "");
  std::string specials;
  for (const MelodyNote& note : ws.melody.Elements()) {
    specials += note.Special + note.Note + " ";
    EXPECT_EQ(note.Octave, kNoOctave);
    EXPECT_EQ(note.Duration, 1.0F);
  }
  EXPECT_EQ(specials, "ledon ledoff vibeon vibeoff backon backoff V+ V- ( @3) V7  @) ");
}

TEST_F(ComposerTest, ErasingOnBothSidesOfTheCursor) {
  Compose("c2 d2 e2 f2", 1);
  composer.cmdEraseRight_Click();
  EXPECT_EQ(Tokens(), "*4c2 *4d2| *4f2 ");
  for (int i = 0; i < 3; ++i) composer.cmdEraseLeft_Click();  // one more than there are
  EXPECT_EQ(Tokens(), "|*4f2 ");
  for (int i = 0; i < 2; ++i) composer.cmdEraseRight_Click();
  EXPECT_TRUE(ws.melody.IsEmpty());
  EXPECT_EQ(ws.melody.lCurrentIndex, -1);
  EXPECT_EQ(view.melody.txtLeft + view.melody.txtRight, "");
  Compose("c2 d2", 1);
  composer.cmdEraseRight_Click();
  EXPECT_EQ(Tokens(), "*4c2 *4d2| ");
}

TEST_F(ComposerTest, ArrowsMoveAndSoundWhatTheyPass) {
  settings.bPlayMoving = true;
  Compose("*3a2 *4a2", 1);
  composer.cmdRight_Click();                             // already on the last element
  for (int i = 0; i < 3; ++i) composer.cmdLeft_Click();  // stays before the first
  EXPECT_EQ(ws.melody.lCurrentIndex, -1);
  composer.cmdRight_Click();
  EXPECT_EQ(ws.melody.lCurrentIndex, 0);
  EXPECT_THAT(sound.beeps, ElementsAre(880, 880, 440, 440, 440));
  ws.melody.Clear();
  composer.cmdLeft_Click();
  composer.cmdRight_Click();
  EXPECT_EQ(sound.beeps.size(), 5U);
}

TEST_F(ComposerTest, DurationStepsThroughWhatTheModeAllows) {
  using Case = std::tuple<FormatMode, std::string, std::string>;
  const Case cases[] = {{FormatMode::IMelody, "c2.", "*4c3.| "}, {FormatMode::IMelody, "c5", "*4c0| "},
                        {FormatMode::EMelody, "c3", "*4c0| "},   {FormatMode::Melody, "c3", "*4c2| "},
                        {FormatMode::Melody, "c0", "*4c2| "},    {FormatMode::IMelody, "r1", "r2| "}};
  for (const auto& [mode, before, after] : cases) {
    composer.mnuSettingFormatType_Click(mode);
    Compose(before, 0);
    composer.cmdDuration_Click();
    EXPECT_EQ(Tokens(), after) << before;
  }
  ws.melody.lCurrentIndex = -1;
  composer.cmdDuration_Click();
  EXPECT_EQ(Tokens(), "|r2 ");
}

TEST_F(ComposerTest, LowHighCyclesTheSpellingsAndSoundsThemWhateverTheSettings) {
  const std::map<std::string, std::string> cases = {{"d", "#d &d d "}, {"g", "#g &g g "}, {"a", "#a &a a "},
                                                    {"c", "#c c "},    {"f", "#f f "},    {"e", "&e e "},
                                                    {"b", "&b b "},    {"#e", "&e "},     {"&c", "c "},
                                                    {"D", "#D &D D "}, {"r", "r "},       {"R", "R "}};
  for (const auto& [start, next] : cases) {
    ws.melody.Assign({Tone(start)});
    ws.melody.lCurrentIndex = 0;
    std::string found;
    while (found.size() < next.size()) {
      composer.cmdLowHigh_Click();
      found += ws.melody.At(0).Note + " ";
    }
    EXPECT_EQ(found, next) << start;
  }
  EXPECT_THAT(log.lines, IsEmpty());
  Compose("*3g2", 0);
  sound.beeps.clear();
  composer.cmdLowHigh_Click();
  EXPECT_THAT(sound.beeps, ElementsAre(416));
  Compose("ledon", 0);
  composer.cmdLowHigh_Click();
  EXPECT_THAT(log.lines, ElementsAre("1: Can not find the correct note-->"));
}

TEST_F(ComposerTest, EnteredTonesSoundOnDemandAndAreSeenMeanwhileWithTheirKeysDeaf) {
  composer.cmdTone_Click(9);
  EXPECT_THAT(sound.beeps, IsEmpty());
  settings.bPlayComposing = true;
  std::string seen;
  sound.onBeep = [&] {
    seen = view.melody.txtLeft;
    composer.cmdTone_Click(2);
    composer.cmdPause_Click();  // a pause is entered all the same
  };
  composer.cmdTone_Click(9);
  EXPECT_THAT(sound.beeps, ElementsAre(880));
  EXPECT_EQ(seen, "   *4a2   *4a2");
  sound.onBeep = nullptr;
  composer.cmdTone_Click(2);
  EXPECT_EQ(Tokens(), "*4a2 *4a2 r2 *4d2| ");
}

TEST_F(ComposerTest, AnythingMayHappenWhileEventsRun) {
  settings.bPlayComposing = true;
  settings.bPlayMoving = true;
  const std::vector<std::function<void()>> actions = {
      [&] { composer.cmdTone_Click(3); },     [&] { composer.cmdPause_Click(); },
      [&] { composer.cmdDuration_Click(); },  [&] { composer.cmdLowHigh_Click(); },
      [&] { composer.cmdLeft_Click(); },      [&] { composer.cmdRight_Click(); },
      [&] { composer.cmdEraseLeft_Click(); }, [&] { composer.cmdEraseRight_Click(); },
      [&] { composer.cmdScaleUP_Click(); }};
  for (size_t action = 0; action < actions.size(); ++action) {
    for (int at = 1; at < 12; ++at) {
      pump.onPump = nullptr;
      Compose("*3a2 r3 *4c1", 1);
      pump.pumps = 0;
      pump.onPump = [&](int pumps) {
        if (pumps != at) return;
        ws.melody.Clear();
        ws.melody.lCurrentIndex = -1;
      };
      actions[action]();
      EXPECT_LE(ws.melody.lCurrentIndex, ws.melody.UpperBound()) << action << " cleared at pump " << at;
    }
  }
}

}  // namespace
}  // namespace trillomat
