#include "files/refusal_text.h"

#include "files_fixture.h"

namespace trillomat {
namespace {

using testing::HasSubstr;

TEST(RefusalText, LeavesOutWhatIsNotKnown) {
  const std::tuple<const char*, Refusal, const char*> cases[] = {
      {"a.imy", {"it is gone"}, "a.imy: it is gone"},
      {"", {"it is gone"}, "it is gone"},
      {"", {"no", 1, 2, "x"}, "line 1, column 2: no (\"x\")"},
      {"\xC3\xA4.mel", {"no", 3, 1, "", "Do"}, "\xC3\xA4.mel, line 3, column 1: no (an empty line). Do."},
      {"a", {"no", 3, 7, ""}, "a, line 3, column 7: no (the line ends there)"},
      {"a", {"no", 1, 1, "\xE4"}, "a, line 1, column 1: no (\"\xC3\xA4\")"}};
  for (const auto& [name, refusal, text] : cases) EXPECT_EQ(RefusalText(name, refusal), text);
}

TEST(RefusalText, CountsWhatWasNotUnderstood) {
  const Refusal place{"", 1, 24, "85_"};
  EXPECT_EQ(NotUnderstoodText({}), "");
  EXPECT_EQ(NotUnderstoodText({1, 1, place}),
            "1 of 1 element was not understood: it is \"85_\" in line 1, column 24");
  EXPECT_EQ(NotUnderstoodText({3, 120, place}),
            "3 of 120 elements were not understood, the first is \"85_\" in line 1, column 24");
  EXPECT_EQ(NotUnderstoodText({2, 2, {"", 4, 5}}),
            "2 of 2 elements were not understood, the first is empty in line 4, column 5");
}

TEST_F(FilesTest, WhatAFileHoldsThatIsNotUnderstoodIsSaidUntilAnotherIsOpened) {
  FillWith({{"slips.imy", "c2x\r\n y3d2"}, {"clean.imy", "c2"}});
  Click("slips.imy");
  EXPECT_EQ(host.notice, "1 of 3 elements was not understood: it is \"x\" in line 3, column 10");
  EXPECT_EQ(host.opened, 1);
  EXPECT_EQ(document.Size(), 3U);
  EXPECT_THAT(log.lines, testing::ElementsAre("1: Could not decode the note....-->xy3"));
  Click("clean.imy");
  EXPECT_EQ(host.notice, "");
}

TEST_F(FilesTest, ABetterReadingBelongsToNoFileAndNothingElseTakesItsPlaceMeanwhile) {
  using Offer = FileMessage::Offer;
  const std::string slips = TuneText("c2 d2") + "\r\n";
  folder.Write("slips.imy", slips);
  FillWith({{"clean.imy", "e2"}});
  Click("clean.imy");
  const auto offerReading = [this] {
    host.better = BetterReading{};
    host.better->read.elements = ElementsOf("g2 a2");
    host.better->mode = FormatMode::Rtttl;
    host.better->done = {"Opened tidied", Offer::ShowChanges};
    host.better->plays = true;
    Click("slips.imy");
    EXPECT_EQ(host.offer, Offer::ReadBetter);
    EXPECT_EQ(Tokens(), "*4e2");
  };
  offerReading();
  EXPECT_EQ(host.lastBytes, slips);
  EXPECT_THAT(host.notice, HasSubstr("Not opened: slips.imy, line 5, column 1: "));
  host.plays = true;
  browser.Accept(Offer::ReadBetter);
  host.plays = false;
  EXPECT_EQ(Tokens(), "*4e2");
  int meanwhile = 0;
  host.meanwhile = [&] {
    // First while it is read, then while it plays.
    if (meanwhile++ > 0) return;
    EXPECT_FALSE(browser.OpenFile(folder / "clean.imy"));
  };
  const int opened = host.opened;
  browser.Accept(Offer::ReadBetter);
  EXPECT_EQ(Tokens(), "*4g2*4a2");
  EXPECT_EQ(document.Mode(), FormatMode::Rtttl);
  EXPECT_EQ(document.File(), "");
  EXPECT_EQ(SelectedText(), "");
  EXPECT_FALSE(browser.CanSave());
  EXPECT_EQ(host.opened, opened + 1);
  EXPECT_EQ(host.notice, "Opened tidied");
  host.calls.clear();
  browser.Accept(host.offer);
  EXPECT_THAT(host.calls, testing::ElementsAre("changes"));
  browser.Accept(Offer::ReadBetter);
  EXPECT_EQ(Tokens(), "*4g2*4a2") << "the offer has been taken";
}

}  // namespace
}  // namespace trillomat
