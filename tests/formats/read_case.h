// Tables of reads: a text, and what must have come of it.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "formats/formats.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {

/// The elements as Described tells them, or 'LINE:COLUMN WHY: "TEXT"' of a refusal.
inline std::string OutcomeOf(const ReadResult& read) {
  if (read) return Described(read.elements);
  const Refusal& refusal = *read.refusal;
  return std::to_string(refusal.line) + ":" + std::to_string(refusal.column) + " " + refusal.why + ": \"" +
         refusal.text + "\"";
}

struct ReadCase {
  const char* what;
  std::string text;
  std::string outcome;
  std::vector<std::string> log = {};
};

inline void CheckReads(FormatMode mode, const std::vector<ReadCase>& cases) {
  for (const ReadCase& each : cases) {
    SCOPED_TRACE(each.what);
    FakeServices fake;
    EXPECT_EQ(OutcomeOf(Read(each.text, mode, {}, fake.services)), each.outcome);
    EXPECT_EQ(fake.log.lines, each.log);
  }
}

/// The bytes of a file with these elements.
inline std::string Written(FormatMode mode, const ElementList& elements, const SongInfo& info = {}) {
  FakeServices fake;
  return *Write({.elements = elements, .info = info}, mode, fake.services);
}

}  // namespace trillomat
