// Tables of reads: a text, and what must have come of it.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "formats/formats.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {

struct ReadCase {
  const char* what;
  std::string text;
  std::string elements;  ///< as Described tells them, or "refused"
  std::vector<std::string> log = {};
};

inline void CheckRead(FormatMode mode, const ReadCase& expected) {
  SCOPED_TRACE(expected.what);
  FakeServices fake;
  const ReadResult read = Read(expected.text, mode, {}, fake.services);
  EXPECT_EQ(read ? Described(read.elements) : "refused", expected.elements);
  EXPECT_EQ(fake.log.lines, expected.log);
  EXPECT_EQ(read.elements.empty(), !read || expected.elements.empty());
}

/// The bytes of a file with these elements.
inline std::string Written(FormatMode mode, const ElementList& elements, const SongInfo& info = {}) {
  FakeServices fake;
  return *Write({.elements = elements, .info = info}, mode, fake.services);
}

}  // namespace trillomat
