#include "core/melody.h"

#include <gtest/gtest.h>

#include <random>

#include "core/format_mode.h"
#include "core/tone.h"

namespace trillomat {
namespace {

MelodyNote Tone(int16_t octave, float duration) {
  MelodyNote note;
  note.Octave = octave;
  note.Note = "c";
  note.Duration = duration;
  note.DurationExtra = 1;
  return note;
}

MelodyList Tones(std::initializer_list<std::pair<int16_t, float>> tones) {
  MelodyList list;
  for (const auto& [octave, duration] : tones) list.push_back(Tone(octave, duration));
  return list;
}

TEST(MelodyDefaultsTest, TheCommonestWinsAndTiesAreSettled) {
  struct Case {
    std::string name;
    MelodyList notes;
    MelodyDefaults view;
    int16_t headerOctave;
  };
  const Case cases[] = {
      {"nothing", {}, {3, 4.0F}, 3},
      {"commands only", {CommandNote("ledon"), CommandNote("(")}, {3, 4.0F}, 3},
      {"a pause counts by its length", Tones({{-1, 0.5F}, {6, 0.5F}, {6, 1.0F}}), {6, 0.5F}, 6},
      {"tie of the upper octaves", Tones({{5, 1.0F}, {6, 1.0F}}), {5, 1.0F}, 3},
      {"tie below the best", Tones({{4, 1.0F}, {5, 1.0F}, {6, 1.0F}, {6, 1.0F}}), {6, 1.0F}, 6},
      {"tie of durations", Tones({{4, 0.125F}, {4, 0.25F}}), {4, 0.25F}, 4},
      {"octaves outside 3 to 6", Tones({{7, 1.0F}, {7, 1.0F}, {2, 1.0F}, {5, 1.0F}}), {5, 1.0F}, 5},
      {"unknown lengths", Tones({{4, 0.0F}, {4, 0.3F}, {4, 0.125F}}), {4, 0.125F}, 4},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ComputeMelodyDefaults(c.notes), c.view) << c.name;
    EXPECT_EQ(ComputeRtttlHeaderDefaults(c.notes), (MelodyDefaults{c.headerOctave, c.view.duration}))
        << c.name;
  }
}

TEST(MelodyTest, DefaultsStayRightThroughAnyEditing) {
  std::mt19937 random(20020514);
  const auto pick = [&random](int bound) {
    return static_cast<int32_t>(random() % static_cast<unsigned>(bound));
  };
  Melody melody;
  for (int step = 0; step < 3000; ++step) {
    const MelodyNote note =
        Tone(static_cast<int16_t>(pick(9) - 1), kDurations.at(static_cast<size_t>(pick(6))));
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
  EXPECT_EQ(ModeOfExtension("imy"), FormatMode::IMelody);
  EXPECT_EQ(ModeOfExtension("EMY"), FormatMode::EMelody);
  EXPECT_EQ(ModeOfExtension("Rtx"), FormatMode::Rtttl);
  EXPECT_EQ(ModeOfExtension("mel"), FormatMode::Melody);
  EXPECT_EQ(ModeOfExtension("rtttl"), std::nullopt);
  EXPECT_EQ(ModeOfExtension(""), std::nullopt);
  for (const ModeLimits& limits : kModeLimits) EXPECT_EQ(&LimitsOf(limits.mode), &limits);
}

}  // namespace
}  // namespace trillomat
