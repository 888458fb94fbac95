#include "read_case.h"

namespace trillomat {
namespace {

constexpr const char* kFault = "1: Error in bReadFile_IMelody";

std::string FileWith(const std::string& melody) { return "MELODY:" + melody + "\r\nEND:IMELODY\r\n"; }

std::string NoLength(const std::string& place, const std::string& rest) {
  return place + " no note with a length follows: \"" + rest + "\"";
}

TEST(IMelody, CutsTheMelodyIntoTokens) {
  const std::string half = "1: Could not decode the note....-->led--E";
  CheckReads(
      FormatMode::IMelody,
      {{"tones", FileWith("c2*5#d3.&a1;r2:"), "4 c 1 1, 5 #d 0.5 1.5, 4 &a 2 0.6666667, -1 r 1 1.75"},
       {"every command", FileWith("ledonledoffvibeonvibeoffbackonbackoffV+V-V5V10(@12)"),
        "ledon, ledoff, vibeon, vibeoff, backon, backoff, V+, V-, V5, V10, (, @12)"},
       {"a tone b is no backlight command", FileWith("b2backonb3"), "4 b 1 1, backon, 4 b 0.5 1"},
       {"whitespace anywhere, over lines", FileWith(" c\t2\r\n *5\r\n c 3"), "4 c 1 1, 5 c 0.5 1"},
       {"the octave digit ends no token", FileWith("*5c2*6*7"), NoLength("1:12", "*6*7"), {kFault}},
       {"a star of the token before does not count", FileWith("V*3c2"), "V*3, 4 c 1 1"},
       {"no length, over lines", FileWith("c2\nd \n\td"), NoLength("2:1", "d "), {kFault}},
       {"no token at all", FileWith(""), NoLength("1:8", ""), {kFault}},
       {"a volume at the end eats into the sentinel", FileWith("c2V"), NoLength("1:11", ""), {kFault}},
       {"half a command does, too", FileWith("c2led"), NoLength("1:13", ""), {half, kFault}},
       {"a repeat end without a bracket",
        FileWith("c2 \r\n d2@\t3"),
        "2:4 a repeat end has no \")\": \"@?3\"",
        {kFault}},
       {"a token that is none", FileWith("xy2"), "0  0 0", {"1: Could not decode the note....-->xy2"}}});
}

TEST(IMelody, LooksForALengthIn32767Positions) {
  FakeServices fake;
  const auto read = [&fake](size_t letters) {
    return Read(FileWith(std::string(letters, 'c') + "2"), FormatMode::IMelody, {}, fake.services);
  };
  EXPECT_EQ(read(32766).elements.size(), 1U);
  EXPECT_FALSE(read(32767));
}

TEST(IMelody, WalksTheTagLines) {
  const std::string unknown = "1: Found an other tag - unknown-->";
  CheckReads(FormatMode::IMelody,
             {{"unknown tags",
               "BEGIN:IMELODY\rname:x\n" + FileWith("c2"),
               "4 c 1 1",
               {unknown + "BEGIN", unknown + "name"}},
              {"no melody", "NAME:x", ""},
              {"a second melody starts afresh", FileWith("c2") + FileWith("d2"), "4 d 1 1"},
              {"any END closes it", "MELODY:c2\nd2\nTREND:x\n", "4 c 1 1, 4 d 1 1", {unknown + "TREND"}},
              {"an END in the melody line itself does not",
               "MELODY:ENDc2",
               "1:8 no END line follows the MELODY line: \"ENDc2\"",
               {kFault}},
              {"a line without a colon", "NAME:x\r\nOops\r\n", "2:1 the line has no \":\": \"Oops\""},
              {"a blank line after the last", FileWith("c2") + "\r\n", "3:1 the line has no \":\": \"\""},
              {"a line of NUL", std::string("NAME:x\n\0", 8), "2:1 the line has no \":\": \"?\""},
              {"no bytes", "", "0:0 the file is empty: \"\"", {kFault}},
              {"a beat of eleven digits",
               "NAME:\rBEAT:99999999999",
               "2:6 the beat is out of range: \"99999999999\"",
               {kFault}}});
}

TEST(IMelody, TakesTheSongInformation) {
  FakeServices fake;
  const auto infoOf = [&fake](const std::string& text) {
    return Read(text, FormatMode::IMelody, {}, fake.services).record.info;
  };
  const SongInfo expected{" a:b ", "\xE4", 100, "S2", "V7", "9", "F", 0};
  EXPECT_EQ(infoOf("NAME: a:b \nCOMPOSER:\xE4\nSTYLE:S2\nVOLUME:V7\nVERSION:9\nFORMAT:F\n"), expected);
  for (const auto& [beat, bpm] : std::vector<std::pair<std::string, int32_t>>{
           {"120.5", 120}, {"121.5", 122}, {"fast", 0}, {"", 0}, {"-60", -60}, {" 90 bpm", 90}}) {
    EXPECT_EQ(infoOf("BEAT:" + beat).bpm, bpm) << beat;
  }
}

TEST(IMelody, WritesTenLines) {
  const SongInfo info{"Tune", "Me", -120, "S1", "V5", "never", "written", 3};
  const ElementList elements{Note("c"),        Note("#d", 5, 0.5F, 1.5F),  Rest(2.0F),
                             Command("ledon"), Note("C", 9, 0.25F, 1.75F), Note("R", 4, 3.0F)};
  EXPECT_EQ(Written(FormatMode::IMelody, elements, info),
            "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:Tune\r\nCOMPOSER:Me\r\nBEAT:120\r\n"
            "STYLE:S1\r\nVOLUME:V5\r\nMELODY:c2*5#d3.r1ledon[*4c4:]r\r\nEND:IMELODY\r\n");
}

std::string TonesText(size_t count) {
  std::string text;
  while (count-- > 0) text += "c2";
  return text;
}

TEST(IMelody, WrapsBehindMoreThanSixtyCharacters) {
  const auto melodyOf = [](size_t tones) {
    const std::string text = Written(FormatMode::IMelody, ElementList(tones, Note("c")));
    const size_t start = text.find("MELODY:c");
    return text.substr(start + 7, text.find("\r\nEND") - start - 7);
  };
  EXPECT_EQ(melodyOf(30), TonesText(30));
  EXPECT_EQ(melodyOf(31), TonesText(31) + "\r\n ");
  // A continued line counts its blank: 1 + 2 * 30 is over 60.
  EXPECT_EQ(melodyOf(62), TonesText(31) + "\r\n " + TonesText(30) + "\r\n " + TonesText(1));
}

}  // namespace
}  // namespace trillomat
