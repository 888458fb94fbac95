// What tidying does to the slips of melody texts, and that it leaves alone what needs nothing.
#include "exchange/tidy.h"

#include <gmock/gmock.h>

#include <random>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/silent_services.h"
#include "core/tone.h"
#include "exchange/recognise.h"
#include "formats/formats.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Case {
  std::string_view slip;
  std::string text;
  std::string tidy;
};

ReadResult Reads(std::string_view text, FormatMode mode) {
  SilentServices silent;
  return Read(text, mode, {}, silent.services);
}

bool IsClean(const ReadResult& read) { return !read.elements.empty() && read.notUnderstood.count == 0; }

void ExpectTidied(FormatMode mode, const std::vector<Case>& cases) {
  for (const Case& each : cases) {
    const Tidied tidied = Tidy(each.text, mode);
    EXPECT_EQ(tidied.text, each.tidy) << each.slip;
    EXPECT_EQ(tidied.changes.empty(), each.text == each.tidy) << each.slip;
    EXPECT_TRUE(IsClean(Reads(tidied.text, mode))) << each.slip;
    EXPECT_THAT(Tidy(tidied.text, mode).changes, IsEmpty()) << each.slip << ": nothing is left to do";
  }
}

TEST(TidyTest, RtttlNotesAreWrittenAsTheReaderKnowsThem) {
  std::vector<Case> cases;
  const auto notes = [&cases](std::string_view slip, const std::string& text, const std::string& tidy) {
    const std::string header = "Tune:d=8,o=5,b=120:";
    cases.push_back({slip, header + text, header + tidy});
  };
  notes("as it should be", "c,16d#6.,p,h,8a#., #f,c6#,4.c, E", "c,16d#6.,p,h,8a#., #f,c6#,4.c, E");
  notes("_ for sharp", "c_,16g_6.,4f_.5", "c#,16g#6.,4f#5.");
  notes("sharps that are none", "e#,4b#,b#6,h#.,b9#", "f,4c6,c7,c6.,c9");
  notes("flats", "&b,8eb6,a&,cb,fb", "a#,8d#6,g#,b4,e");
  notes("empty tokens", "c,,d, ,e,", "c,d,e,");
  notes("lengths", "3c,6d,12e,24f,64g,816a,0p", "4c,8d,16e,32f,32g,32a,p");
  notes("octaves", "c1,16a0,d65", "c4,16a4,d6");
  notes("no comma", "8c 8d,8e6f,g18b.,c16d", "8c,8d,8e6,f,g,8b.,c,16d");
  notes("no note", "c,8,9k,*,so,d", "c,d");
  notes("signs inside a note", "8c!,[d],e\"", "8c,d,e");
  notes("pauses", "p#,-,8r_", "p,-,8p");
  ExpectTidied(FormatMode::Rtttl, cases);
}

