#include "core/song.h"

#include <gtest/gtest.h>

#include "core/format_mode.h"
#include "core/tone.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

ElementList Notes(std::initializer_list<std::pair<int, float>> tones) {
  ElementList list;
  for (const auto& [octave, duration] : tones) list.push_back(Note("c", octave, duration));
  return list;
}

TEST(DefaultsCountTest, TheCommonestWinsAndTiesAreSettled) {
  using Case = std::tuple<std::string, ElementList, TokenDefaults, int16_t>;
  const Case cases[] = {
      {"nothing", {}, {3, 4.0F}, 3},
      {"commands only", {Command("ledon"), Command("(")}, {3, 4.0F}, 3},
      {"a pause counts by its length", Notes({{-1, 0.5F}, {6, 0.5F}, {6, 1.0F}}), {6, 0.5F}, 6},
      {"tie of the upper octaves", Notes({{5, 1.0F}, {6, 1.0F}}), {5, 1.0F}, 3},
      {"tie below the best", Notes({{4, 1.0F}, {5, 1.0F}, {6, 1.0F}, {6, 1.0F}}), {6, 1.0F}, 6},
      {"tie of durations", Notes({{4, 0.125F}, {4, 0.25F}}), {4, 0.25F}, 4},
      {"octaves outside 3 to 6", Notes({{7, 1.0F}, {7, 1.0F}, {2, 1.0F}, {5, 1.0F}}), {5, 1.0F}, 5},
      {"unknown lengths", Notes({{4, 0.0F}, {4, 0.3F}, {4, 0.125F}}), {4, 0.125F}, 4},
  };
  for (const auto& [name, notes, view, headerOctave] : cases) {
    EXPECT_EQ(DefaultsCount(notes).Commonest(), view) << name;
    EXPECT_EQ(DefaultsCount(notes).CommonestForHeader(), (TokenDefaults{headerOctave, view.duration}))
        << name;
  }
}

// Texts of lengths around the one from which they stand on the heap, copied, moved and exchanged in every
// way.
TEST(ElementTest, TextsOfAnyLengthSurviveCopiesAndMoves) {
  for (const size_t length : {0U, 1U, 11U, 12U, 13U, 254U, 255U, 256U, 100000U}) {
    const std::string text(length, 'x');
    const Element original = Note(text);
    Element copy = original;
    Element other = Note("another text that stands elsewhere");
    other = copy;
    copy.SetNote("c");
    EXPECT_EQ(other.Note(), text);
    EXPECT_EQ(other, original);
    EXPECT_NE(copy, original);
    Element moved = std::move(other);
    copy = std::move(moved);
    EXPECT_EQ(copy, original);
    ElementList list(3, original);
    list.insert(list.begin(), Command("ledon"));
    list.erase(list.begin() + 1);
    EXPECT_EQ(list, (ElementList{Command("ledon"), original, original})) << length;
  }
}

TEST(ElementTest, ATextIsANoteOrACommand) {
  Element element = Command("@2)");
  EXPECT_EQ(element.Note(), "");
  EXPECT_EQ(element.Command(), "@2)");
  element.SetNote("r");
  EXPECT_EQ(element.Note(), "r");
  EXPECT_EQ(element.Command(), "");
  // Without a text there is nothing to tell them apart.
  EXPECT_EQ(Command(""), Tone("", kNoOctave, 0, 0));
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
