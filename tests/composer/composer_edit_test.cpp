#include <map>

#include "support/composer_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ComposerTest, ElementsAreInsertedRightOfTheCursor) {
  composer.EnterTone(0);
  EXPECT_EQ(Tokens(), "*4c2| ");
  composer.SetOctave(5);
  composer.SelectDuration(3);
  composer.SelectDurationExtra(1);
  composer.EnterTone(6);
  composer.EnterPause();
  EXPECT_EQ(Tokens(), "*4c2 *5#f3. r3.| ");
  document.Apply({.cursor = -1});
  composer.TypeTone(11);
  EXPECT_EQ(Tokens(), "*5b3.| *4c2 *5#f3. r3.");
  document.Apply({.cursor = 1});
  composer.EnterPause();
  EXPECT_EQ(Tokens(), "*5b3. *4c2 r3.| *5#f3. r3.");
  EXPECT_EQ(view.melody.left, "   *5b3.   *4c2   r3.");
  EXPECT_EQ(view.melody.right, "   *5#f3.   r3.");
}

TEST_F(ComposerTest, ErasingOnBothSidesOfTheCursor) {
  Compose("c2 d2 e2 f2", 1);
  composer.EraseRight();
  EXPECT_EQ(Tokens(), "*4c2 *4d2| *4f2");
  for (int i = 0; i < 3; ++i) composer.EraseLeft();  // one more than there are
  EXPECT_EQ(Tokens(), "|*4f2");
  for (int i = 0; i < 2; ++i) composer.EraseRight();
  EXPECT_TRUE(document.IsEmpty());
  EXPECT_EQ(document.Cursor(), -1);
  EXPECT_EQ(view.melody.left + view.melody.right, "");
  Compose("c2 d2", 1);
  composer.EraseRight();
  EXPECT_EQ(Tokens(), "*4c2 *4d2| ");
}

TEST_F(ComposerTest, DurationStepsThroughWhatTheModeAllows) {
  using Case = std::tuple<FormatMode, std::string, std::string>;
  const Case cases[] = {{FormatMode::IMelody, "c2.", "*4c3.| "}, {FormatMode::IMelody, "c5", "*4c0| "},
                        {FormatMode::EMelody, "c3", "*4c0| "},   {FormatMode::Melody, "c3", "*4c2| "},
                        {FormatMode::Melody, "c0", "*4c2| "},    {FormatMode::IMelody, "r1", "r2| "}};
  for (const auto& [mode, before, after] : cases) {
    composer.SetMode(mode);
    Compose(before, 0);
    composer.StepDuration();
    EXPECT_EQ(Tokens(), after) << before;
  }
  document.Apply({.cursor = -1});
  composer.StepDuration();
  EXPECT_EQ(Tokens(), "|r2");
}

TEST_F(ComposerTest, AccidentalsCycleAndSoundWhateverTheSettings) {
  const std::map<std::string, std::string> cases = {{"d", "#d &d d "}, {"g", "#g &g g "}, {"a", "#a &a a "},
                                                    {"c", "#c c "},    {"f", "#f f "},    {"e", "&e e "},
                                                    {"b", "&b b "},    {"#e", "&e "},     {"&c", "c "},
                                                    {"D", "#D &D D "}, {"r", "r "},       {"R", "R "}};
  for (const auto& [start, next] : cases) {
    document.Apply({.removed = document.Size(), .inserted = {Note(start)}, .cursor = 0});
    std::string found;
    while (found.size() < next.size()) {
      composer.StepAccidental();
      found += std::string(document.At(0).Note()) + " ";
    }
    EXPECT_EQ(found, next) << start;
  }
  EXPECT_THAT(log.lines, IsEmpty());
  Compose("*3g2", 0);
  sound.beeps.clear();
  composer.StepAccidental();
  EXPECT_THAT(sound.beeps, ElementsAre(416));
  Compose("ledon", 0);
  composer.StepAccidental();
  EXPECT_THAT(log.lines, ElementsAre("1: Can not find the correct note-->"));
}

TEST_F(ComposerTest, NothingEditsWhileTheMelodyPlays) {
  const std::vector<std::function<void()>> commands = {
      [&] { composer.EnterTone(3); },   [&] { composer.TypeTone(3); },
      [&] { composer.EnterPause(); },   [&] { composer.EnterCommand(0, "", ""); },
      [&] { composer.StepDuration(); }, [&] { composer.StepAccidental(); },
      [&] { composer.MoveLeft(); },     [&] { composer.MoveRight(); },
      [&] { composer.EraseLeft(); },    [&] { composer.EraseRight(); },
      [&] { composer.MoveScale(1); }};
  settings.playComposing = settings.playMoving = true;
  composer.SetMode(FormatMode::IMelody);
  for (const bool paused : {false, true}) {
    Compose("*3a2 *3c2", -1);
    int events = 0;
    pump.onPump = [&](int) {
      if (++events == 1 && paused) play.Press(Control::Pause);
      const std::string before = Tokens();
      EXPECT_FALSE(composer.MayEdit() || composer.CanInsertCommands());
      for (const auto& command : commands) command();
      EXPECT_EQ(Tokens(), before);
      if (events == 20) play.Press(Control::Stop);
    };
    play.Press(Control::Play);
    EXPECT_GE(events, 2);
    pump.onPump = nullptr;
  }
  EXPECT_TRUE(composer.MayEdit() && composer.CanInsertCommands());
  composer.SetMode(FormatMode::Rtttl);
  EXPECT_FALSE(composer.CanInsertCommands()) << "no more than the mode allows";
}

TEST_F(ComposerTest, ClearPutsThePhoneToRestButNotWhileAMelodyPlays) {
  Compose("ledon backon vibeon *3a2", -1);
  sound.onBeep = [this] { composer.Clear(); };
  play.Press(Control::Play);
  EXPECT_FALSE(document.IsEmpty());
  phone.calls.clear();
  composer.Clear();
  EXPECT_TRUE(document.IsEmpty());
  EXPECT_EQ(document.Cursor(), -1);
  EXPECT_THAT(phone.calls, testing::ElementsAre("still", "picture 0", "Hz 0"));
}

}  // namespace
}  // namespace trillomat