TEST(TidyTest, RtttlHeadersAreMadeWhole) {
  ExpectTidied(
      FormatMode::Rtttl,
      {{"blanks and order", "A: b = 90, o=5,d=4 :c,d", "A: b = 90, o=5,d=4 :c,d"},
       {"no key", "A::c,d", "A:d=4,o=6,b=63:c,d"},
       {"no second colon", "A:c,d", "A:d=4,o=6,b=63:c,d"},
       {"no name", "d=4,o=5,b=90:c,d", ":d=4,o=5,b=90:c,d"},
       {"nothing but notes", "c,8d", ":d=4,o=6,b=63:c,8d"},
       {"a key less", "A:b=90:c,d", "A:b=90,d=4,o=6:c,d"},
       {"keys that are none", "A:fast:c,d", "A:fast,d=4,o=6,b=63:c,d"},
       {"keys and notes run together", "A:d=4,o=5,b=90,c,d", "A:d=4,o=5,b=90:c,d"},
       {"upper case", "A:D=4,O=5,B=90:c_,d", "A:d=4,o=5,b=90:c#,d"},
       {"upper case where all is understood", "A:D=8,O=5,L=3,B=90:c,d", "A:D=8,O=5,L=3,b=90,d=4,o=6:c,d"},
       {"words and odd values", "A:d=3,o=1,b=Slow:c,d", "A:d=4,o=4,b=63:c,d"},
       {"a tempo beyond all", "A:d=4,o=5,b=9999999999,l=99999:c,d", "A:d=4,o=5,b=63,l=15:c,d"},
       {"colons in the name", "Rocky: Theme: :d=4,o=5,b=90:c,d", "Rocky- Theme:d=4,o=5,b=90:c,d"},
       {"a line of a program", "char* t = \"A:d=4,o=5,b=90:c,d\";", "A:d=4,o=5,b=90:c,d"},
       {"text around", "Hear this:\nA:d=4,o=5,b=90:c,\nd,e\n\nBye, all", "A:d=4,o=5,b=90:c,\nd,e"},
       {"two tunes", "A:d=4,o=5,b=90:c,d\r\nB:d=4,o=5,b=90:e", "A:d=4,o=5,b=90:c,d"}});
  for (const std::string_view hopeless :
       {"", "A:d=4,o=5,b=90:", "Title :", "no tune at all", "A:c,g\nd=4,o=5:\nA:d"}) {
    EXPECT_THAT(Tidy(hopeless, FormatMode::Rtttl).changes, IsEmpty()) << hopeless;
  }
}

TEST(TidyTest, IMelodyIsMadeWhole) {
  const std::string head =
      "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:A\r\nCOMPOSER:\r\nBEAT:90\r\nSTYLE:S0\r\n"
      "VOLUME:V7\r\n";
  const std::string end = "END:IMELODY\r\n";
  const auto whole = [&](const std::string& melody) { return head + "MELODY:" + melody + "\r\n" + end; };
  std::vector<Case> cases{
      {"as it should be", whole("*5#c3.r2\r\n ledon(d2@2)V-"), whole("*5#c3.r2\r\n ledon(d2@2)V-")},
      {"a blank last line", whole("c2") + "\r\n", whole("c2")},
      {"blank lines and others", "\n" + head + "hello\n" + "MELODY:c2\r\n" + end, whole("c2")},
      {"no END", head + "MELODY:c2\r\nd2", head + "MELODY:c2\r\nd2\r\n" + end},
      {"tags behind the melody", "MELODY:c2\r\n" + head, "MELODY:c2\r\n" + end + head},
      {"other case", "begin:IMELODY\r\n" + head.substr(15) + " Melody : c2\r\n" + end,
       head + "MELODY: c2\r\n" + end},
      {"no BEAT of its own",
       "BEGIN:IMELODY\nNAME:A\nCOMPOSER:\nVERSION:1.2\nFORMAT:CLASS1.0\nMELODY:c2\nEND:IMELODY",
       "BEAT:120\r\nSTYLE:S0\r\nVOLUME:V7\r\nBEGIN:IMELODY\nNAME:A\nCOMPOSER:\nVERSION:1.2\nFORMAT:CLASS1.0\n"
       "MELODY:c2\nEND:IMELODY"},
      {"a BEAT that is none", ReplaceAll(head, "BEAT:90", "BEAT:quick") + "MELODY:c2\r\n" + end,
       ReplaceAll(head, "BEAT:90", "BEAT:120") + "MELODY:c2\r\n" + end}};
  const auto melody = [&](std::string_view slip, const std::string& text, const std::string& tidy) {
    cases.push_back({slip, whole(text), whole(tidy)});
  };
  melody("no length", "c#d3r", "c2#d3r2");
  melody("lengths and octaves beyond", "c7*9d2", "c5*8d2");
  melody("tones that are none", "#e2#b3&c2&f1*8#b2", "f2*5c3*3b2e1*8c2");
  melody("stray signs", "c2,d3 | e3", "c2d3  e3");
  melody("commands", "LedOn c2 BACKOFF V\x96 v12 @2", "ledon c2 backoff V- V12 @2)");
  melody("German and pauses", "h2p3x", "b2r3");
  ExpectTidied(FormatMode::IMelody, cases);
}

