// What a writer wrote, its reader reads back to the same elements, as far as the format can hold them.
#include <algorithm>
#include <random>

#include "core/ascii.h"
#include "core/tone.h"
#include "read_case.h"

namespace trillomat {
namespace {

ElementList Read(FormatMode mode, const std::string& text) {
  FakeServices fake;
  return Read(text, mode, {}, fake.services).elements;
}

// Every tone, in both cases, every pause and some commands.
ElementList AllElements() {
  ElementList all = ElementsOf("ledon ledoff vibeon vibeoff backon backoff V+ V- V7 V15 ( @0)");
  for (const float duration : kDurations) {
    for (const float extra : kDurationExtras) {
      for (const int octave : {-1, 3}) all.push_back(Note("r", octave, duration, extra));
      for (int octave = 0; octave <= 8; ++octave) {
        for (const std::string_view tone : kTones) {
          all.push_back(Note(tone, octave, duration, extra));
          all.push_back(Note(Uppered(tone), octave, duration, extra));
        }
      }
    }
  }
  return all;
}

TEST(RoundTrip, KeepsEveryElementThatAFormatCanHold) {
  struct Held {
    FormatMode mode;
    size_t elements;
  };
  constexpr size_t kTonesEach = kTones.size();
  constexpr size_t kSharps = 12;
  const std::vector<Held> cases{{FormatMode::IMelody, kTonesEach * 9 * 6 * 4 + 36},
                                {FormatMode::EMelody, kTonesEach * 3 * 4 + 2},
                                {FormatMode::Rtttl, kSharps * 4 * 6 * 2 + 12},
                                {FormatMode::Melody, kTonesEach * 2 * 2 + 1}};
  for (const auto& [mode, count] : cases) {
    SCOPED_TRACE(LimitsOf(mode).caption);
    ElementList held;
    for (const Element& element : AllElements()) {
      // Twice, because a Melody file of one character is refused.
      const ElementList twice{element, element};
      if (Read(mode, Written(mode, twice)) == twice) held.push_back(element);
    }
    EXPECT_EQ(held.size(), count);
    std::mt19937 random(1);
    std::shuffle(held.begin(), held.end(), random);
    EXPECT_EQ(Read(mode, Written(mode, held)), held);
  }
}

}  // namespace
}  // namespace trillomat
