#include "composer/song_info.h"

#include <gtest/gtest.h>

#include <map>

#include "composer/song_info_panel.h"
#include "support/fakes.h"

namespace trillomat {
namespace {

TEST(SongInfoTest, StyleAndVolumeConversions) {
  const std::map<std::string, std::string> styles = {
      {"S0", "S0: Natural Style"},  {"S1", "S1: Continuous Style"},  {"S2", "S2: Staccato Style"},
      {"", "S0: Natural Style"},    {"s=1", "S1: Continuous Style"}, {"S12", "S1: Continuous Style"},
      {"S20", "S0: Natural Style"}, {"S3", "S0: Natural Style"}};
  for (const auto& [code, text] : styles) {
    EXPECT_EQ(StyleText(code), text) << code;
    EXPECT_EQ(StyleCode(StyleText(code)), text.substr(0, 2)) << code;
  }
  const std::map<std::string, std::string> volumes = {
      {"V7", "V7"}, {"V15", "V15"},   {"V16", "V10"},  {"V123", "V10"},
      {"7", "V10"}, {"", "V10"},      {"v7", "V10"},   {"V-1", "V10"},
      {"V", "V"},   {"V7xyz", "V7x"}, {"V015", "V01"}, {"V99999999999", "V10"}};
  for (const auto& [code, text] : volumes) EXPECT_EQ(VolumeText(code), text) << code;
}

class SongInfoPanelTest : public testing::Test, public FakeWorkspace {
 protected:
  void SetMode(FormatMode mode) {
    ws.iNoteMode = mode;
    panel_.SetMode();
    panel_.LoadHeader();
  }
  const SongInfoRow& Row(int index) const { return panel_.Rows().at(static_cast<size_t>(index)); }

  SongInfoPanel panel_{ws};
};

TEST_F(SongInfoPanelTest, RowsFollowTheMode) {
  ws.header = {.Name = "Tune", .Composer = "Anon", .BPM = 120, .Style = "S2", .Volume = "V7", .Loop = 3};
  const auto visible = [this] {
    std::string texts;
    for (const SongInfoRow& row : panel_.Rows()) {
      if (row.visible) texts += std::string(row.caption) + "=" + row.text + (row.enabled ? ";" : ",");
    }
    return texts;
  };
  SetMode(FormatMode::IMelody);
  EXPECT_EQ(visible(),
            "Version=1.2,Format=Class 1.0,Name=Tune;Composer=Anon;B P M=120;Style=S2: Staccato "
            "Style;Volume=V7;");
  SetMode(FormatMode::Rtttl);
  panel_.ShowDefaults("6", "8");
  EXPECT_EQ(visible(),
            "Name=Tune;B P M=120;Repeat=3;Duration (Default)=6;Octave (Default)=8;Style=S2: Staccato Style;");
  SetMode(FormatMode::EMelody);
  EXPECT_EQ(visible(), "");
}

TEST_F(SongInfoPanelTest, TypingIsTakenOverOnlyWhenItIsInRange) {
  struct Case {
    FormatMode mode;
    int row;
    std::string text;
    int32_t bpm;
    int16_t loop;
    bool invalid;
  };
  const Case cases[] = {
      {FormatMode::IMelody, 4, "2", 100, 1, true},      {FormatMode::IMelody, 4, "25", 25, 1, false},
      {FormatMode::IMelody, 4, "900", 900, 1, false},   {FormatMode::IMelody, 4, "901", 100, 1, true},
      {FormatMode::IMelody, 4, "", 100, 1, true},       {FormatMode::IMelody, 4, "1e2", 100, 1, true},
      {FormatMode::IMelody, 4, " 120", 100, 1, true},   {FormatMode::IMelody, 4, "99999999999", 100, 1, true},
      {FormatMode::Rtttl, 1, "250", 250, 1, false},     {FormatMode::Rtttl, 2, "15", 100, 15, false},
      {FormatMode::Rtttl, 2, "16", 100, 1, true},       {FormatMode::Rtttl, 2, "0", 100, 0, false},
      {FormatMode::Rtttl, 2, "", 100, 1, true},         {FormatMode::Rtttl, 2, "-1", 100, 1, true},
      {FormatMode::Rtttl, 3, "anything", 100, 1, false}};
  for (const Case& c : cases) {
    ws.header.BPM = 100;
    ws.header.Loop = 1;
    SetMode(c.mode);
    const bool tempoTaken = panel_.txtSongInfo_Change(c.row, c.text);
    EXPECT_EQ(tempoTaken, c.bpm != 100) << c.text;
    EXPECT_EQ(Row(c.row).invalid, c.invalid) << c.text;
    EXPECT_EQ(ws.header.BPM, c.bpm) << c.text;
    EXPECT_EQ(ws.header.Loop, c.loop) << c.text;
  }
}

TEST_F(SongInfoPanelTest, NamesGoToTheHeaderFromTheRowOfTheMode) {
  ws.header.BPM = 9999;
  SetMode(FormatMode::IMelody);
  EXPECT_TRUE(Row(4).invalid);
  EXPECT_EQ(ws.header.BPM, 9999) << "a tempo out of range is shown red and not taken over";
  panel_.txtSongInfo_Change(2, "Fr\xE8re Jacques");
  panel_.txtSongInfo_Change(3, "Anon");
  SetMode(FormatMode::Rtttl);
  panel_.txtSongInfo_Change(3, "6");
  EXPECT_EQ(ws.header.Name, "Fr\xE8re Jacques");
  EXPECT_EQ(ws.header.Composer, "Anon");
  panel_.txtSongInfo_Change(0, "Ode");
  EXPECT_EQ(ws.header.Name, "Ode");
}

TEST_F(SongInfoPanelTest, TempoAndRepeatTakeDigitsAlone) {
  const auto accepted = [this](FormatMode mode, int row) {
    ws.iNoteMode = mode;
    std::string keys;
    for (const char key : {'7', '\b', 'x', '-'}) keys += panel_.txtSongInfo_KeyPress(row, key) ? '1' : '0';
    return keys;
  };
  EXPECT_EQ(accepted(FormatMode::IMelody, 4), "1100");
  EXPECT_EQ(accepted(FormatMode::Rtttl, 1), "1100");
  EXPECT_EQ(accepted(FormatMode::Rtttl, 2), "1100");
  EXPECT_EQ(accepted(FormatMode::IMelody, 2), "1111");
  EXPECT_EQ(accepted(FormatMode::Rtttl, 0), "1111");
}

}  // namespace
}  // namespace trillomat