TEST(TidyTest, LetterNotesAndTheirMarkers) {
  const auto marked = [](const std::string& notes) { return "MELODY:" + notes + "\r\nEND:EMELODY\r\n"; };
  ExpectTidied(
      FormatMode::EMelody,
      {{"as it should be", marked("+C.(b)dPe"), marked("+C.(b)dPe")},
       {"other case", "begin:emelody\nmelody:cd\nend:emelody", "begin:emelody\nMELODY:cd\nEND:EMELODY"},
       {"no end", "BEGIN:EMELODY\r\nMELODY:cd", "BEGIN:EMELODY\r\nMELODY:cd\r\nEND:EMELODY\r\n"},
       {"notes alone", "cd", marked("cd")},
       {"no start", "BEGIN:EMELODY\r\nVERSION:1.0\r\ncd",
        "BEGIN:EMELODY\r\nVERSION:1.0\r\nMELODY:cd\r\nEND:EMELODY\r\n"},
       {"stray signs", marked("c1,d2 x&f"), marked("cd e")},
       {"tones that are none", marked("#e#H.(b)C+(b)c"), marked("f+C.Bb")}});
  ExpectTidied(FormatMode::Melody, {{"as it should be", "+C(b)dpe-", "+C(b)dpe-"},
                                    {"decoration", "* cd *", " cd "},
                                    {"dots and digits", "c.d.5", "cd"}});
}

TEST(TidyTest, TellsWhatAndWhere) {
  const Tidied tidied = Tidy("A:d=4,o=5,b=90:c,\r\n8d_,,e", FormatMode::Rtttl);
  std::vector<std::string> lines;
  for (const TidyChange& change : tidied.changes) lines.push_back(ChangeText(change));
  EXPECT_THAT(lines, ElementsAre("line 2, column 1: \"8d_\" is now \"8d#\": \"_\" stands for a sharp",
                                 "line 2, column 5: \",\" was left out: that is no note"));
  EXPECT_EQ(ChangeText(Tidy("A:d=4,o=5:c,d", FormatMode::Rtttl).changes.at(0)),
            "line 1, column 10: \",b=63\" was added: a header without it means that");
}

TEST(TidyTest, Utf8IsRecognised) {
  const std::string latin =
      "M\xFC"
      "de:d=4,o=5,b=90:c,d";
  EXPECT_THAT(Tidy(latin, FormatMode::Rtttl).changes, IsEmpty());
  const Tidied tidied = Tidy(
      "\xEF\xBB\xBFM\xC3\xBC"
      "de:d=4,o=5,b=90:c,d",
      FormatMode::Rtttl);
  EXPECT_EQ(tidied.text, latin);
  EXPECT_EQ(tidied.changes.size(), 1U);
}

// Random songs of what each format can hold, with names that a file gives back.
TEST(TidyTest, WhatTheProgramWroteIsNotChanged) {
  std::mt19937 random(5);
  SilentServices silent;
  const auto pick = [&random](const auto& values) { return values.at(random() % values.size()); };
  for (int round = 0; round < 400; ++round) {
    for (const ModeLimits& limits : kModeLimits) {
      Song song;
      song.info.name = pick(std::vector<std::string>{"", "Tune", "c,d=4", "F\xFCr", "END", "h2", "\"A\""});
      if (limits.mode == FormatMode::Rtttl) std::erase(song.info.name, '"');
      for (size_t i = random() % 40 + 2; i > 0; --i) {
        Element element =
            Note(pick(kTones), static_cast<int>(random() % 9), pick(kDurations), pick(kDurationExtras));
        if (random() % 4 == 0) element = Rest(pick(kDurations), pick(kDurationExtras));
        if (random() % 6 == 0) element = pick(ElementsOf("ledon vibeoff V+ V12 ( @2) @0)"));
        song.elements.push_back(element);
      }
      const std::string text = *Write(song, limits.mode, silent.services);
      if (!IsClean(Reads(text, limits.mode))) continue;
      const Tidied tidied = Tidy(text, limits.mode);
      ASSERT_EQ(tidied.text, text) << limits.caption << " " << ChangeText(tidied.changes.at(0));
      ASSERT_THAT(tidied.changes, IsEmpty()) << text;
    }
  }
}

