// The EMelody and Melody formats, which share their note text.
#include "read_case.h"

namespace trillomat {
namespace {

constexpr const char* kCritical = "1: Critical error when converting!!!!";

std::string FileWith(const std::string& notes) {
  return "BEGIN:EMELODY\r\nVERSION:1.0\r\nMELODY:" + notes + "\r\nEND:EMELODY\r\n";
}

std::string NoLetter(const std::string& place, const std::string& rest) {
  return place + " the notes end without a tone letter: \"" + rest + "\"";
}

TEST(EMelody, ReadsWhatStandsBetweenTheMarkers) {
  CheckReads(
      FormatMode::EMelody,
      {{"tones", FileWith("+C.(b)d++#eF"), "4 c 4 1, 3 &d 0.5 1, 5 #e 0.5 1, 3 f 2 1"},
       {"pauses and the German h", FileWith("pP.-hH"), "3 r 0.5 1, 3 r 4 1, 3 r 0.5 1, 3 b 0.5 1, 3 b 2 1"},
       {"whitespace anywhere, over lines", FileWith("+ C\r\n.\t( b )\rd"), "4 c 4 1, 3 &d 0.5 1"},
       {"a letter before a bracket ends no token", FileWith("c)d"), "3 c)d 0.5 1"},
       {"signs between the letters end tokens", FileWith("^."), "3 ^ 4 1"},
       {"a z ends none", FileWith("zczz"), NoLetter("3:10", "zz"), {kCritical}},
       {"digits alone, over lines", FileWith("c2 1\n2"), NoLetter("3:9", "2 1"), {kCritical}},
       {"one dot belongs to a token", FileWith("c.."), NoLetter("3:10", "."), {kCritical}},
       {"nothing between",
        FileWith(" \t"),
        "3:8 the text holds no notes: \"\"",
        {"1: Error in bReadFile_EMelody"}},
       {"no start", "cde", "1:1 the file holds no \"MELODY:\": \"cde\""},
       {"no end", "x\nMEL\nODY:cde\r\nEND:IMELODY", "2:1 no \"END:EMELODY\" follows \"MELODY:\": \"MEL\""},
       {"markers across lines", "MELO\r\nDY:c\nEND:EMEL\rODY", "3 c 0.5 1"},
       {"one character", "c\r\n", "1:1 the file holds fewer than 2 characters: \"c\""}});
}

TEST(Melody, ReadsTheWholeText) {
  const std::string sixty(60, '7');
  CheckReads(
      FormatMode::Melody,
      {{"tones", "+C(b)d#e\r\nF\r\n", "4 C 1 1, 3 &d 0.5 1, 3 #e 0.5 1, 3 F 1 1"},
       {"pauses and the German h", "pP-hH", "3 r 0.5 1, 3 R 1 1, 3 r 0.5 1, 3 b 0.5 1, 3 B 1 1"},
       {"a dot stays with its letter", "c.d", "3 c. 0.5 1, 3 d 0.5 1"},
       {"a long rest without a letter", "c\n" + sixty + "8", NoLetter("2:1", sixty + "..."), {kCritical}},
       {"blanks alone", "  \t", "1:1 the text holds no notes: \"\"", {"1: Error in bReadFile_Melody"}},
       {"an empty line", "\r\n", "1:1 the file holds fewer than 2 characters: \"\""},
       {"one character", "c", "1:1 the file holds fewer than 2 characters: \"c\""}});
}

TEST(LetterFormats, LeaveOutWhatTheyCannotHold) {
  const ElementList song{Note("&d", 4, 0.5F),      Note("C", 3), Command("ledon"),   Note("c", 6),
                         Note("e", 3, 0.5F, 1.5F), Note("r", 3), Note("g", 5, 0.5F), Rest(0.125F),
                         Note("r", 3, 0.5F)};
  EXPECT_EQ(Written(FormatMode::EMelody, song), FileWith("+(b)dc.++gp."));
  EXPECT_EQ(Written(FormatMode::Melody, song), "+(b)dCpp\r\n");
  EXPECT_EQ(Written(FormatMode::EMelody, {Command("V+")}), FileWith(""));
  EXPECT_EQ(Written(FormatMode::Melody, {Command("V+")}), "\r\n");
}

}  // namespace
}  // namespace trillomat
