// Tables of reads: a text, and what must have come of it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/number_text.h"
#include "formats/format_table.h"
#include "support/fakes.h"

namespace trillomat {

/// "OCTAVE NOTE DURATION EXTRA" of a tone or a pause, the token of a command.
inline std::string Described(const MelodyNote& note) {
  if (note == CommandNote(note.Special)) return note.Special;
  return std::to_string(note.Octave) + " " + note.Note + note.Special + " " + FloatText(note.Duration) + " " +
         FloatText(note.DurationExtra);
}

inline std::vector<std::string> Described(const MelodyList& list) {
  std::vector<std::string> lines;
  for (const MelodyNote& note : list) lines.push_back(Described(note));
  return lines;
}

struct ReadCase {
  const char* what;
  std::string text;
  bool ok;
  std::vector<std::string> elements;
  std::vector<std::string> log;
};

/// Reads `text` in a workspace of its own and compares.
inline void CheckRead(FormatMode mode, const ReadCase& expected) {
  SCOPED_TRACE(expected.what);
  FakeWorkspace fake;
  EXPECT_EQ(FormatOf(mode).ReadText(expected.text, fake.ws), expected.ok);
  EXPECT_EQ(Described(fake.ws.ImportMelody), expected.elements);
  EXPECT_EQ(fake.log.lines, expected.log);
  EXPECT_EQ(fake.ws.refusal.empty(), expected.ok);
}

}  // namespace trillomat
