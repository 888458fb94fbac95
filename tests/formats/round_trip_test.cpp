// What a writer wrote, its reader reads back to the same records, as far as the format can hold them.
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

  MelodyList Compose() {
    MelodyList list(static_cast<size_t>(Below(200) + 1));
    for (MelodyNote& note : list) note = Element();
    return list;
  }

 private:
  int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }

  MelodyNote Element() {
    const int kind = Below(10);
    if (kind == 0 && limits_.commands) return Command();
    return kind < 3 ? Pause() : Tone();
  }

  MelodyNote Command() {
    static constexpr std::array<const char*, 12> kTokens{
        "ledon", "ledoff", "vibeon", "vibeoff", "backon", "(", "backoff", "V+", "V-", "V7", "V15", "@0)"};
    return CommandNote(kTokens.at(static_cast<size_t>(Below(12))));
  }

  MelodyNote Tone() {
    MelodyNote note = WithLength();
    note.Octave =
        static_cast<int16_t>(limits_.iOctaveMin + Below(limits_.iOctaveMax - limits_.iOctaveMin + 1));
    note.Note = kTones.at(static_cast<size_t>(Below(kTones.size())));
    // RTTTL knows no flats, and Melody keeps the case that tells the length.
    if (mode_ == FormatMode::Rtttl && note.Note.starts_with('&')) note.Note = "#a";
    if (mode_ == FormatMode::Melody && note.Duration == 1.0F) note.Note = Uppered(note.Note);
    return note;
  }

  // In E-Melody only the two long pauses survive, in Melody none but the eighth.
  MelodyNote Pause() {
    MelodyNote note = WithLength();
    const bool letters = mode_ == FormatMode::EMelody || mode_ == FormatMode::Melody;
    note.Octave = letters ? int16_t{3} : kNoOctave;
    note.Note = "r";
    if (mode_ == FormatMode::EMelody) note.Duration = Below(2) == 0 ? 4.0F : 2.0F;
    if (mode_ == FormatMode::Melody) note.Duration = 0.5F;
    return note;
  }

  MelodyNote WithLength() {
    MelodyNote note;
    const int duration = limits_.firstDuration + Below(limits_.lastDuration - limits_.firstDuration + 1);
    note.Duration = kDurations.at(static_cast<size_t>(duration));
    note.DurationExtra = kDurationExtras.at(static_cast<size_t>(Below(limits_.lastExtra + 1)));
    return note;
  }

  FormatMode mode_;
  const ModeLimits& limits_;
  std::mt19937 random_;
};

TEST(RoundTrip, KeepsEveryElementThatTheModeCanHold) {
  for (const ModeLimits& limits : kModeLimits) {
    SCOPED_TRACE(limits.caption);
    FakeWorkspace fake;
    Composer composer(limits.mode, 20020514);
    for (int round = 0; round < 200; ++round) {
      const MelodyList song = composer.Compose();
      fake.ws.ExportMelody = song;
      const std::string text = FormatOf(limits.mode).WriteText(fake.ws);
      ASSERT_TRUE(FormatOf(limits.mode).ReadText(text, fake.ws)) << fake.ws.refusal << "\n" << text;
      ASSERT_EQ(fake.ws.ImportMelody, song) << text;
    }
  }
}

TEST(RoundTrip, KeepsTheSongInformationThatAFormatHolds) {
  FakeWorkspace fake;
  fake.ws.ExportMelody = {{4, "c", "", 1.0F, 0.5F}};
  const SongHeader song{"A:name", "Me", 77, "S2", "V3", "1.2", "CLASS1.0", 0};
  fake.ws.header = song;
  const std::string text = FormatOf(FormatMode::IMelody).WriteText(fake.ws);
  fake.ws.header = {};
  ASSERT_TRUE(FormatOf(FormatMode::IMelody).ReadText(text, fake.ws));
  EXPECT_EQ(fake.ws.header, song);
}

}  // namespace
}  // namespace trillomat
