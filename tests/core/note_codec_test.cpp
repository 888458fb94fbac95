#include "core/note_codec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/ascii.h"
#include "core/tone.h"
#include "support/fakes.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr FormatMode I = FormatMode::IMelody;
constexpr FormatMode E = FormatMode::EMelody;
constexpr FormatMode R = FormatMode::Rtttl;
constexpr FormatMode M = FormatMode::Melody;
const float kTriplet = kDurationExtras.at(3);

MelodyNote Tone(int16_t octave, std::string_view tone, float duration, float extra = 1.0F) {
  MelodyNote note;
  note.Octave = octave;
  note.Note = tone;
  note.Duration = duration;
  note.DurationExtra = extra;
  return note;
}

MelodyNote Command(std::string_view special, int16_t octave = kNoOctave) {
  MelodyNote note = CommandNote(special);
  note.Octave = octave;
  return note;
}

class NoteCodecTest : public testing::Test {
 protected:
  FakeLog log_;
  NoteCodec codec_{log_};
};

TEST_F(NoteCodecTest, Decodes) {
  codec_.defaults = {.octave = 4, .duration = 0.5F};
  struct Case {
    FormatMode mode;
    std::string token;
    MelodyNote note;
  };
  const Case cases[] = {
      {I, "*4c2", Tone(4, "c", 1.0F)},
      {I, "c2", Tone(4, "c", 1.0F)},
      {I, "#c3.", Tone(4, "#c", 0.5F, 1.5F)},
      {I, "*5#f3:", Tone(5, "#f", 0.5F, 1.75F)},
      {I, "&b0;", Tone(4, "&b", 4.0F, kTriplet)},
      {I, "#&b0", Tone(4, "&b", 4.0F)},
      {I, "c2.;", Tone(4, "c", 1.0F, kTriplet)},
      {I, "C2", Tone(4, "C", 1.0F)},
      {I, "r1", Tone(-1, "r", 2.0F)},
      {I, "#r1", Tone(-1, "r", 2.0F)},
      {I, "R1", Tone(4, "R", 2.0F)},
      {I, "*xc2", Tone(0, "c", 1.0F)},
      {I, "ledon", Command("ledon")},
      {I, "V+", Command("V+")},
      {I, "V12", Command("V12")},
      {I, "(", Command("(")},
      {I, "@3)", Command("@3)")},
      {I, "@3.)", Command("@3)")},
      {E, "+C.", Tone(4, "c", 4.0F)},
      {E, "++#d", Tone(5, "#d", 0.5F)},
      {E, "+++d", Tone(5, "+d", 0.5F)},
      {E, "(b)E", Tone(3, "&e", 2.0F)},
      {E, "#(b)e", Tone(3, "#(b)e", 0.5F)},
      {E, "g.", Tone(3, "g", 1.0F)},
      {E, "P", Tone(-1, "p", 2.0F)},
      {E, "R.", Tone(3, "r", 4.0F)},
      {E, "1", Tone(3, "1", 2.0F)},
      {R, "16c#6", Tone(4, "#c", 0.25F)},
      {R, "c", Tone(4, "c", 0.5F)},
      {R, "8c.", Tone(4, "c", 0.5F, 1.5F)},
      {R, "8c.6", Tone(4, "c", 0.5F, 1.5F)},
      {R, "r", Tone(-1, "r", 0.5F)},
      {R, "r5", Tone(3, "r", 0.5F)},
      {R, "2R", Tone(4, "R", 2.0F)},
      {R, "c1", Tone(-1, "c", 0.5F)},
      {R, "c15", Tone(3, "c1", 0.5F)},
      {R, "16", Tone(4, "", 0.25F)},
      {R, "", Tone(4, "", 0.5F)},
      {R, "c_5", Tone(3, "c_", 0.5F)},
      {R, "8s", Command("Error", 0)},
      {R, "o", Command("Error", 0)},
      {M, "C", Tone(3, "C", 1.0F)},
      {M, "+c", Tone(4, "c", 0.5F)},
      {M, "++#c", Tone(4, "#c", 0.5F)},
      {M, "(b)A", Tone(3, "&A", 1.0F)},
      {M, "p", Tone(-1, "p", 0.5F)},
      {M, "R", Tone(3, "R", 1.0F)},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(codec_.DecodeNote(c.token, c.mode), c.note) << static_cast<int>(c.mode) << " " << c.token;
  }
  EXPECT_THAT(log_.lines, IsEmpty());
}

