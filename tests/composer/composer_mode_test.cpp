#include <gmock/gmock.h>

#include "support/composer_fixture.h"

namespace trillomat {
namespace {

TEST_F(ComposerTest, EachModeOffersWhatItCanHold) {
  struct Case {
    FormatMode mode;
    bool commands;
    std::string durations;
    std::string extras;
    int duration;
    int extra;
    int32_t bpm;
    int octave;
  };
  const Case cases[] = {{FormatMode::IMelody, true, "111111", "1111", 4, 1, 120, 7},
                        {FormatMode::EMelody, false, "111100", "0000", 2, 0, 200, 5},
                        {FormatMode::Rtttl, false, "111111", "1100", 4, 0, 120, 6},
                        {FormatMode::Melody, false, "001100", "0000", 3, 0, 200, 4}};
  for (const Case& c : cases) {
    composer.mnuSettingFormatType_Click(FormatMode::IMelody);
    composer.optDuration_Click(4);
    composer.optDurationExtra_Click(1);
    composer.SliderOctave_Change(7);
    ws.header.BPM = 120;
    const int lists = view.fileLists;
    composer.mnuSettingFormatType_Click(c.mode);
    std::string durations;
    std::string extras;
    for (int i = 0; i < 6; ++i) durations += composer.HasDuration(i) ? '1' : '0';
    for (int i = 0; i < 4; ++i) extras += composer.HasDurationExtra(i) ? '1' : '0';
    EXPECT_EQ(durations, c.durations);
    EXPECT_EQ(extras, c.extras);
    EXPECT_EQ(composer.CanInsertCommands(), c.commands);
    EXPECT_EQ(composer.CanSetVolume(), c.commands);
    EXPECT_EQ(composer.State().duration, c.duration);
    EXPECT_EQ(composer.State().durationExtra, c.extra);
    EXPECT_EQ(composer.State().octave, c.octave);
    EXPECT_EQ(ws.header.BPM, c.bpm);
    EXPECT_EQ(composer.lBeatDuration(), 60000 / c.bpm);
    EXPECT_EQ(view.fileLists, lists + 1);
  }
}

TEST_F(ComposerTest, TheMelodyStaysWhenTheModeChanges) {
  Compose("*7c4 ledon *4d2", 2);
  composer.mnuSettingFormatType_Click(FormatMode::Melody);
  EXPECT_EQ(view.melody.txtLeft, "   [c]   +D");
  EXPECT_TRUE(ws.melody.At(0).NotSupported);
  composer.mnuSettingFormatType_Click(FormatMode::IMelody);
  EXPECT_EQ(view.melody.txtLeft, "   *7c4   ledon   *4d2");
  EXPECT_FALSE(ws.melody.At(0).NotSupported);
}

TEST_F(ComposerTest, TheTempoSetsTheBeat) {
  composer.txtSongInfo_Change(4, "90");
  EXPECT_EQ(composer.lBeatDuration(), 667);
  composer.txtSongInfo_Change(4, "9");
  EXPECT_EQ(composer.lBeatDuration(), 667);
  ws.header.BPM = 0;
  composer.ShowHeader();
  EXPECT_EQ(ws.header.BPM, 100);
  EXPECT_EQ(composer.lBeatDuration(), 600);
}

TEST_F(ComposerTest, RtttlDefaultsLandInTheTwoBoxesOfTheirView) {
  composer.mnuSettingFormatType_Click(FormatMode::Rtttl);
  Compose("*4c3 *4d3 *5e2", 2);
  composer.RefreshMelodyView();
  EXPECT_EQ(composer.SongInfo().Rows().at(3).text, "6");
  EXPECT_EQ(composer.SongInfo().Rows().at(4).text, "8");
  EXPECT_EQ(view.melody.txtLeft, "   8C6   8D6   4E7");
  composer.mnuRTTTLUseDefault_Click();
  composer.RefreshMelodyView();
  EXPECT_EQ(view.melody.txtLeft, "   C   D   4E7");
}

TEST_F(ComposerTest, AnImportReplacesMelodyAndSongInformation) {
  Compose("c2 d2", 1);
  ws.ImportMelody = {ws.codec.DecodeNote("*5e2", FormatMode::IMelody)};
  ws.header.Name = "New";
  ws.header.BPM = 150;
  ws.header.Style = "2";
  ws.header.Volume = "";
  composer.TakeImportMelody();
  EXPECT_EQ(Tokens(), "|*5e2 ");
  EXPECT_TRUE(ws.ImportMelody.empty());
  EXPECT_EQ(view.melody.txtRight, "   *5e2");
  EXPECT_EQ(composer.SongInfo().Rows().at(2).text, "New");
  EXPECT_EQ(ws.header.Style, "S2");
  EXPECT_EQ(ws.header.Volume, "V10");
  EXPECT_EQ(composer.lBeatDuration(), 400);
}

TEST_F(ComposerTest, PlayingLocksWhatTheModeAllowed) {
  composer.EnableComposer(false);
  EXPECT_FALSE(composer.CanEdit());
  EXPECT_FALSE(composer.CanInsertCommands());
  composer.mnuSettingFormatType_Click(FormatMode::Rtttl);
  composer.EnableComposer(true);
  EXPECT_TRUE(composer.CanEdit());
  EXPECT_FALSE(composer.CanInsertCommands()) << "unlocking enables what the mode allows, no more";
}

TEST_F(ComposerTest, ScaleMovesOrSaysWhatIsInTheWay) {
  Compose("*7c2 r2 *8d2", 0);
  composer.cmdScaleDown_Click();
  EXPECT_EQ(view.melody.txtLeft + view.melody.txtRight, "   *6c2   r2   *7d2");
  composer.cmdScaleUP_Click();
  composer.cmdScaleUP_Click();
  EXPECT_EQ(log.lines.back(), "2: All notes must be within scale 0-8, currently note 3 is incorrect");
  EXPECT_EQ(view.melody.txtLeft + view.melody.txtRight, "   *7c2   r2   *8d2");
}

}  // namespace
}  // namespace trillomat
