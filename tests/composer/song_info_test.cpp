#include "composer/song_info.h"

#include <gtest/gtest.h>

#include <map>

#include "composer/song_info_panel.h"

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

class SongInfoPanelTest : public testing::Test {
 protected:
  void Show(FormatMode mode, const SongInfo& info) {
    document_.Apply({.mode = mode});
    document_.Apply({.info = info});
    panel_.ShowMode();
    panel_.Load();
  }
  const SongInfoRow& Row(int row) const { return panel_.Rows().at(static_cast<size_t>(row)); }

  Document document_;
  ReadRecord record_;
  History history_{document_};
  SongInfoPanel panel_{document_, history_, record_};
};

TEST_F(SongInfoPanelTest, RowsFollowTheMode) {
  const SongInfo info{
      .name = "Tune", .composer = "Anon", .bpm = 120, .style = "S2", .volume = "V7", .loop = 3};
  const auto visible = [this] {
    std::string texts;
    for (const SongInfoRow& row : panel_.Rows()) {
      if (row.visible) texts += std::string(row.caption) + "=" + row.text + (row.enabled ? ";" : ",");
    }
    return texts;
  };
  Show(FormatMode::IMelody, info);
  EXPECT_EQ(visible(),
            "Version=1.2,Format=Class 1.0,Name=Tune;Composer=Anon;B P M=120;Style=S2: Staccato "
            "Style;Volume=V7;");
  Show(FormatMode::Rtttl, info);
  panel_.ShowDefaults("6", "8");
  EXPECT_EQ(visible(),
            "Name=Tune;B P M=120;Repeat=3;Duration (Default)=6;Octave (Default)=8;Style=S2: Staccato Style;");
  Show(FormatMode::EMelody, info);
  EXPECT_EQ(visible(), "");
}

TEST_F(SongInfoPanelTest, NumbersAreTakenOverOnlyWhenTheyAreInRange) {
  struct Case {
    FormatMode mode;
    int row;
    std::string text;
    int32_t bpm;
    int16_t loop;
    bool invalid;
  };
  const Case cases[] = {{FormatMode::IMelody, 4, "25", 25, 1, false},
                        {FormatMode::IMelody, 4, "901", 100, 1, true},
                        {FormatMode::IMelody, 4, "", 100, 1, true},
                        {FormatMode::IMelody, 4, "1e2", 100, 1, true},
                        {FormatMode::IMelody, 4, "99999999999", 100, 1, true},
                        {FormatMode::Rtttl, 2, "15", 100, 15, false},
                        {FormatMode::Rtttl, 2, "16", 100, 1, true},
                        {FormatMode::Rtttl, 2, "", 100, 1, true},
                        {FormatMode::Rtttl, 2, "-1", 100, 1, true},
                        {FormatMode::Rtttl, 3, "anything", 100, 1, false}};
  for (const Case& c : cases) {
    Show(c.mode, {.bpm = 100, .loop = 1});
    record_.info = {.bpm = 100, .loop = 1};
    panel_.Edit(c.row, c.text);
    EXPECT_EQ(Row(c.row).text, c.text);
    EXPECT_EQ(Row(c.row).invalid, c.invalid) << c.text;
    EXPECT_EQ(document_.Info(), (SongInfo{.bpm = c.bpm, .loop = c.loop})) << c.text;
    EXPECT_EQ(record_.info, document_.Info()) << c.text;
  }
  Show(FormatMode::IMelody, {.bpm = 9999});
  EXPECT_TRUE(Row(4).invalid) << "a tempo out of range is shown red, and stays";
  EXPECT_EQ(document_.Info().bpm, 9999);
}

TEST_F(SongInfoPanelTest, TextsAndListsGoFromTheirRowsIntoTheSongAndTheRecord) {
  record_.info.bpm = 150;  // what a refused read left
  panel_.Edit(2, "Fr\xE8re Jacques");
  panel_.Edit(3, "Anon");
  panel_.Edit(SongInfoPanel::kStyleRow, "S2: Staccato Style");
  panel_.Edit(SongInfoPanel::kVolumeRow, "V3");
  SongInfo expected{.name = "Fr\xE8re Jacques", .composer = "Anon", .style = "S2", .volume = "V3"};
  EXPECT_EQ(document_.Info(), expected);
  expected.bpm = 150;
  EXPECT_EQ(record_.info, expected);
  Show(FormatMode::Rtttl, expected);
  panel_.Edit(3, "6");
  panel_.Edit(0, "Ode");
  EXPECT_EQ(document_.Info().name, "Ode");
  EXPECT_EQ(document_.Info().composer, "Anon");
}

}  // namespace
}  // namespace trillomat