TEST_F(NoteCodecTest, DecodingLogsWhatItCannotRead) {
  struct Case {
    FormatMode mode;
    std::string token;
    std::string line;
  };
  const Case cases[] = {{I, "x", "1: Could not decode the note....-->x"},
                        {I, "", "1: Could not decode the note....-->"},
                        {I, "c7", "2: Unknown duration-->7"},
                        {I, "*4c", "2: Unknown duration-->"},
                        {R, "04c", "2: Unknown duration-->04"},
                        {R, "8*c", "2: Unknown duration-->8*"}};
  for (const Case& c : cases) {
    log_.lines.clear();
    EXPECT_EQ(codec_.DecodeNote(c.token, c.mode).Duration, 0.0F) << c.token;
    EXPECT_THAT(log_.lines, ElementsAre(c.line));
  }
}

TEST_F(NoteCodecTest, Encodes) {
  codec_.defaults = {.octave = 4, .duration = 1.0F};
  struct Case {
    FormatMode mode;
    MelodyNote note;
    std::string token;
  };
  const Case cases[] = {
      {I, Tone(4, "c", 1.0F), "*4c2"},
      {I, Tone(5, "#f", 0.5F, 1.5F), "*5#f3."},
      {I, Tone(4, "&b", 2.0F, kTriplet), "*4&b1;"},
      {I, Tone(3, "&A", 1.0F), "*3&a2"},
      {I, Tone(9, "c", 1.0F), "[*4c2]"},
      {I, Tone(-1, "c", 1.0F), "[*4c2]"},
      {I, Tone(-1, "r", 1.0F, 1.75F), "r2:"},
      {I, Tone(3, "R", 0.5F), "r3"},
      {I, Tone(4, "c", 0.0F), "*4c"},
      {I, Command("@0)"), "@0)"},
      {E, Tone(4, "#c", 4.0F), "+#C."},
      {E, Tone(5, "&e", 0.5F), "++(b)e"},
      {E, Tone(3, "G", 1.0F), "g."},
      {E, Tone(3, "g", 2.0F), "G"},
      {E, Tone(6, "g", 2.0F), "[G]"},
      {E, Tone(3, "g", 0.25F), "[g]"},
      {E, Tone(3, "g", 0.0F), "[g]"},
      {E, Tone(3, "g", 0.5F, 1.5F), "[g]"},
      {E, Tone(3, "", 1.0F), "."},
      {E, Tone(-1, "r", 4.0F), "P."},
      {E, Tone(-1, "r", 2.0F), "P"},
      {E, Tone(-1, "r", 1.0F), ""},
      {E, Tone(-1, "r", 1.0F, 1.5F), "[]"},
      {E, Tone(-1, "r", 0.5F), "p."},
      {E, Tone(-1, "r", 0.125F), "[p.]"},
      {E, Command("V+"), ""},
      {R, Tone(3, "#c", 0.5F, 1.5F), "8C#5."},
      {R, Tone(4, "b", 1.0F), "H"},
      {R, Tone(6, "&b", 0.125F), "32A#8"},
      {R, Tone(4, "C", 4.0F), "1C"},
      {R, Tone(7, "c", 1.0F), "[C4]"},
      {R, Tone(3, "c", 0.5F, 1.75F), "[8C5:]"},
      {R, Tone(4, "c", 0.5F, kTriplet), "[8C;]"},
      {R, Tone(4, "x", 0.5F), "[8]"},
      {R, Tone(4, "c", 0.0F), "[32C]"},
      {R, Tone(-1, "r", 1.0F), "P"},
      {R, Tone(-1, "r", 0.25F), "16P"},
      {R, Tone(-1, "r", 0.5F, 1.5F), "8P."},
      {R, Command("vibeon"), ""},
      {M, Tone(4, "c", 1.0F), "+C"},
      {M, Tone(3, "&a", 0.5F), "(b)a"},
      {M, Tone(3, "#F", 0.5F), "#f"},
      {M, Tone(3, "c", 2.0F), "[C]"},
      {M, Tone(3, "c", 0.25F), "[c]"},
      {M, Tone(5, "c", 0.5F), "[c]"},
      {M, Tone(-1, "r", 1.0F), "p"},
      {M, Tone(-1, "R", 2.0F), "[p]"},
      {M, Tone(-1, "r", 0.5F, kTriplet), "[p]"},
      {M, Command("("), ""},
  };
  for (const Case& c : cases) {
    MelodyNote note = c.note;
    note.NotSupported = !c.token.starts_with('[');
    EXPECT_EQ(codec_.EncodeNote(note, c.mode), c.token) << static_cast<int>(c.mode) << " " << c.note.Note;
    EXPECT_EQ(note.NotSupported, c.token.starts_with('[')) << c.token;
  }
}

