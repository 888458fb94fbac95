// The exports up to the text that each makes: the range of the phone, RTTTL, and refusals.
#include <gmock/gmock.h>

#include "exchange/export_targets.h"
#include "exchange/range_adaptation.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Case {
  MelodyList notes;
  OctaveRange range;
  bool fits;
  std::vector<int> octaves;
  int shift;
};

TEST(RangeAdaptation, MovesByTheSmallestNumberOfOctaves) {
  const std::vector<Case> cases{
      {Tones({2, 4, -1, 3}), {3, 6}, true, {3, 5, -1, 4}, 1},
      {Tones({5, 7, -1}), {3, 6}, true, {4, 6, -1}, 0},
      {Tones({1, 2}), {4, 7}, true, {4, 5}, 3},
      {Tones({3, 6}), {3, 6}, true, {3, 6}, 0},
      {Tones({2, 7}), {3, 6}, false, {2, 7}, 0},
      {Tones({3, 5}), {3, 4}, false, {3, 5}, 0},
      {Tones({-1, -1}), {3, 6}, true, {-1, -1}, 0},
      // The scan starts at 10 and 0, which widens the span of melodies wholly outside.
      {Tones({-2, -2}), {3, 6}, true, {3, 3}, 5},
      {Tones({-5}), {3, 6}, false, {-5}, 0},
      {Tones({12, 13}), {3, 6}, true, {5, 6}, 0},
      {Tones({12, 15}), {3, 6}, false, {12, 15}, 0},
      {Tones({32767, -32768}), {3, 6}, false, {32767, -32768}, 0},
  };
  for (const Case& c : cases) {
    FakeWorkspace fake;
    fake.ws.ExportMelody = c.notes;
    fake.ws.ExportOctaveShift = 9;
    EXPECT_EQ(AdaptExportRange(c.range.low, c.range.high, fake.ws), c.fits);
    EXPECT_EQ(OctavesOf(fake.ws.ExportMelody), c.octaves);
    EXPECT_EQ(fake.ws.ExportOctaveShift, c.shift);
    EXPECT_THAT(fake.log.lines, IsEmpty());
  }
}

TEST(RangeAdaptation, AnEmptyMelodyAndOctavesThatNoPhoneHas) {
  FakeWorkspace fake;
  fake.ws.ExportOctaveShift = 2;
  EXPECT_FALSE(AdaptExportRange(3, 6, fake.ws));
  EXPECT_EQ(fake.ws.ExportOctaveShift, 2) << "nothing was moved";
  fake.ws.ExportMelody = Tones({7, -1, 8});
  EXPECT_TRUE(AdaptExportRange(8, 9, fake.ws));
  EXPECT_THAT(OctavesOf(fake.ws.ExportMelody), ElementsAre(8, -1, 9));
  EXPECT_THAT(fake.log.lines, ElementsAre("1: Crical Error when adapting TTL tones"));
}

TEST(RangeAdaptation, OctavesStayWithinTheirField) {
  FakeWorkspace fake;
  fake.ws.ExportMelody = Tones({-32768, -32768});
  EXPECT_TRUE(AdaptExportRange(-1, 32767, fake.ws));
  EXPECT_EQ(fake.ws.ExportOctaveShift, 32767);
  EXPECT_THAT(OctavesOf(fake.ws.ExportMelody), ElementsAre(-1, -1));
  fake.ws.ExportMelody = Tones({9, 9});
  EXPECT_TRUE(AdaptExportRange(-32768, -32767, fake.ws));
  EXPECT_THAT(OctavesOf(fake.ws.ExportMelody), ElementsAre(-32767, -32767));
}

TEST(RangeAdaptation, ImportKeepsItsShiftUnlessItMovesUp) {
  FakeWorkspace fake;
  int16_t shift = 5;
  bool ok = false;
  const auto adapt = [&](const MelodyList& notes) {
    fake.ws.ImportMelody = notes;
    AdaptImportRange(4, 7, fake.ws, shift, ok);
    return OctavesOf(fake.ws.ImportMelody);
  };
  EXPECT_THAT(adapt({}), IsEmpty());
  EXPECT_TRUE(ok);
  EXPECT_THAT(adapt(Tones({8, 6})), ElementsAre(7, 5));
  EXPECT_EQ(shift, 5);
  EXPECT_THAT(adapt(Tones({1, 2})), ElementsAre(4, 5));
  EXPECT_EQ(shift, 3);
  EXPECT_THAT(adapt(Tones({3, 8})), ElementsAre(3, 8));
  EXPECT_FALSE(ok);
  EXPECT_EQ(shift, 3);
}

TEST(ExportTargets, TableIsInTheOrderOfItsNumbers) {
  for (const ExportTarget& target : kExportTargets) {
    EXPECT_EQ(&TargetOf(target.phone), &target);
    EXPECT_EQ(PhoneOfOption(target.option), target.phone);
  }
  EXPECT_EQ(PhoneOfOption("t28"), std::nullopt);
}

TEST(ExportTargets, RtttlText) {
  using Case = std::tuple<MelodyList, int16_t, std::string>;
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
  for (const auto& [notes, loop, text] : cases) {
    FakeWorkspace fake;
    fake.ws.header.Name = "Fourteen chars";
    fake.ws.header.BPM = -120;
    fake.ws.header.Loop = loop;
    fake.ws.ExportMelody = notes;
    EXPECT_EQ(ExportText(Phone::Rtttl, fake.ws), text);
    EXPECT_EQ(fake.ws.refusal, "");
  }
}

TEST(ExportTargets, TellsAMisfitFromAnEmptyMelody) {
  using Case = std::tuple<Phone, MelodyList, std::string>;
  const auto spans = [](const std::string& octaves, const std::string& most, const std::string& phone) {
    return "the melody spans octaves " + octaves + ", which is more than the " + most + " octaves of the " +
           phone;
  };
  const std::vector<Case> cases{
      {Phone::Nokia, Tones({2, 7}), spans("2 to 7", "4", "Nokia Composer")},
      {Phone::T68i, Tones({3, 7}), spans("3 to 7", "4", "T68i")},
      {Phone::T39, Tones({2, 5}), spans("2 to 5", "3", "T39")},
      {Phone::R320, Tones({3, 5}), spans("3 to 5", "2", "R320 and T28")},
      {Phone::R320, Tones({-2}), "the melody's octaves -2 to -2 are too far from those of the R320 and T28"},
      {Phone::Rtttl, {}, "the melody has no elements"}};
  for (const auto& [phone, notes, refusal] : cases) {
    FakeWorkspace fake;
    fake.ws.ExportMelody = notes;
    EXPECT_EQ(ExportText(phone, fake.ws), std::nullopt);
    EXPECT_EQ(fake.ws.refusal, refusal);
    EXPECT_EQ(fake.ws.ExportMelody, notes);
    EXPECT_THAT(fake.log.lines, IsEmpty());
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
