#include "support/composer_fixture.h"

namespace trillomat {
namespace {

TEST_F(ComposerTest, AModeBringsItsTempoItsOctavesItsSelectionsAndItsFiles) {
  struct Case {
    FormatMode mode;
    int32_t bpm;
    int octave;
    int duration;
    int extra;
  };
  for (const Case& c : {Case{FormatMode::EMelody, 200, 5, 2, 0}, Case{FormatMode::Rtttl, 120, 6, 5, 0},
                        Case{FormatMode::Melody, 200, 4, 3, 0}, Case{FormatMode::IMelody, 120, 8, 5, 1}}) {
    composer.SetMode(FormatMode::IMelody);
    composer.SetOctave(9);
    composer.SelectDuration(5);
    composer.SelectDurationExtra(1);
    record.info.bpm = 120;
    const int lists = view.fileLists;
    composer.SetMode(c.mode);
    const ComposerState& state = composer.State();
    EXPECT_EQ((std::tuple{state.octave, state.duration, state.durationExtra}),
              (std::tuple{c.octave, c.duration, c.extra}));
    EXPECT_EQ(document.Info().bpm, c.bpm);
    EXPECT_EQ(record.info.bpm, c.bpm);
    EXPECT_EQ(view.fileLists, lists + 1);
  }
  Compose("*8c4 ledon *4d2", 2);
  composer.SetMode(FormatMode::Melody);
  EXPECT_EQ(view.melody.left, "   [c]   +D") << "the melody stays as it is";
}

TEST_F(ComposerTest, WhatIsTakenInReplacesTheSongAndPutsThePhoneToRest) {
  Compose("c2 d2", 1);
  ReadRecord read{.info = {.name = "New", .bpm = 0, .style = "2", .volume = ""}, .rtttl = {.name = "Last"}};
  composer.TakeIn(
      {.elements = ElementsOf("*5e2"), .record = read, .mode = document.Mode(), .step = "opening"});
  EXPECT_EQ(Tokens(), "|*5e2");
  EXPECT_EQ(view.melody.right, "   *5e2");
  EXPECT_EQ(composer.Panel().Rows().at(2).text, "New");
  read.info = {.name = "New", .bpm = 100, .style = "S2", .volume = "V10"};
  EXPECT_EQ(document.Info(), read.info);
  EXPECT_EQ(record, read);
  EXPECT_THAT(phone.calls, testing::ElementsAre("still", "picture 0", "Hz 0"));
}

TEST_F(ComposerTest, WhatARefusedReadLeftReachesTheSongOnlyWithTheNextMode) {
  composer.EditSongText(2, "Mine");
  record.info.name = "Refused";
  record.info.bpm = 150;
  composer.EditSongText(3, "Me");
  EXPECT_EQ(document.Info().name, "Mine");
  EXPECT_EQ(document.Info().bpm, 100);
  EXPECT_EQ(document.Info().composer, "Me");
  EXPECT_EQ(composer.Panel().Rows().at(2).text, "Mine");
  composer.SetMode(FormatMode::Rtttl);
  EXPECT_EQ(document.Info().name, "Refused");
  EXPECT_EQ(document.Info().bpm, 150);
  EXPECT_EQ(document.Info().composer, "Me") << "what was typed went into the record, too";
  EXPECT_EQ(composer.Panel().Rows().at(0).text, "Refused");
}

TEST_F(ComposerTest, TheScaleMovesAllOrNothing) {
  struct Case {
    FormatMode mode;
    int16_t octaves;
    std::vector<int> before;
    std::vector<int> after;
    std::string message;
  };
  const std::string range = "2: All notes must be within scale ";
  const Case cases[] = {
      {FormatMode::IMelody, 1, {7, 8}, {7, 8}, range + "0-8, currently note 2 is incorrect"},
      {FormatMode::IMelody, -5, {4}, {4}, range + "0-8, currently note 1 is incorrect"},
      // A pause takes over the octave before it, and counts as octave 0 at the start.
      {FormatMode::IMelody, -1, {4, -1, 5, -1}, {3, 3, 4, 4}, "1: Change Scale started"},
      {FormatMode::IMelody, 1, {-1, 4}, {0, 5}, "1: Change Scale started"},
      {FormatMode::EMelody, -1, {-1, 4}, {-1, 4}, range + "3-5, currently note 1 is incorrect"},
      {FormatMode::Rtttl, 32767, {32767}, {32767}, range + "3-6, currently note 1 is incorrect"}};
  for (const Case& c : cases) {
    ElementList elements;
    for (const int octave : c.before) elements.push_back(Note("c", octave));
    composer.SetMode(c.mode);
    document.Apply({.removed = document.Size(), .inserted = elements, .cursor = 0});
    composer.MoveScale(c.octaves);
    std::vector<int> octaves;
    for (const Element& element : document.Elements()) octaves.push_back(element.octave);
    EXPECT_EQ(octaves, c.after);
    EXPECT_EQ(document.Cursor(), 0);
    EXPECT_EQ(log.lines.back(), c.message);
  }
  Compose("", -1);
  log.lines.clear();
  composer.MoveScale(1);
  EXPECT_TRUE(log.lines.empty());
}

}  // namespace
}  // namespace trillomat
