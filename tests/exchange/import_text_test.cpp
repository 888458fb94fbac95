#include "exchange/import_text.h"

#include <gmock/gmock.h>

#include "exchange/sample_notes.h"
#include "support/fakes.h"

namespace trillomat {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Converter = bool (*)(std::string_view, Workspace&);

TEST(ImportText, RtttlGivesNotesAndHeader) {
  FakeWorkspace fake;
  fake.ws.header.Volume = "V3";
  EXPECT_TRUE(Convert_RTTTL("te st:\td=4, o=5,b=100,\r\nl=3,s=C:c, P,8H.,-,16#c7,so,x", fake.ws));
  EXPECT_EQ(fake.ws.header, (SongHeader{.Name = "test",
                                        .Composer = "",
                                        .BPM = 100,
                                        .Style = "C",
                                        .Volume = "V3",
                                        .Version = "",
                                        .Format = "",
                                        .Loop = 3}));
  // No repeat marks, no gap where "so" is refused.
  EXPECT_THAT(fake.ws.ImportMelody, ElementsAre(Tone("c", 3), Pause(), Tone("b", 3, 0.5F, 1.5F), Pause(),
                                                Tone("#c", 5, 0.25F), Tone("x", 3)));
  EXPECT_THAT(fake.log.lines, ElementsAre("1: Last Note?\?-->x"));
}

TEST(ImportText, RtttlKeepsWhatALaterHeaderLeavesOut) {
  FakeWorkspace fake;
  EXPECT_TRUE(Convert_RTTTL("a:d=16,o=6,b=90:c,", fake.ws));
  EXPECT_THAT(fake.log.lines, ElementsAre("1: Critical Error in GetDefault RTTTL"));
  EXPECT_TRUE(Convert_RTTTL("b:o=7:c,", fake.ws));
  EXPECT_THAT(fake.ws.ImportMelody, ElementsAre(Tone("c", 5, 0.25F)));
  EXPECT_EQ(fake.ws.header.BPM, 90);
  EXPECT_EQ(fake.ws.header.Name, "b");
}

TEST(ImportText, LetterTextsDifferByModeAlone) {
  constexpr std::string_view kText = " +C.\r\n(b)d P p- h\tH +#f. ";
  FakeWorkspace fake;
  EXPECT_TRUE(bConvert_EMelody(kText, fake.ws));
  EXPECT_THAT(fake.ws.ImportMelody,
              ElementsAre(Tone("c", 4, 4.0F), Tone("&d", 3, 0.5F), Tone("r", 3, 2.0F), Tone("r", 3, 0.5F),
                          Tone("r", 3, 0.5F), Tone("b", 3, 0.5F), Tone("b", 3, 2.0F), Tone("#f", 4, 1.0F)));
  fake.ws.header.Loop = 2;
  EXPECT_TRUE(bConvert_Melody("+C(b)aPp(b)ZqD", fake.ws));
  EXPECT_THAT(fake.ws.ImportMelody,
              ElementsAre(Tone("C", 4), Tone("&a", 3, 0.5F), Tone("R", 3), Tone("r", 3, 0.5F), Tone("&Z", 3),
                          Tone("q", 3, 0.5F), Tone("D", 3)));
  EXPECT_EQ(fake.ws.header, (SongHeader{.Name = "Unknown",
                                        .Composer = "",
                                        .BPM = 200,
                                        .Style = "",
                                        .Volume = "",
                                        .Version = "",
                                        .Format = "",
                                        .Loop = 2}));
  EXPECT_THAT(fake.log.lines, IsEmpty());
}

TEST(ImportText, LetterTokensEndWhereTheRuleSays) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> cases{
      {"c)d", {"c)d"}},   {"zc", {"zc"}},   {"c.d", {"c.", "d"}},  {"c..d", {"c.", ".d"}},
      {"[_", {"[", "_"}}, {"12c", {"12c"}}, {"yz{y", {"y", "z{y"}}};
  for (const auto& [text, tokens] : cases) {
    FakeWorkspace fake;
    ASSERT_TRUE(bConvert_Melody(text, fake.ws)) << text;
    std::vector<std::string> found;
    for (const MelodyNote& note : fake.ws.ImportMelody) found.push_back(note.Note);
    EXPECT_EQ(found, tokens) << text;
  }
}

