#include "composer/change_scale.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fakes.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

MelodyList WithOctaves(std::initializer_list<int16_t> octaves) {
  MelodyList notes;
  for (const int16_t octave : octaves) {
    MelodyNote note;
    note.Octave = octave;
    note.Note = octave == kNoOctave ? "r" : "c";
    notes.push_back(note);
  }
  return notes;
}

std::vector<int16_t> OctavesOf(const MelodyList& notes) {
  std::vector<int16_t> octaves;
  for (const MelodyNote& note : notes) octaves.push_back(note.Octave);
  return octaves;
}

TEST(ChangeScaleTest, MovesAllOrNothing) {
  struct Case {
    FormatMode mode;
    int16_t octaves;
    MelodyList before;
    MelodyList after;
    std::string message;
  };
  const std::string range = "2: All notes must be within scale ";
  const Case cases[] = {
      {FormatMode::IMelody, 1, WithOctaves({4, 4}), WithOctaves({5, 5}), ""},
      {FormatMode::IMelody, 1, WithOctaves({7, 8}), WithOctaves({7, 8}),
       range + "0-8, currently note 2 is incorrect"},
      {FormatMode::IMelody, -5, WithOctaves({4}), WithOctaves({4}),
       range + "0-8, currently note 1 is incorrect"},
      // A pause takes over the octave before it, and counts as octave 0 at the start.
      {FormatMode::IMelody, -1, WithOctaves({4, -1, 5, -1}), WithOctaves({3, 3, 4, 4}), ""},
      {FormatMode::IMelody, 1, WithOctaves({-1, 4}), WithOctaves({0, 5}), ""},
      {FormatMode::EMelody, 1, WithOctaves({5}), WithOctaves({5}),
       range + "3-5, currently note 1 is incorrect"},
      {FormatMode::EMelody, -1, WithOctaves({-1, 4}), WithOctaves({-1, 4}),
       range + "3-5, currently note 1 is incorrect"},
      {FormatMode::Rtttl, 32767, WithOctaves({32767}), WithOctaves({32767}),
       range + "3-6, currently note 1 is incorrect"},
      {FormatMode::Melody, 1, WithOctaves({3, 3}), WithOctaves({4, 4}), ""},
  };
  for (const Case& c : cases) {
    FakeLog log;
    MelodyList notes = c.before;
    EXPECT_EQ(ChangeScale(notes, c.octaves, c.mode, log), c.message.empty());
    EXPECT_EQ(OctavesOf(notes), OctavesOf(c.after));
    if (c.message.empty()) {
      EXPECT_THAT(log.lines, ElementsAre("1: Change Scale started"));
    } else {
      EXPECT_THAT(log.lines, ElementsAre("1: Change Scale started", c.message));
    }
  }
}

TEST(ChangeScaleTest, NothingHappensToAnEmptyMelody) {
  FakeLog log;
  MelodyList none;
  ChangeScale(none, 1, FormatMode::IMelody, log);
  EXPECT_THAT(log.lines, IsEmpty());
}

}  // namespace
}  // namespace trillomat
