#include "core/melody.h"

#include <gtest/gtest.h>

#include <random>

#include "core/format_mode.h"
#include "core/tone.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

MelodyList Notes(std::initializer_list<std::pair<int, float>> tones) {
  MelodyList list;
  for (const auto& [octave, duration] : tones) list.push_back(Tone("c", octave, duration));
  return list;
}

TEST(MelodyDefaultsTest, TheCommonestWinsAndTiesAreSettled) {
  using Case = std::tuple<std::string, MelodyList, MelodyDefaults, int16_t>;
  const Case cases[] = {
      {"nothing", {}, {3, 4.0F}, 3},
      {"commands only", {CommandNote("ledon"), CommandNote("(")}, {3, 4.0F}, 3},
      {"a pause counts by its length", Notes({{-1, 0.5F}, {6, 0.5F}, {6, 1.0F}}), {6, 0.5F}, 6},
      {"tie of the upper octaves", Notes({{5, 1.0F}, {6, 1.0F}}), {5, 1.0F}, 3},
      {"tie below the best", Notes({{4, 1.0F}, {5, 1.0F}, {6, 1.0F}, {6, 1.0F}}), {6, 1.0F}, 6},
      {"tie of durations", Notes({{4, 0.125F}, {4, 0.25F}}), {4, 0.25F}, 4},
      {"octaves outside 3 to 6", Notes({{7, 1.0F}, {7, 1.0F}, {2, 1.0F}, {5, 1.0F}}), {5, 1.0F}, 5},
      {"unknown lengths", Notes({{4, 0.0F}, {4, 0.3F}, {4, 0.125F}}), {4, 0.125F}, 4},
  };
  for (const auto& [name, notes, view, headerOctave] : cases) {
    EXPECT_EQ(ComputeMelodyDefaults(notes), view) << name;
    EXPECT_EQ(ComputeRtttlHeaderDefaults(notes), (MelodyDefaults{headerOctave, view.duration})) << name;
  }
}

TEST(MelodyTest, DefaultsStayRightThroughAnyEditing) {
  std::mt19937 random(20020514);
  const auto pick = [&random](int bound) {
    return static_cast<int32_t>(random() % static_cast<unsigned>(bound));
  };
  Melody melody;
  for (int step = 0; step < 3000; ++step) {
    const MelodyNote note = Tone("c", pick(9) - 1, kDurations.at(static_cast<size_t>(pick(6))));
    const int32_t count = melody.UpperBound() + 1;
    const int32_t action = pick(20);
    if (action < 8 || count == 0) {
      melody.Insert(pick(count + 1), note);
    } else if (action < 13) {
      melody.Replace(pick(count), note);
    } else if (action < 19) {
      melody.Remove(pick(count));
    } else {
      melody.Assign(MelodyList(static_cast<size_t>(pick(5)), note));
    }
    ASSERT_EQ(melody.ComputeMelodyDefaults(), ComputeMelodyDefaults(melody.Elements())) << "step " << step;
  }
}

TEST(ToneTest, SpellingsAreFoundWhateverTheirCase) {
  for (size_t i = 0; i < kTones.size(); ++i) EXPECT_EQ(ToneIndex(kTones.at(i)), static_cast<int>(i));
  EXPECT_EQ(ToneIndex("C"), 0);
  EXPECT_EQ(ToneIndex("&B"), 15);
  for (const std::string_view other : {"", "h", "#e", "&c", "cc", "c#", "r"})
    EXPECT_EQ(ToneIndex(other), -1) << other;
}

TEST(FormatModeTest, ExtensionsPickTheMode) {
  EXPECT_EQ(ModeOfExtension("EMY"), FormatMode::EMelody);
  EXPECT_EQ(ModeOfExtension("rtttl"), std::nullopt);
  EXPECT_EQ(ModeOfExtension(""), std::nullopt);
  for (const ModeLimits& limits : kModeLimits) {
    EXPECT_EQ(&LimitsOf(limits.mode), &limits);
    EXPECT_EQ(ModeOfExtension(limits.extension), limits.mode);
  }
}

}  // namespace
}  // namespace trillomat
