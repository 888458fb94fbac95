#include "composer/element_words.h"

#include <gtest/gtest.h>

#include "support/sample_notes.h"

namespace trillomat {
namespace {

TEST(ElementWordsTest, NamesWhatTheElementIs) {
  const std::pair<Element, std::string> cases[] = {
      {Note("#c", 4, 0.5F, 1.5F), "c sharp, octave 4, dotted eighth, 450 ms"},
      {Note("&d", 8, 4.0F), "d flat, octave 8, whole, 2400 ms"},
      {Note("B", 0, 0.125F, 1.75F), "b, octave 0, double dotted thirty-second, 131 ms"},
      {Note("f", 3, 0.25F, kDurationExtras[3]), "f, octave 3, triplet sixteenth, 100 ms"},
      {Note("h", 4), "unknown tone \"h\", quarter, 0 ms"},
      {Note("a", 4, 0.3F), "a, octave 4, 0.3 beats, 180 ms"},
      {Rest(2.0F), "pause, half, 1200 ms"},
      {Command("ledon"), "light on"},
      {Command("backoff"), "backlight off"},
      {Command("V+"), "volume up"},
      {Command("V15"), "volume 15"},
      {Command("("), "repeat start"},
      {Command("@0)"), "repeat without end"},
      {Command("@3)"), "repeat 3 times"},
      {Command("@x)"), "command \"@x)\""},
      {Command("Error"), "command \"Error\""}};
  for (const auto& [element, words] : cases) EXPECT_EQ(ElementWords(element, 100), words);
  EXPECT_EQ(ElementWords(Note("a"), 0), "a, octave 4, quarter, 600 ms") << "as the tempo 0 is played";
}

}  // namespace
}  // namespace trillomat
