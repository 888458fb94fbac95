#include "core/tone.h"
#include "formats/rtttl_text.h"
#include "read_case.h"

namespace trillomat {
namespace {

constexpr const char* kAtTheEnd = "1: Critical Error in GetDefault RTTTL";
constexpr const char* kFault = "1: Error in bReadFile_RTTTL";

std::string LastNote(const std::string& token) { return "1: Last Note?\?-->" + token; }

std::string OutOfRange(const std::string& place, const std::string& field) {
  return place + " a number of the header is out of range: \"" + field + "\"";
}

TEST(Rtttl, ReadsNotes) {
  const std::string repeat = "1: Adding the repeat.....";
  CheckReads(
      FormatMode::Rtttl,
      {{"tones",
        "t:d=4,o=5,b=100:8c#6.,P,16-,H",
        "4 #c 0.5 1.5, -1 r 1 1, -1 r 0.25 1, 3 b 1 1",
        {kAtTheEnd, LastNote("b")}},
       {"a comma at the end", "t:b=100,d=8:c,\r\n", "4 c 0.5 1", {kAtTheEnd}},
       {"whitespace anywhere, over lines", "a b:d = 8 ,\to=\n6,s=N:8\r\nc ,", "4 c 0.5 1"},
       {"refused tokens leave no gap", "t:s=N:so,c,o,", "4 c 1 1"},
       {"an empty token is an element", "t:s=N:c,,", "4 c 1 1, 4  1 1"},
       {"no length", "t:s=N:3c,d=04", "4 c 0 1, 2 d=0 1 1", {"2: Unknown duration-->3", LastNote("d=04")}},
       {"the header ends at the second colon", "t:s=N:c:8d,", "4 c:8d 1 1"},
       {"the last repeat with an end", "t:l=14,s=N:c,", "(, 4 c 1 1, @14)", {repeat}},
       {"no more with an end", "t:l=15,s=N:c,", "(, 4 c 1 1, @0)", {repeat}},
       {"a repeat without notes", "t:l=2,s=N:o", "(, @2)", {LastNote("o"), repeat}},
       {"no notes", "t:s=N:", "1:7 the text holds no notes: \"\"", {kFault}},
       {"only refused notes", "t:s=N:o,s,", "1:7 the text holds no notes: \"o,s,\"", {kFault}},
       {"one colon", "t:c,d,e", "1:1 the text holds fewer than two \":\": \"t:c,d,e\"", {kFault}},
       {"four characters", "t::\r\nc", "1:1 the file holds fewer than 5 characters: \"t::\""},
       {"five characters with blanks", "t : : \n", "1:6 the text holds no notes: \" \"", {kFault}},
       {"a beat that does not fit",
        "t:\nb = 99999 99999:c",
        OutOfRange("2:1", "b = 99999 99999"),
        {kAtTheEnd, kFault}},
       {"a loop that does not fit", "t:l=40000,s=N:c", OutOfRange("1:3", "l=40000"), {kFault}},
       {"an octave that does not fit", "t:o=32770,s=N:c", OutOfRange("1:3", "o=32770"), {kFault}}});
}

TEST(Rtttl, TakesTheHeader) {
  FakeServices fake;
  const ReadResult first = Read("My Tune:d=8,o=4,b=140,s=NC,l=2:c", FormatMode::Rtttl, {}, fake.services);
  SongInfo expected{"MyTune", "", 140, "N", "V10", "", "", 2};
  EXPECT_EQ(first.record.info, expected);
  EXPECT_EQ(Described(first.elements), "(, 2 c 0.5 1, @2)");

  // A key that is missing keeps the last header's value.
  const ReadResult next = Read("Next:b=90:d", FormatMode::Rtttl, first.record, fake.services);
  expected.name = "Next";
  expected.bpm = 90;
  EXPECT_EQ(next.record.info, expected);
  EXPECT_EQ(Described(next.elements), "(, 2 d 0.5 1, @2)");
}

TEST(Rtttl, LooksForKeysAtEveryPosition) {
  FakeServices fake;
  const RtttlKeys keys = Read("n:xb=77s=b=5,o=,d=03:c,", FormatMode::Rtttl, {}, fake.services).record.rtttl;
  EXPECT_EQ(keys.bpm, 5);
  EXPECT_EQ(keys.style, "b");
  EXPECT_EQ(keys.defaults, (TokenDefaults{-2, 0.0F}));
  EXPECT_EQ(fake.log.lines, (std::vector<std::string>{kAtTheEnd, "2: Unknown duration-->03"}));
}

TEST(Rtttl, WritesTheCommonestDefaults) {
  SongInfo info;
  info.name = "A name too long";
  info.bpm = -120;
  const ElementList song{Note("#c", 4, 0.5F, 1.5F),
                         Note("&b", 4, 0.5F),
                         Note("b", 3),
                         Rest(0.5F),
                         Command("ledon"),
                         Note("c", 2),
                         Note("g", 5, 0.125F, 1.75F)};
  EXPECT_EQ(Written(FormatMode::Rtttl, song, info), "A name too:d=8,o=6,b=120:C#.,A#,4H5,P\r\n");
  info.loop = 3;
  EXPECT_EQ(Written(FormatMode::Rtttl, {Note("d", 6, 2.0F), Note("d", 5, 4.0F)}, info),
            "A name too:d=1,o=5,b=120,l=3:2D8,D7\r\n")
      << "ties";
  EXPECT_EQ(Written(FormatMode::Rtttl, {Command("(")}, info), "A name too:d=1,o=5,b=120,l=3\r\n")
      << "no notes";
}

std::string Modern(const Song& song) {
  SilentLog log;
  return RtttlFile(song, RtttlSpelling::Modern, log);
}

TEST(Rtttl, ModernSpellingIsWhatTodaysPlayersRead) {
  const SongInfo info{.name = "A: b", .bpm = 120, .loop = 3};
  EXPECT_EQ(
      Modern({{Note("&d", 4, 0.5F, 1.5F), Note("b", 3, 0.5F, 1.5F), Note("&b", 4, 4.0F), Rest(1.0F, 1.5F),
               Rest(0.5F), Note("#g", 6, 0.25F), Note("c", 2), Note("b", 2, 0.125F, 1.5F)},
              info}),
      "A:d=8,o=6,b=120:c#.,b.5,1a#,4p.,p,16g#8,4c4,32b.4\r\n");
  EXPECT_EQ(Modern({{Command("("), Note("c", 1), Note("c", 7), Note("x", 4), Note("c", 4, 1.0F, 1.75F),
                     Note("c", 4, 0.3F), Command("@3)")},
                    info}),
            "A:d=4,o=6,b=120\r\n")
      << "nothing that RTTTL can express";
  EXPECT_EQ(Modern({{Note("c")}, {.name = "a", .bpm = 0}}), "a:d=4,o=6,b=100:c\r\n") << "no tempo";
}

TEST(Rtttl, ModernTextIsReadBackAsTheSameElements) {
  ElementList elements;
  for (const std::string_view tone : kPianoTones) {
    for (const float duration : kDurations) {
      for (int16_t octave = 2; octave <= 6; ++octave) {
        elements.push_back(Tone(tone, octave, duration, duration < 1 ? 1.5F : 1.0F));
      }
      elements.push_back(Pause(duration, 1.5F));
    }
  }
  FakeServices fake;
  const ReadResult read =
      Read(Modern({elements, {.name = "all", .bpm = 90}}), FormatMode::Rtttl, {}, fake.services);
  EXPECT_EQ(read.elements, elements);
  EXPECT_EQ(read.record.info.bpm, 90);
}

TEST(Rtttl, ANameThatAColonEndsIsSaid) {
  struct Case {
    std::string name;
    std::string modern;
  };
  const std::string holds = " holds \":\", which ends a name in RTTTL: it will be read back ";
  for (const auto& [name, modern] : {Case{"Tune", ""},
                                     {"0123456789:", ""},
                                     {"Am: a", "the name \"Am: a\"" + holds + "as \"Am\""},
                                     {":", "the name \":\"" + holds + "without a name"}}) {
    SongInfo info;
    info.name = name;
    EXPECT_EQ(RtttlNameWarning(info, RtttlSpelling::Modern), modern);
    const std::string rest = modern.empty() ? "" : ", and what follows the \":\" not as it is meant";
    EXPECT_EQ(RtttlNameWarning(info, RtttlSpelling::Classic), modern + rest);
  }
}

}  // namespace
}  // namespace trillomat
