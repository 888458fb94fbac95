// The EMelody and Melody files, which share their note text.
#include "formats/emelody_file.h"
#include "formats/melody_file.h"
#include "read_case.h"

namespace trillomat {
namespace {

constexpr const char* kCritical = "1: Critical error when converting!!!!";

std::string Song(const std::string& notes) {
  return "BEGIN:EMELODY\r\nVERSION:1.0\r\nMELODY:" + notes + "\r\nEND:EMELODY\r\n";
}

TEST(EMelodyFile, ReadsWhatStandsBetweenTheMarkers) {
  const std::vector<ReadCase> cases{
      {"tones", Song("+C.(b)d++#eF"), "4 c 4 1, 3 &d 0.5 1, 5 #e 0.5 1, 3 f 2 1"},
      {"pauses and the German h", Song("pP.-hH"), "3 r 0.5 1, 3 r 4 1, 3 r 0.5 1, 3 b 0.5 1, 3 b 2 1"},
      {"layout anywhere, over lines", Song("+ C\r\n.\t( b )\rd"), "4 c 4 1, 3 &d 0.5 1"},
      {"a letter before a bracket ends no token", Song("c)d"), "3 c)d 0.5 1"},
      {"signs between the letters end tokens", Song("^."), "3 ^ 4 1"},
      {"a z ends none", Song("zczz"), "refused", {kCritical}},
      {"digits alone", Song("12"), "refused", {kCritical}},
      {"one dot belongs to a token", Song("c.."), "refused", {kCritical}},
      {"nothing between", Song(" \t"), "refused", {"1: Error in bReadFile_EMelody"}},
      {"no start", "cde", "refused"},
      {"no end", "MELODY:cde\r\nEND:IMELODY", "refused"},
      {"markers across lines", "MELO\r\nDY:c\nEND:EMEL\rODY", "3 c 0.5 1"},
      {"one character", "c\r\n", "refused"},
  };
  for (const ReadCase& each : cases) CheckRead(FormatMode::EMelody, each);
}

TEST(MelodyFile, ReadsTheWholeText) {
  const std::vector<ReadCase> cases{
      {"tones", "+C(b)d#e\r\nF\r\n", "4 C 1 1, 3 &d 0.5 1, 3 #e 0.5 1, 3 F 1 1"},
      {"pauses and the German h", "pP-hH", "3 r 0.5 1, 3 R 1 1, 3 r 0.5 1, 3 b 0.5 1, 3 B 1 1"},
      {"a dot stays with its letter", "c.d", "3 c. 0.5 1, 3 d 0.5 1"},
      {"a rest without a letter", "cd7", "refused", {kCritical}},
      {"blanks alone", "  \t", "refused", {"1: Error in bReadFile_Melody"}},
      {"an empty line", "\r\n", "refused"},
      {"one character", "c", "refused"},
  };
  for (const ReadCase& each : cases) CheckRead(FormatMode::Melody, each);
}

TEST(LetterFiles, SetTheSongInformationBeforeTheyFail) {
  const SongHeader unknown{"Unknown", "", 200, "", "", "", "", 3};
  for (const auto& [mode, text] : std::vector<std::pair<FormatMode, std::string>>{
           {FormatMode::EMelody, "cde"}, {FormatMode::EMelody, Song("c")}, {FormatMode::Melody, "77"}}) {
    FakeWorkspace fake;
    fake.ws.header.Loop = 3;
    FormatOf(mode).ReadText(text, fake.ws);
    EXPECT_EQ(fake.ws.header, unknown) << text;
  }
  FakeWorkspace fake;
  EXPECT_FALSE(ReadText_Melody("c", fake.ws));
  EXPECT_EQ(fake.ws.header, SongHeader());
}

TEST(LetterFiles, LeaveOutWhatTheyCannotHold) {
  FakeWorkspace fake;
  const MelodyList song{{4, "&d", "", 1.0F, 0.5F}, {3, "C", "", 1.0F, 1.0F},    CommandNote("ledon"),
                        {6, "c", "", 1.0F, 1.0F},  {3, "e", "", 1.5F, 0.5F},    {3, "r", "", 1.0F, 1.0F},
                        {5, "g", "", 1.0F, 0.5F},  {-1, "r", "", 1.0F, 0.125F}, {3, "r", "", 1.0F, 0.5F}};
  fake.ws.ExportMelody = song;
  EXPECT_EQ(WriteText_EMelody(fake.ws), Song("+(b)dc.++gp."));
  fake.ws.ExportMelody = song;
  EXPECT_EQ(WriteText_Melody(fake.ws), "+(b)dCpp\r\n");
  fake.ws.ExportMelody = {CommandNote("V+")};
  EXPECT_EQ(WriteText_EMelody(fake.ws), Song(""));
  EXPECT_EQ(WriteText_Melody(fake.ws), "\r\n");
}

}  // namespace
}  // namespace trillomat
