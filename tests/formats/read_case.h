// Tables of reads: a text, and what must have come of it.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "formats/format_table.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {

struct ReadCase {
  const char* what;
  std::string text;
  std::string elements;  ///< as Described tells them, or "refused"
  std::vector<std::string> log = {};
};

/// Reads `text` in a workspace of its own and compares.
inline void CheckRead(FormatMode mode, const ReadCase& expected) {
  SCOPED_TRACE(expected.what);
  FakeWorkspace fake;
  const bool ok = expected.elements != "refused";
  EXPECT_EQ(FormatOf(mode).ReadText(expected.text, fake.ws), ok);
  EXPECT_EQ(Described(fake.ws.ImportMelody), ok ? expected.elements : "");
  EXPECT_EQ(fake.log.lines, expected.log);
  EXPECT_EQ(fake.ws.refusal.empty(), ok);
}

}  // namespace trillomat
