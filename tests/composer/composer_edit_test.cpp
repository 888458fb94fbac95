#include <gmock/gmock.h>

#include "support/composer_fixture.h"

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
  const char* const expected[] = {"ledon", "ledoff", "vibeon", "vibeoff", "backon", "backoff",
                                  "V+",    "V-",     "(",      "@3)",     "V7",     ""};
  for (int i = 0; i < 12; ++i) {
    composer.cmdInsert_Click(i, "3", "7");
    const MelodyNote& note = ws.melody.At(ws.melody.lCurrentIndex);
    EXPECT_EQ(note.Special, expected[i]);
    EXPECT_EQ(note.Note, "");
    EXPECT_EQ(note.Octave, kNoOctave);
    EXPECT_EQ(note.Duration, 1.0F);
    EXPECT_EQ(composer.State().repeatBox, i == kRepeatStart) << i;
  }
  composer.cmdInsert_Click(kRepeatStop, "", "");
  EXPECT_EQ(ws.melody.At(ws.melody.lCurrentIndex).Special, "@)");
}

TEST_F(ComposerTest, ErasingOnBothSidesOfTheCursor) {
  Compose("c2 d2 e2 f2", 1);
  composer.cmdEraseRight_Click();
  EXPECT_EQ(Tokens(), "*4c2 *4d2| *4f2 ");
  composer.cmdEraseLeft_Click();
  EXPECT_EQ(Tokens(), "*4c2| *4f2 ");
  composer.cmdEraseLeft_Click();
  composer.cmdEraseLeft_Click();  // nothing left of the cursor
  EXPECT_EQ(Tokens(), "|*4f2 ");
  composer.cmdEraseRight_Click();
  composer.cmdEraseRight_Click();
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
  composer.cmdRight_Click();  // already on the last element
  composer.cmdLeft_Click();
  composer.cmdLeft_Click();
  composer.cmdLeft_Click();  // stays before the first
  EXPECT_EQ(ws.melody.lCurrentIndex, -1);
  EXPECT_THAT(sound.beeps, ElementsAre(880, 880, 440, 440));
  composer.cmdRight_Click();
  EXPECT_EQ(ws.melody.lCurrentIndex, 0);
  EXPECT_EQ(sound.beeps.back(), 440);
  ws.melody.Clear();
  composer.cmdLeft_Click();
  composer.cmdRight_Click();
  EXPECT_EQ(sound.beeps.size(), 5U);
}

TEST_F(ComposerTest, DurationStepsThroughWhatTheModeAllows) {
  struct Case {
    FormatMode mode;
    std::string before;
    std::string after;
  };
  const Case cases[] = {{FormatMode::IMelody, "c2.", "*4c3.| "}, {FormatMode::IMelody, "c5", "*4c0| "},
                        {FormatMode::EMelody, "c3", "*4c0| "},   {FormatMode::Melody, "c3", "*4c2| "},
                        {FormatMode::Melody, "c0", "*4c2| "},    {FormatMode::IMelody, "r1", "r2| "}};
  for (const Case& c : cases) {
    ws.melody.Clear();
    composer.mnuSettingFormatType_Click(c.mode);
    Compose(c.before, 0);
    composer.cmdDuration_Click();
    EXPECT_EQ(Tokens(), c.after) << c.before;
  }
  ws.melody.lCurrentIndex = -1;
  composer.cmdDuration_Click();
  EXPECT_EQ(Tokens(), "|r2 ");
}

TEST_F(ComposerTest, LowHighCyclesTheSpellings) {
  struct Case {
    std::string note;
    std::vector<std::string> next;
  };
  const Case cases[] = {{"d", {"#d", "&d", "d"}},
                        {"g", {"#g", "&g", "g"}},
                        {"a", {"#a", "&a", "a"}},
                        {"c", {"#c", "c"}},
                        {"f", {"#f", "f"}},
                        {"e", {"&e", "e"}},
                        {"b", {"&b", "b"}},
                        {"#e", {"&e"}},
                        {"&c", {"c"}},
                        {"D", {"#D", "&D", "D"}},
                        {"r", {"r"}},
                        {"R", {"R"}}};
  for (const Case& c : cases) {
    Compose("c2", 0);
    MelodyNote note = ws.melody.At(0);
    note.Note = c.note;
    ws.melody.Replace(0, note);
    for (const std::string& next : c.next) {
      composer.cmdLowHigh_Click();
      EXPECT_EQ(ws.melody.At(0).Note, next) << c.note;
    }
  }
  EXPECT_THAT(log.lines, IsEmpty());
  Compose("ledon", 0);
  composer.cmdLowHigh_Click();
  EXPECT_THAT(log.lines, ElementsAre("1: Can not find the correct note-->"));
}

TEST_F(ComposerTest, LowHighSoundsWhateverTheSettings) {
  Compose("*3g2", 0);
  composer.cmdLowHigh_Click();
  EXPECT_THAT(sound.beeps, ElementsAre(416));
}

TEST_F(ComposerTest, EnteredTonesSoundOnDemandAndAreSeenMeanwhile) {
  composer.cmdTone_Click(9);
  EXPECT_THAT(sound.beeps, IsEmpty());
  settings.bPlayComposing = true;
  std::string seen;
  sound.onBeep = [&] { seen = view.melody.txtLeft; };
  composer.cmdTone_Click(9);
  EXPECT_THAT(sound.beeps, ElementsAre(880));
  EXPECT_EQ(seen, "   *4a2   *4a2");
  composer.cmdPause_Click();
  EXPECT_EQ(sound.beeps.size(), 1U);
}

TEST_F(ComposerTest, AToneKeyIsDeafWhileItsToneSounds) {
  settings.bPlayComposing = true;
  sound.onBeep = [&] { composer.cmdTone_Click(2); };
  composer.cmdTone_Click(0);
  EXPECT_EQ(Tokens(), "*4c2| ");
  sound.onBeep = nullptr;
  composer.cmdTone_Click(2);
  EXPECT_EQ(Tokens(), "*4c2 *4d2| ");
}

TEST_F(ComposerTest, AnythingMayHappenWhileEventsRun) {
  settings.bPlayComposing = true;
  settings.bPlayMoving = true;
  const auto clear = [&] {
    ws.melody.Clear();
    ws.melody.lCurrentIndex = -1;
  };
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
        if (pumps == at) clear();
      };
      actions[action]();
      EXPECT_LE(ws.melody.lCurrentIndex, ws.melody.UpperBound()) << action << " cleared at pump " << at;
    }
  }
}

}  // namespace
}  // namespace trillomat
