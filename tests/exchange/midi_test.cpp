// MIDI files, written and read: their bytes, what becomes of them in each mode, and what is said of it.
#include <gmock/gmock.h>

#include "exchange/midi_read.h"
#include "exchange/midi_write.h"
#include "support/fakes.h"
#include "support/midi_bytes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

MidiRead ReadBytes(const std::string& bytes, FormatMode mode = FormatMode::IMelody,
                   std::optional<size_t> track = {}) {
  FakeServices fake;
  return ReadMidiFile(bytes, mode, track, {}, fake.services);
}

TEST(MidiWrite, WritesTheBytesOfTheStandard) {
  Song song{.elements = ElementsOf("*3a2 ledon r3 *4#c2."), .info = {}};
  song.info.name = "Two";
  song.info.bpm = 120;
  const std::string track = Bytes({0, 0xFF, 3, 3}) + "Two" + Bytes({0, 0xFF, 0x51, 3, 0x07, 0xA1, 0x20}) +
                            Bytes({0, 0x90, 69, 64, 0x83, 0x60, 0x80, 69, 64}) +
                            Bytes({0x81, 0x70, 0x90, 73, 64, 0x85, 0x50, 0x80, 73, 64}) +
                            Bytes({0, 0xFF, 0x2F, 0});
  const WrittenMidi written = WriteMidi(song);
  EXPECT_EQ(written.bytes, MidiBytes(0, 480, {track}));
  EXPECT_THAT(written.changes, IsEmpty());
}

TEST(MidiWrite, TellsWhatMidiCannotHold) {
  Song song{.elements = {Note("c", -1), Note("g", 8), Note("#g", 8), Note("b", 20), Note("x", 3)},
            .info = {}};
  song.info.bpm = 2;
  const WrittenMidi written = WriteMidi(song);
  EXPECT_THAT(written.changes, ElementsAre("the tempo of 2 is written as 4",
                                           "2 tones are too high for MIDI and written lower"));
  const MidiRead read = ReadBytes(written.bytes);
  EXPECT_EQ(TokensOf(read.read.elements, " "), "*0c2 *8g2 *7#g2 *7b2");
}

struct RefusedFile {
  std::string bytes;
  std::string why;
};

TEST(MidiRead, RefusesInPlainWords) {
  const std::string note = Bytes({0, 0x90, 60, 64, 96, 60, 0});
  const std::string end = Bytes({0, 0xFF, 0x2F, 0});
  const auto track = [](const std::string& events) { return MidiBytes(0, 96, {events}); };
  const std::string whole = track(note + end);
  const std::vector<RefusedFile> cases{
      {"", "begin with \"MThd\""},
      {"RIFF", "begin with \"MThd\""},
      {whole.substr(0, 10), "broken off"},
      {whole.substr(0, 20), "broken off"},
      {whole.substr(0, whole.size() - 1), "broken off"},
      {MidiChunk("MThd", Bytes({0, 0})), "broken off in its first part"},
      {MidiBytes(2, 96, {note + end}), "type 2"},
      {MidiBytes(7, 96, {note + end}), "unknown type 7"},
      {MidiBytes(0, 0xE728, {note + end}), "film frames"},
      {MidiBytes(0, 0, {note + end}), "how long a beat is"},
      {MidiBytes(1, 96, {}), "no track"},
      {track(end), "no notes"},
      {track(Bytes({0, 60, 64})), "does not begin with an event"},
      {track(Bytes({0, 0x90, 60, 0x90})), "lacks a byte"},
      {track(Bytes({0, 0x90, 60})), "middle of an event"},
      {track(Bytes({0, 0xFF, 1, 9})), "middle of an event"},
      {track(Bytes({0, 0xF2, 1, 1})), "no event of a file"},
      {track(Bytes({0x81, 0x81, 0x81, 0x81, 0x01})), "too long"},
      {track(Bytes({0, 0x99, 36, 64, 96, 36, 0}) + end), "nothing but drums"},
      // More than 100,000 pauses, in four bytes.
      {MidiBytes(0, 1, {Bytes({0xFF, 0xFF, 0xFF, 0x7F, 0x90, 60, 64, 4, 60, 0}) + end}), "100,000 tones"},
  };
  for (const RefusedFile& each : cases) {
    const MidiRead midi = ReadBytes(each.bytes);
    ASSERT_TRUE(midi.read.refusal) << each.why;
    EXPECT_THAT(midi.read.refusal->why, HasSubstr(each.why));
    EXPECT_THAT(midi.read.elements, IsEmpty());
  }
  EXPECT_THAT(ReadBytes(whole, FormatMode::IMelody, 2).read.refusal->why, HasSubstr("no notes in track 2"));
}

TEST(MidiRead, TakesRunningStatusAndPassesOverWhatItDoesNotKnow) {
  const std::string events = Bytes({0, 0xFF, 0x7F, 2, 1, 2}) + Bytes({0, 0xC0, 5}) +
                             Bytes({0, 0xF0, 2, 9, 0xF7}) + Bytes({0, 0x90, 60, 64}) + Bytes({96, 60, 0}) +
                             Bytes({0, 62, 64}) + Bytes({0, 0xB0, 7, 100}) + Bytes({48, 0x80, 62, 0}) +
                             Bytes({0, 62, 0}) + Bytes({0, 0xFF, 0x2F, 0}) + "behind the end";
  std::string file = MidiBytes(0, 96, {events});
  file.insert(14, MidiChunk("XFIH", "unknown"));
  file.replace(7, 1, 1, 8);
  file.insert(14, "xx");  // a longer header
  EXPECT_EQ(TokensOf(ReadBytes(file + "trailing bytes").read.elements, " "), "*3c2 *3d3");
}

