// The exports up to the text that each makes: the range of the phone, RTTTL, and refusals.
#include <gmock/gmock.h>

#include "exchange/export.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using ::testing::IsEmpty;

struct MoveCase {
  ElementList elements;
  OctaveRange range;
  std::optional<int> movedUp;  ///< nothing when they do not fit
  std::vector<int> octaves;
  std::vector<std::string> log = {};
};

std::vector<int> OctavesOf(const ElementList& elements) {
  std::vector<int> octaves;
  for (const Element& element : elements) octaves.push_back(element.octave);
  return octaves;
}

TEST(RangeAdaptation, MovesByTheSmallestNumberOfOctaves) {
  const std::vector<MoveCase> cases{
      {Tones({2, 4, -1, 3}), {3, 6}, 1, {3, 5, -1, 4}},
      {Tones({5, 7, -1}), {3, 6}, 0, {4, 6, -1}},
      {Tones({1, 2}), {4, 7}, 3, {4, 5}},
      {Tones({3, 6}), {3, 6}, 0, {3, 6}},
      {Tones({2, 7}), {3, 6}, {}, {2, 7}},
      {Tones({3, 5}), {3, 4}, {}, {3, 5}},
      {{}, {3, 6}, 0, {}},
      {Tones({-1, -1}), {3, 6}, 0, {-1, -1}},
      // The scan starts from 10 and 0, so it finds a larger span in melodies that lie far outside.
      {Tones({-2, -2}), {3, 6}, 5, {3, 3}},
      {Tones({-5}), {3, 6}, {}, {-5}},
      {Tones({12, 13}), {3, 6}, 0, {5, 6}},
      {Tones({12, 15}), {3, 6}, {}, {12, 15}},
      // Octaves at the limits of their 16 bits.
      {Tones({32767, -32768}), {3, 6}, {}, {32767, -32768}},
      {Tones({-32768}), {-1, 32767}, 32767, {-1}, {"1: Crical Error when adapting TTL tones"}},
      {Tones({7, -1, 8}), {8, 9}, 1, {8, -1, 9}, {"1: Crical Error when adapting TTL tones"}},
  };
  for (const MoveCase& each : cases) {
    FakeLog log;
    ElementList elements = each.elements;
    EXPECT_EQ(AdaptRange(elements, each.range, log), each.movedUp.has_value());
    EXPECT_EQ(OctavesOf(elements), each.octaves);
    EXPECT_EQ(log.lines, each.log);
    const std::optional<int> octaves = MoveInto(each.elements, each.range, log);
    EXPECT_EQ(octaves.has_value(), each.movedUp.has_value());
    EXPECT_EQ(std::max(0, octaves.value_or(0)), each.movedUp.value_or(0));
  }
}

TEST(Export, TableIsInTheOrderOfItsNumbers) {
  for (const ExportTarget& target : kExportTargets) {
    EXPECT_EQ(&TargetOf(target.phone), &target);
    EXPECT_EQ(PhoneOfOption(target.option), target.phone);
  }
  EXPECT_EQ(PhoneOfOption("t28"), std::nullopt);
}

TEST(Export, RtttlTextMovesWithoutALineAboutIt) {
  FakeServices fake;
  Song song{.elements = Tones({2, 3}), .info = {}};
  song.info.name = "Fourteen chars";
  song.info.bpm = -120;
  EXPECT_EQ(*Export(Phone::Rtttl, song, fake.services), "Fourteen c:d=4,o=5,b=120:C,C6");
  song.elements = {Note("c", 3, 1.0F, 1.75F), Note("x", 3)};
  EXPECT_EQ(*Export(Phone::Rtttl, song, fake.services), "Fourteen c:d=4,o=5,b=120") << "no notes";
}

TEST(Export, TellsAMisfitFromAnEmptyMelody) {
  using Case = std::tuple<Phone, ElementList, std::string>;
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
  for (const auto& [phone, elements, why] : cases) {
    FakeServices fake;
    const Result<std::string> text = Export(phone, {.elements = elements, .info = {}}, fake.services);
    EXPECT_FALSE(text);
    EXPECT_EQ(text.Why(), Refusal{.why = why});
    EXPECT_THAT(fake.log.lines, IsEmpty());
  }
}

TEST(Export, StopsWhenTheProgramEnds) {
  FakeServices fake;
  fake.pump.ending = true;
  const Song song{.elements = Tones({4, 4}), .info = {}};
  EXPECT_EQ(Export(Phone::Nokia, song, fake.services).Why().why, "the program is ending");
  EXPECT_EQ(fake.pump.pumps, 1);
}

}  // namespace
}  // namespace trillomat
