// The import converters and what the import window does with them.
#include <gmock/gmock.h>

#include "exchange/import_dialog.h"
#include "exchange/import_text.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Converter = bool (*)(std::string_view, Workspace&);

TEST(ImportText, RtttlGivesNotesAndHeader) {
  FakeWorkspace fake;
  fake.ws.header.Volume = "V3";
  EXPECT_TRUE(Convert_RTTTL("te st:\td=4, o=5,b=100,\r\nl=3,s=C:c, P,8H.,-,16#c7,so,x", fake.ws));
  EXPECT_EQ(fake.ws.header, (SongHeader{"test", "", 100, "C", "V3", "", "", 3}));
  // No repeat marks, no gap where "so" is refused.
  EXPECT_THAT(fake.ws.ImportMelody, ElementsAre(Tone("c", 3), Pause(), Tone("b", 3, 0.5F, 1.5F), Pause(),
                                                Tone("#c", 5, 0.25F), Tone("x", 3)));
  EXPECT_THAT(fake.log.lines, ElementsAre("1: Last Note?\?-->x"));
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
  EXPECT_EQ(fake.ws.header, (SongHeader{"Unknown", "", 200, "", "", "", "", 2}));
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
  using Case = std::tuple<Converter, std::string, std::vector<std::string>, std::string>;
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
  for (const auto& [convert, text, log, reason] : cases) {
    FakeWorkspace fake;
    fake.ws.ImportMelody = Tones({3});
    EXPECT_FALSE(convert(text, fake.ws)) << text;
    EXPECT_EQ(fake.log.lines, log) << text;
    EXPECT_THAT(fake.ws.refusal, HasSubstr(reason)) << text;
    EXPECT_THAT(fake.ws.ImportMelody, IsEmpty()) << text;
    EXPECT_EQ(fake.ws.header.Name == "Unknown", convert != Convert_RTTTL) << text;
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

using Options = std::array<bool, 5>;

Options Only(size_t index) {
  Options options{};
  options.at(index) = true;
  return options;
}

class ImportDialogTest : public ::testing::Test, public FakeWorkspace {
 protected:
  ImportDialog dialog_{ws};
};

TEST_F(ImportDialogTest, TheHighestOptionThatIsTrueCounts) {
  EXPECT_EQ(ImportDialog::Selected(Options{}), 0U);
  EXPECT_EQ(ImportDialog::Selected(Options{true, true, false, true, false}), 3U);
}

TEST_F(ImportDialogTest, EnablesTheButtonByFormatAndText) {
  EXPECT_FALSE(dialog_.CanImport());
  using Step = std::tuple<size_t, std::string, bool>;
  const std::vector<Step> steps{{0, "a:b", false}, {0, "a:b,c", true},  {2, "", true},   {3, "", true},
                                {1, "c", false},   {2, "long", false},  {4, "x", false}, {1, "\r\n", true},
                                {2, "", true},     {0, "no,no", false}, {0, ":,", true}};
  for (const auto& [option, text, enabled] : steps) {
    dialog_.Update(Only(option), text);
    EXPECT_EQ(dialog_.CanImport(), enabled) << option << " " << text;
  }
  ws.ImportMelody = Tones({3});
  dialog_.Load();
  EXPECT_FALSE(dialog_.CanImport());
  EXPECT_THAT(ws.ImportMelody, IsEmpty());
}

TEST_F(ImportDialogTest, AFailedImportLeavesNothing) {
  ws.ImportMelody = Tones({3});
  EXPECT_TRUE(dialog_.Import(Only(4), "C", true));
  EXPECT_THAT(log.lines, IsEmpty());
  EXPECT_FALSE(dialog_.Import(Only(0), "one:colon,", true));
  EXPECT_THAT(ws.ImportMelody, IsEmpty());
  EXPECT_FALSE(ws.refusal.empty());
  EXPECT_THAT(log.lines, ElementsAre("1: Error in Convert_RTTTL", "1: Failed to make the import"));
}

TEST_F(ImportDialogTest, AdaptsForTheT68i) {
  EXPECT_TRUE(dialog_.Import(Only(0), "a:d=4,:c3,d4,", true));
  EXPECT_THAT(ws.ImportMelody, ElementsAre(Tone("c", 4), Tone("d", 5)));
  EXPECT_EQ(dialog_.ImportOctaveShift, 3);
  EXPECT_EQ(ws.refusal, "");

  EXPECT_TRUE(dialog_.Import(Only(0), "a:d=4,:c3,d8,", true));
  EXPECT_THAT(ws.ImportMelody, ElementsAre(Tone("c", 1), Tone("d", 6)));
  EXPECT_THAT(log.lines, Contains("1: Failed to make the adaption"));
  EXPECT_EQ(ws.refusal, "the melody spans octaves 1 to 6, which is more than the 4 octaves of the T68i");
}

}  // namespace
}  // namespace trillomat
