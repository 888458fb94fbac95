// What holds for all four formats.
#include "formats/formats.h"

#include "formats/reading.h"
#include "read_case.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Formats, LinesEndAtAnyOfThreeEnds) {
  EXPECT_THAT(SplitLines("a\rb\nc\r\nd"), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(SplitLines("x\r\n"), ElementsAre("x"));
  EXPECT_THAT(SplitLines("\n\r\n\r\r"), ElementsAre("", "", "", ""));
  EXPECT_THAT(SplitLines(""), ElementsAre());
  EXPECT_EQ(JoinLines(std::string_view("a\r\n\0b\n\xFF", 7)), std::string("a\0b\xFF", 4));
}

TEST(Formats, TheEndOfTheProgramEndsThemWithoutATrace) {
  const ElementList song{Note("c", 4, 0.5F), Note("b", 3, 0.5F)};
  for (const ModeLimits& limits : kModeLimits) {
    SCOPED_TRACE(limits.caption);
    FakeServices fake;
    fake.pump.ending = true;
    const ReadResult read = Read(Written(limits.mode, song), limits.mode, {}, fake.services);
    EXPECT_EQ(read.refusal, (Refusal{.why = "the program is ending"}));
    EXPECT_THAT(read.elements, IsEmpty());
    // The EMelody and RTTTL writers let no events run, so nothing stops them.
    const bool stops = limits.mode == FormatMode::IMelody || limits.mode == FormatMode::Melody;
    EXPECT_EQ(!Write({.elements = song, .info = {}}, limits.mode, fake.services), stops);
    EXPECT_THAT(fake.log.lines, testing::Not(testing::Contains(testing::HasSubstr("Error in b"))));
  }
}

TEST(Formats, AReadStartsFromTheRecordAndLeavesIt) {
  ReadRecord before;
  before.info.composer = "Ada";
  before.info.loop = 3;
  before.rtttl.bpm = 77;
  const auto recordOf = [&before](std::string_view text, FormatMode mode) {
    FakeServices fake;
    return Read(text, mode, before, fake.services).record;
  };
  const SongInfo unknown{"Unknown", "", 200, "", "", "", "", 3};
  // Refused or not, what was read stays; what was not read keeps its value.
  for (const std::string text : {"NAME:x\nOops", "NAME:x"}) {
    ReadRecord named = before;
    named.info.name = "x";
    EXPECT_EQ(recordOf(text, FormatMode::IMelody), named) << text;
  }
  for (const std::string text : {"cde", "MELODY:cEND:EMELODY"})
    EXPECT_EQ(recordOf(text, FormatMode::EMelody).info, unknown) << text;
  for (const std::string text : {"77", "c\nd"})
    EXPECT_EQ(recordOf(text, FormatMode::Melody).info, unknown) << text;
  EXPECT_EQ(recordOf("c", FormatMode::Melody), before) << "refused before it sets anything";
  EXPECT_EQ(recordOf("one:colon", FormatMode::Rtttl), before);
  const ReadRecord tooLarge = recordOf("x:o=6,l=40000:c", FormatMode::Rtttl);
  EXPECT_EQ(tooLarge.info, before.info);
  EXPECT_EQ(tooLarge.rtttl.defaults.octave, 4);
  EXPECT_EQ(recordOf("x:s=N:c,", FormatMode::Rtttl).info.bpm, 77);
}

TEST(Formats, ARefusalShowsWhatStandsThereOnItsLine) {
  FakeServices fake;
  const auto textOf = [&fake](const std::string& notes) {
    return Read(notes, FormatMode::Melody, {}, fake.services).refusal->text;
  };
  EXPECT_EQ(textOf("cd\n 7\t7\r\n7"), "7?7");
  EXPECT_EQ(textOf("c\n" + std::string(61, '7')), std::string(60, '7') + "...");
}

TEST(Formats, TellHowMuchWasNotUnderstoodAndWhereTheFirstStands) {
  const std::string imelody = "NAME:x\r\nMELODY:";
  const std::tuple<FormatMode, std::string, std::string> cases[] = {
      {FormatMode::IMelody, imelody + "c2x\r\n y2d3\r\nEND:IMELODY\r\n", "1 of 3, 2:10 x"},
      {FormatMode::IMelody, imelody + "x2\r\nEND:x\r\nMELODY:c2d2\r\nEND:x", "0 of 2, 0:0 "},
      {FormatMode::EMelody, "MELO\nDY:c^d ^eEND:EMELODY", "2 of 5, 2:5 ^"},
      {FormatMode::Melody, "c\n(b)d.e\tx.", "2 of 4, 2:1 (b)d."},
      {FormatMode::Rtttl, "t:d=4,o=5,b=63:c,\n 8 5_,so,,9d,e", "4 of 6, 2:2 8 5_"},
      {FormatMode::Rtttl, "t:d=4,o=5,b=63:c,,d,", "1 of 3, 1:18 "},
      {FormatMode::Rtttl, "t:d=4,l=3,b=63:c,d#6.,", "0 of 2, 0:0 "}};
  for (const auto& [mode, text, told] : cases) {
    FakeServices fake;
    const NotUnderstood lost = Read(text, mode, {}, fake.services).notUnderstood;
    EXPECT_EQ(std::to_string(lost.count) + " of " + std::to_string(lost.of) + ", " +
                  std::to_string(lost.first.line) + ":" + std::to_string(lost.first.column) + " " +
                  lost.first.text,
              told)
        << text;
  }
}

}  // namespace
}  // namespace trillomat