TEST(MidiRead, TellsTheTracksAndTakesTheOneAskedForOrTheFullest) {
  MidiTrackDraft conductor;
  conductor.At(0, MidiName("The  \n song\r "));
  conductor.At(0, MidiTempo(600'000));
  conductor.At(96, MidiTempo(500'000));
  MidiTrackDraft bass;
  bass.At(0, MidiName("Bass"));
  bass.Note(0, 96, 48);
  MidiTrackDraft lead;
  lead.Note(0, 96, 72);
  lead.Note(96, 192, 71);
  lead.At(5, Bytes({0xE0, 0, 64}));
  lead.Note(0, 96, 36, 9);
  MidiTrackDraft drums;
  for (int i = 0; i < 9; ++i) drums.Note(i * 96, i * 96 + 12, 36, 9);
  const std::string file =
      MidiBytes(1, 96, {conductor.Track(), bass.Track(), lead.Track(true), drums.Track(true)});

  const MidiRead midi = ReadBytes(file);
  const std::vector<MidiTrackTitle> titles{{2, "Bass", 1}, {3, "", 2}, {4, "", 9, true}};
  EXPECT_EQ(midi.tracks, titles);
  EXPECT_EQ(midi.track, 3);
  EXPECT_EQ(TokensOf(midi.read.elements, " "), "*4c2 *3b2");
  EXPECT_EQ(midi.read.record.info.name, "The    song");
  EXPECT_EQ(midi.read.record.info.bpm, 100);
  EXPECT_THAT(midi.dropped, ElementsAre("2 other tracks are left out", "1 note of drums is left out",
                                        "1 later tempo is left out", "1 bend of the pitch is left out"));
  EXPECT_EQ(TokensOf(ReadBytes(file, FormatMode::IMelody, 2).read.elements, " "), "*2c2");
  EXPECT_EQ(ReadBytes(file, FormatMode::IMelody, 4).read.elements.size(), 17U);
}

TEST(MidiRead, TakesTheChannelsOfASingleTrackForTracks) {
  MidiTrackDraft track;
  track.Note(0, 96, 60, 2);
  track.Note(0, 96, 72, 3);
  track.Note(96, 192, 74, 3);
  const MidiRead midi = ReadBytes(MidiBytes(0, 96, {track.Track()}));
  const std::vector<MidiTrackTitle> titles{{3, "", 1}, {4, "", 2}};
  EXPECT_EQ(midi.tracks, titles);
  EXPECT_EQ(TokensOf(midi.read.elements, " "), "*4c2 *4d2");
}

struct VoiceCase {
  std::vector<std::array<int, 3>> notes;  ///< start, end (96 to a beat), key
  std::string tokens;
};

TEST(MidiRead, TakesTheHighestVoiceOnTheLengthsOfTheMode) {
  const std::vector<VoiceCase> cases{
      {{{0, 96, 60}, {0, 96, 64}, {2, 96, 67}}, "*3g2"},                        // a chord
      {{{0, 192, 72}, {96, 192, 60}, {192, 288, 71}}, "*4c1 *3b2"},             // beneath a longer tone
      {{{0, 192, 60}, {96, 192, 72}}, "*3c2 *4c2"},                             // cut by a higher one
      {{{0, 104, 72}, {96, 200, 71}, {192, 288, 69}}, "*4c2 *3b2 *3a2"},        // tones that overlap
      {{{0, 96, 72}, {96, 97, 60}, {144, 192, 71}}, "*4c2 *3c5; r4 r4; *3b3"},  // no length at all
      {{{0, 87, 72}, {96, 183, 71}, {193, 237, 69}}, "*4c2 *3b2 *3a3"},         // played by hand
      {{{96, 192, 60}, {240, 288, 62}}, "r2 *3c2 r3 *3d3"},                     // pauses
      {{{0, 32, 60}, {32, 64, 62}, {64, 96, 64}}, "*3c3; *3d3; *3e3;"},         // a triplet
      {{{0, 480, 60}, {480, 576, 62}}, "*3c0 r2 *3d2"},                         // longer than a whole
      {{{0, 96, 12}, {96, 192, 36}}, "*0c2 *2c2"},                              // below all octaves
  };
  for (const VoiceCase& each : cases) {
    MidiTrackDraft track;
    for (const auto& [start, end, key] : each.notes) track.Note(start, end, key);
    const MidiRead midi = ReadBytes(MidiBytes(0, 96, {track.Track()}));
    EXPECT_EQ(TokensOf(midi.read.elements, " "), each.tokens);
  }
}

TEST(MidiRead, FitsTheModeAndSaysHow) {
  MidiTrackDraft track;
  track.At(0, MidiTempo(50'000));
  track.Note(0, 32, 24);
  track.Note(32, 64, 26);
  track.Note(64, 96, 28);
  track.Note(96, 336, 120);
  const std::string file = MidiBytes(0, 96, {track.Track()});
  const MidiRead rtttl = ReadBytes(file, FormatMode::Rtttl);
  EXPECT_EQ(TokensOf(rtttl.read.elements, " "), "*3c4. *3d4 *3e4. *6c1");
  EXPECT_THAT(rtttl.dropped, ElementsAre("1 tone ends early: RTTTL has no such length",
                                         "3 tones are drawn to the lengths of RTTTL",
                                         "4 tones are moved into the octaves of RTTTL",
                                         "the tempo of 1200 beats per minute becomes 900"));
  const MidiRead melody = ReadBytes(file, FormatMode::Melody);
  EXPECT_EQ(Described(melody.read.elements), "3 c 0.5 1, 3 e 0.5 1, 4 c 1 1");
  EXPECT_EQ(melody.read.record.info.bpm, 200);
}

}  // namespace
}  // namespace trillomat
