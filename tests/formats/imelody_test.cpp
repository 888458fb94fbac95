#include "read_case.h"

namespace trillomat {
namespace {

constexpr const char* kFault = "1: Error in bReadFile_IMelody";

std::string Song(const std::string& melody) { return "MELODY:" + melody + "\r\nEND:IMELODY\r\n"; }

TEST(IMelody, CutsTheMelodyIntoTokens) {
  const std::vector<ReadCase> cases{
      {"tones", Song("c2*5#d3.&a1;r2:"), "4 c 1 1, 5 #d 0.5 1.5, 4 &a 2 0.6666667, -1 r 1 1.75"},
      {"every command", Song("ledonledoffvibeonvibeoffbackonbackoffV+V-V5V10(@12)"),
       "ledon, ledoff, vibeon, vibeoff, backon, backoff, V+, V-, V5, V10, (, @12)"},
      {"a tone b is no backlight command", Song("b2backonb3"), "4 b 1 1, backon, 4 b 0.5 1"},
      {"layout anywhere, over lines", Song(" c\t2\r\n *5\r\n c 3"), "4 c 1 1, 5 c 0.5 1"},
      {"the octave digit ends no token", Song("*5c2*6*7"), "refused", {kFault}},
      {"a star of the token before does not count", Song("V*3c2"), "V*3, 4 c 1 1"},
      {"no token at all", Song(""), "refused", {kFault}},
      {"a volume at the end eats into the sentinel", Song("c2V"), "refused", {kFault}},
      {"half a command does, too",
       Song("c2led"),
       "refused",
       {"1: Could not decode the note....-->led--E", kFault}},
      {"a repeat end without a bracket", Song("c2@3"), "refused", {kFault}},
      {"a token that is none", Song("xy2"), "0  0 0", {"1: Could not decode the note....-->xy2"}},
  };
  for (const ReadCase& each : cases) CheckRead(FormatMode::IMelody, each);
}

TEST(IMelody, LooksForALengthIn32767Positions) {
  FakeServices fake;
  const auto read = [&fake](size_t letters) {
    return Read(Song(std::string(letters, 'c') + "2"), FormatMode::IMelody, {}, fake.services);
  };
  EXPECT_EQ(read(32766).elements.size(), 1U);
  EXPECT_FALSE(read(32767));
}

TEST(IMelody, WalksTheTagLines) {
  const std::vector<ReadCase> cases{
      {"unknown tags",
       "BEGIN:IMELODY\rname:x\n" + Song("c2"),
       "4 c 1 1",
       {"1: Found an other tag - unknown-->BEGIN", "1: Found an other tag - unknown-->name"}},
      {"no melody", "NAME:x", ""},
      {"a second melody starts afresh", Song("c2") + Song("d2"), "4 d 1 1"},
      {"any END closes it",
       "MELODY:c2\nd2\nTREND:x\n",
       "4 c 1 1, 4 d 1 1",
       {"1: Found an other tag - unknown-->TREND"}},
      {"an END in the melody line itself does not", "MELODY:ENDc2", "refused", {kFault}},
      {"a blank line after the last", Song("c2") + "\r\n", "refused"},
      {"a line of NUL", std::string("NAME:x\n\0", 8), "refused"},
      {"no bytes", "", "refused", {kFault}},
      {"no END", "MELODY:c2\r\nd2", "refused", {kFault}},
      {"a beat of eleven digits", "BEAT:99999999999\r\n" + Song("c2"), "refused", {kFault}},
  };
  for (const ReadCase& each : cases) CheckRead(FormatMode::IMelody, each);
}

TEST(IMelody, TakesTheSongInformation) {
  FakeServices fake;
  const auto infoOf = [&fake](const std::string& text) {
    return Read(text, FormatMode::IMelody, {}, fake.services).record.info;
  };
  const SongInfo expected{.name = " a:b ",
                          .composer = "\xE4",
                          .bpm = 100,
                          .style = "S2",
                          .volume = "V7",
                          .version = "9",
                          .format = "F",
                          .loop = 0};
  EXPECT_EQ(infoOf("NAME: a:b \nCOMPOSER:\xE4\nSTYLE:S2\nVOLUME:V7\nVERSION:9\nFORMAT:F\n"), expected);
  for (const auto& [beat, bpm] : std::vector<std::pair<std::string, int32_t>>{
           {"120.5", 120}, {"121.5", 122}, {"fast", 0}, {"", 0}, {"-60", -60}, {" 90 bpm", 90}}) {
    EXPECT_EQ(infoOf("BEAT:" + beat).bpm, bpm) << beat;
  }
}

TEST(IMelody, WritesTenLines) {
  const SongInfo info{.name = "Tune",
                      .composer = "Me",
                      .bpm = -120,
                      .style = "S1",
                      .volume = "V5",
                      .version = "never",
                      .format = "written",
                      .loop = 3};
  const ElementList elements{Note("c"),        Note("#d", 5, 0.5F, 1.5F),  Rest(2.0F),
                             Command("ledon"), Note("C", 9, 0.25F, 1.75F), Note("R", 4, 3.0F)};
  EXPECT_EQ(Written(FormatMode::IMelody, elements, info),
            "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:Tune\r\nCOMPOSER:Me\r\nBEAT:120\r\n"
            "STYLE:S1\r\nVOLUME:V5\r\nMELODY:c2*5#d3.r1ledon[*4c4:]r\r\nEND:IMELODY\r\n");
}

std::string Tones(size_t count) {
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
  EXPECT_EQ(melodyOf(30), Tones(30));
  EXPECT_EQ(melodyOf(31), Tones(31) + "\r\n ");
  // A continued line counts its blank: 1 + 2 * 30 is over 60.
  EXPECT_EQ(melodyOf(62), Tones(31) + "\r\n " + Tones(30) + "\r\n " + Tones(1));
}

}  // namespace
}  // namespace trillomat
