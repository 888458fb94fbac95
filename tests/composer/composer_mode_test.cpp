#include "composer/change_scale.h"
#include "support/composer_fixture.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

TEST_F(ComposerTest, AModeBringsItsTempoItsOctavesAndItsFilesAndATempoItsBeat) {
  using Case = std::tuple<FormatMode, int32_t, int>;
  for (const auto& [mode, bpm, octave] :
       {Case{FormatMode::EMelody, 200, 5}, Case{FormatMode::Rtttl, 120, 6}, Case{FormatMode::Melody, 200, 4},
        Case{FormatMode::IMelody, 120, 8}}) {
    composer.mnuSettingFormatType_Click(FormatMode::IMelody);
    composer.SliderOctave_Change(9);
    ws.header.BPM = 120;
    const int lists = view.fileLists;
    composer.mnuSettingFormatType_Click(mode);
    EXPECT_EQ(composer.State().octave, octave);
    EXPECT_EQ(composer.lBeatDuration(), 60000 / bpm);
    EXPECT_EQ(view.fileLists, lists + 1);
  }
  Compose("*8c4 ledon *4d2", 2);
  composer.mnuSettingFormatType_Click(FormatMode::Melody);
  EXPECT_EQ(view.melody.txtLeft, "   [c]   +D") << "the melody stays as it is";
  composer.mnuSettingFormatType_Click(FormatMode::IMelody);
  EXPECT_EQ(view.melody.txtLeft, "   *8c4   ledon   *4d2");
  composer.txtSongInfo_Change(4, "90");
  EXPECT_EQ(composer.lBeatDuration(), 667);
  ws.header.BPM = 0;
  composer.ShowHeader();
  EXPECT_EQ(ws.header.BPM, 100);
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

TEST(ChangeScaleTest, MovesAllOrNothing) {
  using Case = std::tuple<FormatMode, int16_t, MelodyList, MelodyList, std::string>;
  const std::string range = "2: All notes must be within scale ";
  const Case cases[] = {
      {FormatMode::IMelody, 1, Tones({4, 4}), Tones({5, 5}), ""},
      {FormatMode::IMelody, 1, Tones({7, 8}), Tones({7, 8}), range + "0-8, currently note 2 is incorrect"},
      {FormatMode::IMelody, -5, Tones({4}), Tones({4}), range + "0-8, currently note 1 is incorrect"},
      // A pause takes over the octave before it, and counts as octave 0 at the start.
      {FormatMode::IMelody, -1, Tones({4, -1, 5, -1}), Tones({3, 3, 4, 4}), ""},
      {FormatMode::IMelody, 1, Tones({-1, 4}), Tones({0, 5}), ""},
      {FormatMode::EMelody, 1, Tones({5}), Tones({5}), range + "3-5, currently note 1 is incorrect"},
      {FormatMode::EMelody, -1, Tones({-1, 4}), Tones({-1, 4}), range + "3-5, currently note 1 is incorrect"},
      {FormatMode::Rtttl, 32767, Tones({32767}), Tones({32767}),
       range + "3-6, currently note 1 is incorrect"},
      {FormatMode::Melody, 1, Tones({3, 3}), Tones({4, 4}), ""},
  };
  for (const auto& [mode, octaves, before, after, message] : cases) {
    FakeLog log;
    MelodyList notes = before;
    EXPECT_EQ(ChangeScale(notes, octaves, mode, log), message.empty());
    EXPECT_EQ(OctavesOf(notes), OctavesOf(after));
    EXPECT_EQ(log.lines.front(), "1: Change Scale started");
    EXPECT_EQ(log.lines.back(), message.empty() ? log.lines.front() : message);
  }
  FakeLog log;
  MelodyList none;
  ChangeScale(none, 1, FormatMode::IMelody, log);
  EXPECT_TRUE(log.lines.empty());
}

}  // namespace
}  // namespace trillomat
