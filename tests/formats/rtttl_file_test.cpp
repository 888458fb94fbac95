#include "formats/rtttl_file.h"

#include "formats/rtttl_header.h"
#include "read_case.h"

namespace trillomat {
namespace {

constexpr const char* kAtTheEnd = "1: Critical Error in GetDefault RTTTL";
constexpr const char* kFault = "1: Error in bReadFile_RTTTL";

std::string LastNote(const std::string& token) { return "1: Last Note?\?-->" + token; }

TEST(RtttlFile, ReadsNotes) {
  const std::vector<ReadCase> cases{
      {"tones",
       "t:d=4,o=5,b=100:8c#6.,P,16-,H",
       "4 #c 0.5 1.5, -1 r 1 1, -1 r 0.25 1, 3 b 1 1",
       {kAtTheEnd, LastNote("b")}},
      {"a comma at the end", "t:b=100,d=8:c,\r\n", "4 c 0.5 1", {kAtTheEnd}},
      {"layout anywhere, over lines", "a b:d = 8 ,\to=\n6,s=N:8\r\nc ,", "4 c 0.5 1"},
      {"refused tokens leave no gap", "t:s=N:so,c,o,", "4 c 1 1"},
      {"an empty token is an element", "t:s=N:c,,", "4 c 1 1, 4  1 1"},
      {"no length", "t:s=N:3c,d=04", "4 c 0 1, 2 d=0 1 1", {"2: Unknown duration-->3", LastNote("d=04")}},
      {"the header ends at the second colon", "t:s=N:c:8d,", "4 c:8d 1 1"},
      {"a repeat", "t:l=3,s=N:c,", "(, 4 c 1 1, @3)", {"1: Adding the repeat....."}},
      {"the last repeat with an end", "t:l=14,s=N:c,", "(, 4 c 1 1, @14)", {"1: Adding the repeat....."}},
      {"no more with an end", "t:l=15,s=N:c,", "(, 4 c 1 1, @0)", {"1: Adding the repeat....."}},
      {"a repeat without notes", "t:l=2,s=N:o", "(, @2)", {LastNote("o"), "1: Adding the repeat....."}},
      {"no notes", "t:s=N:", "refused", {kFault}},
      {"only refused notes", "t:s=N:o,s,", "refused", {kFault}},
      {"one colon", "t:c,d,e", "refused", {kFault}},
      {"four characters", "t::\r\nc", "refused"},
      {"five characters with blanks", "t : : \n", "refused", {kFault}},
      {"a beat that does not fit", "t:b=9999999999:c", "refused", {kAtTheEnd, kFault}},
      {"a loop that does not fit", "t:l=40000,s=N:c", "refused", {kFault}},
      {"an octave that does not fit", "t:o=32770,s=N:c", "refused", {kFault}},
  };
  for (const ReadCase& each : cases) CheckRead(FormatMode::Rtttl, each);
}

TEST(RtttlFile, TakesTheHeader) {
  FakeWorkspace fake;
  EXPECT_TRUE(ReadText_RTTTL("My Tune:d=8,o=4,b=140,s=NC,l=2:c", fake.ws));
  const SongHeader expected{"MyTune", "", 140, "N", "V10", "", "", 2};
  EXPECT_EQ(fake.ws.header, expected);
  EXPECT_EQ(fake.ws.codec.defaults, (MelodyDefaults{2, 0.5F}));

  // A key that is missing keeps the last header's value, whatever the codec was set to in between.
  fake.ws.codec.defaults = {6, 4.0F};
  EXPECT_TRUE(ReadText_RTTTL("Next:b=90:c", fake.ws));
  const SongHeader next{"Next", "", 90, "N", "V10", "", "", 2};
  EXPECT_EQ(fake.ws.header, next);
  EXPECT_EQ(Described(fake.ws.ImportMelody), "(, 2 c 0.5 1, @2)");
}

TEST(RtttlFile, LooksForKeysAtEveryPosition) {
  FakeWorkspace fake;
  GetDefaultRTTTL("n:xb=77s=b=5,o=,d=03", fake.ws);
  EXPECT_EQ(fake.ws.rtttl.BPM, 5);
  EXPECT_EQ(fake.ws.rtttl.Style, "b");
  EXPECT_EQ(fake.ws.codec.defaults, (MelodyDefaults{-2, 0.0F}));
  EXPECT_EQ(fake.log.lines, (std::vector<std::string>{kAtTheEnd, "2: Unknown duration-->03"}));

  fake.log.lines.clear();
  GetDefaultRTTTL("no colon, b=1", fake.ws);
  EXPECT_EQ(fake.ws.rtttl.BPM, 5);
  EXPECT_EQ(fake.log.lines, (std::vector<std::string>{"2: Incorrect Header"}));
}

TEST(RtttlFile, ARebuiltTextViewDoesNotDisturbAReadThatRuns) {
  FakeWorkspace f;
  f.pump.onPump = [&f](int /*pumps*/) { f.ws.codec.defaults = {.octave = -1, .duration = -1.0F}; };
  ASSERT_TRUE(ReadText_RTTTL("tune:d=8,o=6,b=100:c,d,", f.ws));
  for (const MelodyNote& note : f.ws.ImportMelody) {
    EXPECT_EQ(note.Octave, 4) << note.Note;
    EXPECT_EQ(note.Duration, 0.5F) << note.Note;
  }
}

TEST(RtttlFile, WritesTheCommonestDefaults) {
  FakeWorkspace fake;
  Workspace& ws = fake.ws;
  ws.header.Name = "A name too long";
  ws.header.BPM = -120;
  ws.ExportMelody = {{4, "#c", "", 1.5F, 0.5F},  {4, "&b", "", 1.0F, 0.5F}, {3, "b", "", 1.0F, 1.0F},
                     {-1, "r", "", 1.0F, 0.5F},  CommandNote("ledon"),      {2, "c", "", 1.0F, 1.0F},
                     {5, "g", "", 1.75F, 0.125F}};
  EXPECT_EQ(WriteText_RTTTL(ws), "A name too:d=8,o=6,b=120:C#.,A#,4H5,P\r\n");
  EXPECT_EQ(ws.codec.defaults, (MelodyDefaults{4, 0.5F}));

  ws.header.Loop = 3;
  ws.ExportMelody = {{6, "d", "", 1.0F, 2.0F}, {5, "d", "", 1.0F, 4.0F}};
  EXPECT_EQ(WriteText_RTTTL(ws), "A name too:d=1,o=5,b=120,l=3:2D8,D7\r\n") << "ties";

  ws.ExportMelody = {CommandNote("(")};
  EXPECT_EQ(WriteText_RTTTL(ws), "A name too:d=1,o=5,b=120,l=3\r\n") << "no notes";
}

}  // namespace
}  // namespace trillomat
