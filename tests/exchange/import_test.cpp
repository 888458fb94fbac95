// The import of pasted texts as far as it differs from reading files, and the choice of the import window.
#include "exchange/import.h"

#include "formats/read_case.h"

namespace trillomat {
namespace {

using ::testing::Contains;

void CheckImports(PastedFormat format, const std::vector<ReadCase>& cases) {
  for (const ReadCase& each : cases) {
    SCOPED_TRACE(each.what);
    FakeServices fake;
    EXPECT_EQ(OutcomeOf(Import(format, each.text, false, {}, fake.services).read), each.outcome);
    EXPECT_EQ(fake.log.lines, each.log);
  }
}

TEST(Import, TakesTextsThatAreNoWholeFiles) {
  // There are no repeat marks, and no element for the refused "so".
  CheckImports(PastedFormat::Rtttl, {{"a header over lines",
                                      "t:\td=4, o=5,b=100,\r\nl=3,s=C:c, P,8H.,-,so,x",
                                      "3 c 1 1, -1 r 1 1, 3 b 0.5 1.5, -1 r 1 1, 3 x 1 1",
                                      {"1: Last Note?\?-->x"}}});
  CheckImports(PastedFormat::EMelody,
               {{"a file", "VERSION:1.0\r\nMEL ODY:c\r\nEND:EMEL ODY\r\nx", "3 c 0.5 1"},
                {"bare notes", " +C.\r\n(b)d", "4 c 4 1, 3 &d 0.5 1"},
                {"one note", "c", "3 c 0.5 1"},
                {"an end without a start", "cEND:d", "3 c 0.5 1, 3 e 2 1, 3 n 2 1, 3 d 2 1, 3 :d 0.5 1"}});
  CheckImports(PastedFormat::Melody, {{"any letters", "+C(b)aPp(b)Zq",
                                       "4 C 1 1, 3 &a 0.5 1, 3 R 1 1, 3 r 0.5 1, 3 &Z 1 1, 3 q 0.5 1"}});
}

TEST(Import, RefusesWithALogLineAndAPlace) {
  const std::string failed = "1: Failed to make the import";
  const std::string cut = "1: Critical error when converting!!!!";
  const std::vector<std::string> rtttl{"1: Error in Convert_RTTTL", failed};
  const std::vector<std::string> eMelody{"1: Error in bConvert_EMelody", failed};
  CheckImports(
      PastedFormat::Rtttl,
      {{"one colon", "one:colon,", "1:1 the text holds fewer than two \":\": \"one:colon,\"", rtttl},
       {"no notes", "a:\r\no=5,:so,", "2:6 there is no note behind the second \":\": \"so,\"", rtttl},
       {"loop", "a:\n l=40 000,:c,", "2:2 a number of the header is out of range: \"l=40 000\"", rtttl}});
  CheckImports(
      PastedFormat::EMelody,
      {{"nothing", "", "1:1 the text holds no notes: \"\"", eMelody},
       {"no end", "x\n MELODY:c", "2:2 there is no \"END:EMELODY\" behind \"MELODY:\": \"MELODY:\"", eMelody},
       {"no notes", "MELODY: END:EMELODY", "1:8 the text holds no notes: \"\"", eMelody},
       {"no letter", "c\n z", "2:2 the notes end without a tone letter: \"z\"", {cut, failed}}});
  CheckImports(
      PastedFormat::Melody,
      {{"blanks", " \r\n", "1:1 the text holds no notes: \"\"", {"1: Error in bConvert_Melody", failed}},
       {"no letter", "cd\n x)", "2:2 the notes end without a tone letter: \"x)\"", {cut, failed}}});
}

TEST(Import, SetsTheSongInformation) {
  FakeServices fake;
  ReadRecord record;
  record.info = {"", "Ada", 100, "S0", "V3", "1.2", "F", 3};
  record = Import(PastedFormat::Rtttl, "t:s=C,l=2:c", false, record, fake.services).read.record;
  EXPECT_EQ(record.info, (SongInfo{"t", "", 63, "C", "V3", "", "", 2}));
  record = Import(PastedFormat::Melody, "c", false, record, fake.services).read.record;
  EXPECT_EQ(record.info, (SongInfo{"Unknown", "", 200, "", "", "", "", 2}));
}

TEST(Import, AdaptsForTheT68i) {
  FakeServices fake;
  Imported imported = Import(PastedFormat::Rtttl, "a:d=4,:c3,d4,", true, {}, fake.services);
  EXPECT_EQ(Described(imported.read.elements), "4 c 1 1, 5 d 1 1");
  EXPECT_EQ(imported.notAdapted, "");

  imported = Import(PastedFormat::Rtttl, "a:d=4,:c3,d8,", true, {}, fake.services);
  EXPECT_EQ(Described(imported.read.elements), "1 c 1 1, 6 d 1 1");
  EXPECT_THAT(fake.log.lines, Contains("1: Failed to make the adaption"));
  EXPECT_EQ(imported.notAdapted,
            "the melody spans octaves 1 to 6, which is more than the 4 octaves of the T68i");
}

using Options = std::array<bool, 5>;

TEST(ImportChoice, TheHighestOptionThatIsOnCounts) {
  EXPECT_EQ(&ImportChoice::Selected(Options{}), &kImportOptions.front());
  EXPECT_EQ(&ImportChoice::Selected(Options{true, true, false, true, false}), &kImportOptions.at(3));
}

TEST(ImportChoice, EnablesTheButtonByFormatAndText) {
  ImportChoice choice;
  EXPECT_FALSE(choice.CanImport());
  using Step = std::tuple<size_t, std::string, bool>;
  const std::vector<Step> steps{{0, "a:b", false}, {0, "a:b,c", true},  {2, "", true},   {3, "", true},
                                {1, "c", false},   {2, "long", false},  {4, "x", false}, {1, "\r\n", true},
                                {2, "", true},     {0, "no,no", false}, {0, ":,", true}};
  for (const auto& [option, text, enabled] : steps) {
    Options options{};
    options.at(option) = true;
    choice.Update(options, text);
    EXPECT_EQ(choice.CanImport(), enabled) << option << " " << text;
  }
}

}  // namespace
}  // namespace trillomat