// A text whose elements are all understood reads as the same elements when it is tidied. Any text at all can
// be tidied, and tidying it again changes nothing.
TEST(TidyTest, DamagedTextsKeepWhatWasUnderstood) {
  const std::vector<std::pair<FormatMode, std::string>> originals{
      {FormatMode::Rtttl, "Tune:d=4,o=5,b=120:8c,16d#6.,p,2h,e,32p,c7,a#."},
      {FormatMode::IMelody,
       "BEGIN:IMELODY\r\nBEAT:90\r\nMELODY:*5#c3.r2(d2@2)V-ledon\r\n &b4;\r\nEND:IMELODY\r\n"},
      {FormatMode::EMelody, "BEGIN:EMELODY\r\nMELODY:+C.(b)dPe++#f.\r\nEND:EMELODY\r\n"},
      {FormatMode::Melody, "+C(b)dpe-#fG"}};
  constexpr std::string_view kSigns = "c8#_&.,:;=*+()rpVbE@ \n1\"-";
  std::mt19937 random(7);
  for (int round = 0; round < 4000; ++round) {
    auto [mode, text] = originals.at(random() % originals.size());
    for (size_t i = random() % 4; i > 0; --i) {
      const size_t at = random() % text.size();
      const char sign = kSigns.at(random() % kSigns.size());
      text = text.substr(0, at) + (random() % 3 == 0 ? "" : std::string(1, sign)) +
             text.substr(at + random() % 2);
    }
    const ReadResult before = Reads(text, mode);
    const Tidied tidied = Tidy(text, mode);
    const ReadResult after = Reads(tidied.text, mode);
    if (IsClean(before)) {
      ASSERT_EQ(after.elements, before.elements) << text << "\n->\n" << tidied.text;
    }
    ASSERT_TRUE(tidied.changes.empty() ? tidied.text == text : tidied.text != text) << text;
    const Tidied again = Tidy(tidied.text, mode);
    ASSERT_THAT(again.changes, IsEmpty()) << text << "\n->\n" << tidied.text << "\n->\n" << again.text;
  }
}

TEST(RecogniseTest, ATextIsKnownByItsLook) {
  for (const auto& [text, mode] : std::vector<std::pair<std::string_view, std::optional<FormatMode>>>{
           {"BEGIN:IMELODY\r\nVERSION:1.2\r\n", FormatMode::IMelody},
           {"MELODY:c2d2", FormatMode::IMelody},
           {"begin:emelody\nmelody:cd", FormatMode::EMelody},
           {"MELODY:cd.", FormatMode::EMelody},
           {"A: d = 4:c,d", FormatMode::Rtttl},
           {"Hello!\nA:d=4:c", FormatMode::Rtttl},
           {"+c(b)dpE", FormatMode::Melody},
           {"", std::nullopt},
           {"Dear all: see you, Bob", std::nullopt}}) {
    EXPECT_EQ(RecognisedFormat(text), mode) << text;
  }
  EXPECT_THAT(TunesIn("First\nA:d=4:c,\nd,e\n\nB:b=90:f,g\nthe end\n8c,d"),
              ElementsAre("A:d=4:c,\nd,e", "B:b=90:f,g"));
}

}  // namespace
}  // namespace trillomat
