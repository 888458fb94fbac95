// What a writer wrote, its reader reads back to the same elements, as far as the format can hold them.
#include <algorithm>
#include <random>

#include "core/ascii.h"
#include "core/tone.h"
#include "read_case.h"
#include "support/read_back.h"

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

std::string RandomBytes(size_t size, std::mt19937& random) {
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

// The table in read_back.h tells what is lost and what is changed.
TEST(RoundTrip, RandomSongsComeBackButForWhatTheFormatLoses) {
  constexpr int kSongs = 500;
  std::mt19937 random(2);
  for (int i = 0; i < kSongs; ++i) {
    const Song song = SongOfBytes(RandomBytes(10 + random() % 300, random));
    for (const ModeLimits& limits : kModeLimits) {
      const ElementList expected = ReadBack(song, limits.mode);
      const std::string text = Written(limits.mode, song.elements, song.info);
      if (limits.mode == FormatMode::Melody && text.size() < 4) continue;  // one character is no melody
      ASSERT_EQ(Described(Read(limits.mode, text)), Described(expected)) << limits.caption << ": " << text;
      // What came back once comes back for ever.
      const ElementList again = ReadBack({expected, song.info}, limits.mode);
      ASSERT_EQ(Read(limits.mode, Written(limits.mode, expected, song.info)), again) << limits.caption;
    }
  }
}

std::string Described(const SongInfo& info) {
  return info.name + "|" + info.composer + "|" + std::to_string(info.bpm) + "|" + info.style + "|" +
         info.volume + "|" + info.version + "|" + info.format + "|" + std::to_string(info.loop);
}

// E-Melody and Melody have no song information; RTTTL has the tempo, and ten characters of the name without
// blanks. For all else it keeps what the record has.
TEST(RoundTrip, SongInformationComesBackAsFarAsTheFormatHasIt) {
  const SongInfo info{.name = "Twelve marks", .composer = "me", .bpm = 123, .style = "S2", .volume = "V3"};
  const std::pair<FormatMode, std::string> cases[] = {
      {FormatMode::IMelody, "Twelve marks|me|123|S2|V3|1.2|CLASS1.0|0"},
      {FormatMode::EMelody, "Unknown||200|||||0"},
      {FormatMode::Rtttl, "Twelvemar||123||V10|||0"},
      {FormatMode::Melody, "Unknown||200|||||0"}};
  for (const auto& [mode, expected] : cases) {
    FakeServices fake;
    const ReadResult read = Read(Written(mode, ElementsOf("c2 d3"), info), mode, {}, fake.services);
    EXPECT_EQ(Described(read.record.info), expected) << LimitsOf(mode).caption;
  }
}

}  // namespace
}  // namespace trillomat
