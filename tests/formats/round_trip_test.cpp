// What a writer wrote, its reader reads back to the same elements, as far as the format can hold them.
#include <random>

#include "core/ascii.h"
#include "core/tone.h"
#include "read_case.h"

namespace trillomat {
namespace {

// Random elements that survive the way into one format and back.
class Composer {
 public:
  Composer(FormatMode mode, uint32_t seed) : mode_(mode), limits_(LimitsOf(mode)), random_(seed) {}

  ElementList Compose() {
    ElementList list(static_cast<size_t>(Below(200) + 1));
    for (Element& element : list) element = AnyElement();
    return list;
  }

 private:
  int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }

  Element AnyElement() {
    const int kind = Below(10);
    if (kind == 0 && limits_.commands) return AnyCommand();
    return kind < 3 ? AnyPause() : AnyTone();
  }

  Element AnyCommand() {
    static constexpr std::array<const char*, 12> kTokens{
        "ledon", "ledoff", "vibeon", "vibeoff", "backon", "(", "backoff", "V+", "V-", "V7", "V15", "@0)"};
    return Command(kTokens.at(static_cast<size_t>(Below(12))));
  }

  Element AnyTone() {
    Element element = WithLength();
    const int octaves = limits_.highestOctave - limits_.lowestOctave + 1;
    element.octave = static_cast<int16_t>(limits_.lowestOctave + Below(octaves));
    std::string note(kTones.at(static_cast<size_t>(Below(kTones.size()))));
    // RTTTL knows no flats, and Melody keeps the case that tells the length.
    if (mode_ == FormatMode::Rtttl && note.starts_with('&')) note = "#a";
    if (mode_ == FormatMode::Melody && element.duration == 1.0F) note = Uppered(note);
    element.SetNote(note);
    return element;
  }

  // In E-Melody only the two long pauses survive, in Melody none but the eighth.
  Element AnyPause() {
    Element element = WithLength();
    const bool letters = mode_ == FormatMode::EMelody || mode_ == FormatMode::Melody;
    element.octave = letters ? int16_t{3} : kNoOctave;
    element.SetNote("r");
    if (mode_ == FormatMode::EMelody) element.duration = Below(2) == 0 ? 4.0F : 2.0F;
    if (mode_ == FormatMode::Melody) element.duration = 0.5F;
    return element;
  }

  Element WithLength() {
    Element element;
    const int duration = limits_.firstDuration + Below(limits_.lastDuration - limits_.firstDuration + 1);
    element.duration = kDurations.at(static_cast<size_t>(duration));
    element.extra = kDurationExtras.at(static_cast<size_t>(Below(limits_.lastExtra + 1)));
    return element;
  }

  FormatMode mode_;
  const ModeLimits& limits_;
  std::mt19937 random_;
};

TEST(RoundTrip, KeepsEveryElementThatTheModeCanHold) {
  for (const ModeLimits& limits : kModeLimits) {
    SCOPED_TRACE(limits.caption);
    FakeServices fake;
    Composer composer(limits.mode, 20020514);
    for (int round = 0; round < 200; ++round) {
      const ElementList song = composer.Compose();
      const std::string text = Written(limits.mode, song);
      ASSERT_EQ(Read(text, limits.mode, {}, fake.services).elements, song) << text;
    }
  }
}

TEST(RoundTrip, KeepsTheSongInformationThatAFormatHolds) {
  FakeServices fake;
  const SongInfo info{.name = "A:name",
                      .composer = "Me",
                      .bpm = 77,
                      .style = "S2",
                      .volume = "V3",
                      .version = "1.2",
                      .format = "CLASS1.0",
                      .loop = 0};
  const std::string text = Written(FormatMode::IMelody, {Note("c")}, info);
  EXPECT_EQ(Read(text, FormatMode::IMelody, {}, fake.services).record.info, info);
}

}  // namespace
}  // namespace trillomat