TEST_F(NoteCodecTest, WhatEqualsTheDefaultIsStillJudged) {
  codec_.defaults = {.octave = 7, .duration = 0.0F};
  MelodyNote note = Tone(7, "c", 0.0F);
  EXPECT_EQ(codec_.EncodeNote(note, R), "[C]");
  EXPECT_THAT(log_.lines, ElementsAre("1: Unknown duration-->0"));
}

TEST_F(NoteCodecTest, NoDefaultMakesEveryTokenComplete) {
  codec_.defaults = {.octave = -1, .duration = -1.0F};
  MelodyNote note = Tone(4, "a", 1.0F);
  EXPECT_EQ(codec_.EncodeNote(note, R), "4A6");
}

TEST_F(NoteCodecTest, EncodingLogsWhatHasNoName) {
  MelodyNote note = Tone(4, "#e", 3.0F);
  EXPECT_EQ(codec_.EncodeNote(note, R), "[32]");
  EXPECT_THAT(log_.lines, ElementsAre("1: Unknown duration-->3", "1: Couldnot find the note"));
}

TEST_F(NoteCodecTest, WhatAModeCanExpressReadsBack) {
  codec_.defaults = {.octave = -1, .duration = -1.0F};
  for (const FormatMode mode : {I, E, R, M}) {
    const ModeLimits& limits = LimitsOf(mode);
    for (const std::string_view tone : kTones) {
      if (mode == R && tone.starts_with('&')) continue;  // RTTTL spells flats as sharps
      for (int16_t octave = limits.iOctaveMin; octave <= limits.iOctaveMax; ++octave) {
        for (int d = limits.firstDuration; d <= limits.lastDuration; ++d) {
          for (int x = 0; x <= limits.lastExtra; ++x) {
            MelodyNote note = Tone(octave, tone, kDurations.at(static_cast<size_t>(d)),
                                   kDurationExtras.at(static_cast<size_t>(x)));
            std::string token = codec_.EncodeNote(note, mode);
            if (mode == R) token = ReplaceAll(Lowered(token), "h", "b");
            MelodyNote read = codec_.DecodeNote(token, mode);
            read.Note = Lowered(read.Note);
            EXPECT_EQ(read, note) << token;
          }
        }
      }
    }
  }
  EXPECT_THAT(log_.lines, IsEmpty());
}

}  // namespace
}  // namespace trillomat