TEST(ImportText, EMelodyMarkersAreOptional) {
  FakeWorkspace fake;
  EXPECT_TRUE(bConvert_EMelody("BEGIN:EMELODY\r\nVERSION:1.0\r\nMEL ODY:c\r\nEND:EMELODY\r\nx", fake.ws));
  EXPECT_THAT(fake.ws.ImportMelody, ElementsAre(Tone("c", 3, 0.5F)));
  EXPECT_TRUE(bConvert_EMelody("cEND:EMELODYd", fake.ws));
  EXPECT_EQ(fake.ws.ImportMelody.size(), 12U);
}

TEST(ImportText, FailsWithALogLineAndPlainWords) {
  struct Case {
    Converter convert;
    std::string text;
    std::vector<std::string> log;
    std::string reason;
  };
  const std::string rtttl = "1: Error in Convert_RTTTL";
  const std::string header = "1: Critical Error in GetDefault RTTTL";
  const std::string cut = "1: Critical error when converting!!!!";
  const std::vector<Case> cases{
      {Convert_RTTTL, "", {rtttl}, "fewer than two \":\""},
      {Convert_RTTTL, "a:d=4,c,d", {rtttl}, "fewer than two \":\""},
      {Convert_RTTTL, "a:d=4:", {header, rtttl}, "no note"},
      {Convert_RTTTL, "a:d=4,:so,", {rtttl}, "no note"},
      {Convert_RTTTL, "a:b=99999999999,:c,", {rtttl}, "b=99999999999"},
      {Convert_RTTTL, "a:l=40000,:c,", {rtttl}, "l=40000"},
      {bConvert_EMelody, "", {"1: Error in bConvert_EMelody"}, "no note"},
      {bConvert_EMelody, "MELODY:c", {"1: Error in bConvert_EMelody"}, "END:EMELODY"},
      {bConvert_EMelody, "MELODY:END:EMELODY", {"1: Error in bConvert_EMelody"}, "no note"},
      {bConvert_EMelody, "c123", {cut}, "\"123\""},
      {bConvert_Melody, " \r\n", {"1: Error in bConvert_Melody"}, "no note"},
      {bConvert_Melody, "cdz", {cut}, "\"z\""},
      {bConvert_Melody, "cdx)", {cut}, "\"x)\""},
  };
  for (const Case& c : cases) {
    FakeWorkspace fake;
    fake.ws.ImportMelody = Tones({3});
    EXPECT_FALSE(c.convert(c.text, fake.ws)) << c.text;
    EXPECT_EQ(fake.log.lines, c.log) << c.text;
    EXPECT_THAT(fake.ws.refusal, HasSubstr(c.reason)) << c.text;
    EXPECT_THAT(fake.ws.ImportMelody, IsEmpty()) << c.text;
    EXPECT_EQ(fake.ws.header.Name == "Unknown", c.convert != Convert_RTTTL) << c.text;
  }
}

TEST(ImportText, LetsEventsRunAndEndsWithTheProgram) {
  for (const Converter convert : {Convert_RTTTL, bConvert_EMelody, bConvert_Melody}) {
    const std::string_view text = convert == Convert_RTTTL ? "a:d=4,:c,d,e," : "cde";
    FakeWorkspace fake;
    EXPECT_TRUE(convert(text, fake.ws));
    EXPECT_EQ(fake.pump.pumps, 3);
    fake.pump.ending = true;
    EXPECT_FALSE(convert(text, fake.ws));
    EXPECT_THAT(fake.ws.ImportMelody, IsEmpty());
  }
}

}  // namespace
}  // namespace trillomat
