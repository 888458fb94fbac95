#include "exchange/range_adaptation.h"

#include <gmock/gmock.h>

#include "exchange/sample_notes.h"
#include "support/fakes.h"

namespace trillomat {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<int> OctavesOf(const MelodyList& notes) {
  std::vector<int> octaves;
  for (const MelodyNote& note : notes) octaves.push_back(note.Octave);
  return octaves;
}

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

TEST(RangeAdaptation, LeavesTheShiftOfAnEmptyMelodyAlone) {
  FakeWorkspace fake;
  fake.ws.ExportOctaveShift = 2;
  EXPECT_FALSE(AdaptExportRange(3, 6, fake.ws));
  EXPECT_EQ(fake.ws.ExportOctaveShift, 2);
}

TEST(RangeAdaptation, LogsEachOctaveThatNoPhoneHas) {
  FakeWorkspace fake;
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

}  // namespace
}  // namespace trillomat
