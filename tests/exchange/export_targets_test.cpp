#include "exchange/export_targets.h"

#include <gmock/gmock.h>

#include "exchange/sample_notes.h"
#include "support/fakes.h"

namespace trillomat {
namespace {

using ::testing::IsEmpty;

TEST(ExportTargets, TableIsInTheOrderOfItsNumbers) {
  for (const ExportTarget& target : kExportTargets) {
    EXPECT_EQ(&TargetOf(target.phone), &target);
    EXPECT_EQ(PhoneOfOption(target.option), target.phone);
  }
  EXPECT_EQ(PhoneOfOption("t28"), std::nullopt);
}

TEST(ExportTargets, ButtonsAsTheWindowShowsThem) {
  const std::vector<std::pair<std::string, std::string>> expected{
      {"T68i KeyPress", "t68i"}, {"T39 KeyPress", "t39"}, {"Nokia Composer", "nokia"},
      {"RTTTL", "rtttl"},        {"Nokia Composer", ""},  {"MIDI", "save"},
      {"WAVE", "save"},          {"R320 / T28", "r320"}};
  ASSERT_EQ(kExportButtons.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    const ExportButton& button = kExportButtons.at(i);
    EXPECT_EQ(button.caption, expected[i].first);
    const std::string action(button.phone ? TargetOf(*button.phone).option
                                          : std::string_view(button.enablesSaveToFile ? "save" : ""));
    EXPECT_EQ(action, expected[i].second);
    EXPECT_FALSE(button.phone && button.enablesSaveToFile);
  }
}

TEST(ExportTargets, RtttlText) {
  struct Case {
    MelodyList notes;
    int16_t loop;
    std::string text;
  };
  const std::vector<Case> cases{
      {{Tone("c", 4), Tone("&b", 4, 0.5F), Pause(), CommandNote("ledon"), Tone("b", 4, 1.0F, 1.5F)},
       0,
       "Fourteen c:d=4,o=6,b=120:C,8A#,P,H."},
      {{CommandNote("("), CommandNote("V3")}, 3, "Fourteen c:d=1,o=5,b=120,l=3"},
      // Moved up without a line about it; the tie for the octave gives 5.
      {Tones({2, 3}), 0, "Fourteen c:d=4,o=5,b=120:C,C6"},
      {Tones({4, 5}), -2, "Fourteen c:d=4,o=5,b=120,l=2:C6,C7"},
      {{Tone("c", 3, 1.0F, 1.75F), Tone("x", 3)}, 0, "Fourteen c:d=4,o=5,b=120"},
  };
  for (const Case& c : cases) {
    FakeWorkspace fake;
    fake.ws.header.Name = "Fourteen chars";
    fake.ws.header.BPM = -120;
    fake.ws.header.Loop = c.loop;
    fake.ws.ExportMelody = c.notes;
    EXPECT_EQ(ExportText(Phone::Rtttl, fake.ws), c.text);
    EXPECT_EQ(fake.ws.refusal, "");
  }
}

TEST(ExportTargets, TellsAMisfitFromAnEmptyMelody) {
  struct Case {
    Phone phone;
    MelodyList notes;
    std::string refusal;
  };
  const std::vector<Case> cases{
      {Phone::Nokia, Tones({2, 7}),
       "the melody spans octaves 2 to 7, which is more than the 4 octaves of the Nokia Composer"},
      {Phone::T68i, Tones({3, 7}),
       "the melody spans octaves 3 to 7, which is more than the 4 octaves of the T68i"},
      {Phone::T39, Tones({2, 5}),
       "the melody spans octaves 2 to 5, which is more than the 3 octaves of the T39"},
      {Phone::R320, Tones({3, 5}),
       "the melody spans octaves 3 to 5, which is more than the 2 octaves of the R320 and T28"},
      {Phone::R320, Tones({-2}), "the melody's octaves -2 to -2 are too far from those of the R320 and T28"},
      {Phone::Rtttl, {}, "the melody has no elements"}};
  for (const Case& c : cases) {
    FakeWorkspace fake;
    fake.ws.ExportMelody = c.notes;
    EXPECT_EQ(ExportText(c.phone, fake.ws), std::nullopt);
    EXPECT_EQ(fake.ws.refusal, c.refusal);
    EXPECT_EQ(fake.ws.ExportMelody, c.notes);
    EXPECT_THAT(fake.log.lines, IsEmpty());
  }
}

TEST(ExportTargets, AlwaysWorksOnTheCopyAlone) {
  FakeWorkspace fake;
  fake.ws.melody.Assign(Tones({1, 2}));
  for (const ExportTarget& target : kExportTargets) {
    fake.ws.ExportMelody = fake.ws.melody.Elements();
    EXPECT_TRUE(ExportText(target.phone, fake.ws));
    EXPECT_NE(fake.ws.ExportMelody, fake.ws.melody.Elements());
    EXPECT_EQ(fake.ws.melody.Elements(), Tones({1, 2}));
  }
}

TEST(ExportTargets, StopsWhenTheProgramEndsOrTheMelodyGoes) {
  FakeWorkspace fake;
  fake.ws.ExportMelody = MelodyList(1000, Tone("c"));
  fake.pump.onPump = [&](int) { fake.ws.ExportMelody.resize(3); };
  EXPECT_EQ(ExportText(Phone::Nokia, fake.ws), "0--> Press: 1\r\n1--> Press: 1\r\n2--> Press: 1\r\n");
  fake.pump.ending = true;
  EXPECT_EQ(ExportText(Phone::Nokia, fake.ws), std::nullopt);
  EXPECT_EQ(fake.ws.refusal, "the program is ending");
}

}  // namespace
}  // namespace trillomat
