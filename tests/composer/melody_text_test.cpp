#include "composer/melody_text.h"

#include <gtest/gtest.h>

#include "support/sample_notes.h"

namespace trillomat {
namespace {

MelodyText TextOf(const ElementList& elements, int32_t cursor, FormatMode mode, bool useDefaults = false) {
  Document document({elements, {}}, mode);
  document.Apply({.cursor = cursor});
  SilentLog log;
  return TextOf(document, useDefaults, log);
}

size_t Count(const std::string& text) {
  size_t count = 0;
  for (size_t at = text.find("   "); at != std::string::npos; at = text.find("   ", at + 3)) ++count;
  return count;
}

TEST(MelodyTextTest, ShowsAWindowAroundTheCursor) {
  const ElementList fifty(50, Note("c"));
  using Case = std::tuple<FormatMode, int32_t, size_t, size_t>;
  const Case cases[] = {{FormatMode::IMelody, -1, 0, 10}, {FormatMode::IMelody, 15, 11, 10},
                        {FormatMode::IMelody, 5, 6, 10},  {FormatMode::IMelody, 45, 11, 4},
                        {FormatMode::IMelody, 49, 11, 0}, {FormatMode::EMelody, 25, 21, 20},
                        {FormatMode::Rtttl, 25, 18, 17},  {FormatMode::Melody, 25, 21, 20}};
  for (const auto& [mode, cursor, left, right] : cases) {
    const MelodyText text = TextOf(fifty, cursor, mode);
    EXPECT_EQ(Count(text.left), left) << static_cast<int>(mode) << " at " << cursor;
    EXPECT_EQ(Count(text.right), right) << static_cast<int>(mode) << " at " << cursor;
  }
}

TEST(MelodyTextTest, OrderRunsFromLeftToRightAndMarksWhatTheModeLacks) {
  const MelodyText text = TextOf(Tones({3, 9, 5}), 1, FormatMode::IMelody);
  EXPECT_EQ(text.left, "   *3c2   [*4c2]");
  EXPECT_EQ(text.right, "   *5c2");
  EXPECT_FALSE(text.defaults);
}

TEST(MelodyTextTest, RtttlDefaultsAreShownAndLeftOutOnDemand) {
  const ElementList elements{Note("c", 4, 0.5F), Note("c", 4, 0.5F), Note("c", 5)};
  MelodyText text = TextOf(elements, 1, FormatMode::Rtttl);
  ASSERT_TRUE(text.defaults);
  EXPECT_EQ(text.defaults->octave, "6");
  EXPECT_EQ(text.defaults->duration, "8");
  EXPECT_EQ(text.left, "   8C6   8C6");
  text = TextOf(elements, 1, FormatMode::Rtttl, true);
  EXPECT_EQ(text.left, "   C   C");
  EXPECT_EQ(text.right, "   4C7");
  EXPECT_FALSE(TextOf({}, -1, FormatMode::Rtttl).defaults) << "the boxes keep what they show";
}

}  // namespace
}  // namespace trillomat
