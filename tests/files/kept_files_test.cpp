// What is kept of files that are replaced or deleted, and how it comes back; and the files that were used
// last.
#include <fstream>

#include "core/limits.h"
#include "files/files_fixture.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using Offer = FileMessage::Offer;

class KeptFilesTest : public FilesTest {
 protected:
  /// Opens a.imy, changes its song to these tokens and saves it.
  void SaveOver(const std::string& tokens) {
    Click("a.imy");
    Compose(tokens);
    save.Save();
  }
  /// Nothing can be kept any more.
  void BreakKeeper() const {
    fs::remove_all(keptFolder.Path());
    std::ofstream(keptFolder.Path()) << "in its way";
  }
};

TEST_F(KeptFilesTest, RestorePutsBackWhatWasReplacedOrDeleted) {
  FillWith({{"a.imy", "c2"}, {"b.imy", "b2"}});
  const std::string old = folder.Read("a.imy");
  fs::permissions(folder / "a.imy", fs::perms::owner_read | fs::perms::owner_write);
  const auto time = fs::file_time_type::clock::now() - std::chrono::hours(30);
  fs::last_write_time(folder / "a.imy", time);
  SaveOver("*5d3");
  EXPECT_EQ(host.notice, "Replaced a.imy");
  ASSERT_EQ(host.offer, Offer::Restore);
  const std::string saved = folder.Read("a.imy");
  EXPECT_FALSE(document.IsChanged());
  for (const std::string* content : {&old, &saved, &old}) {
    browser.Accept(Offer::Restore);
    EXPECT_EQ(folder.Read("a.imy"), *content);
    EXPECT_EQ(host.notice, "Restored a.imy");
    EXPECT_EQ(host.offer, Offer::Restore) << "what it replaced can be put back in turn";
    EXPECT_TRUE(document.IsChanged()) << "its file holds another song";
    EXPECT_EQ(keptFolder.Names().size(), 1U);
  }
  const auto restored = fs::last_write_time(folder / "a.imy");
  EXPECT_LT(std::chrono::abs(restored - time), std::chrono::seconds(2));
  EXPECT_EQ(SelectedText(), "a.imy");

  browser.DeleteSelected();
  EXPECT_EQ(host.notice, "Deleted a.imy");
  EXPECT_EQ(Rows(), "b.imy ");
  host.plays = true;
  browser.Accept(Offer::Restore);
  EXPECT_EQ(Rows(), "b.imy ");
  host.plays = false;
  browser.Accept(Offer::Restore);
  EXPECT_EQ(Rows(), "a.imy b.imy ");
  EXPECT_EQ(folder.Read("a.imy"), old);
  EXPECT_EQ(host.offer, Offer::None) << "nothing stood in its place";
  browser.Accept(Offer::Restore);
  EXPECT_EQ(host.notice, "Not restored: no file was replaced or removed");
  Compose("e2");
  host.savePath = folder / "b.imy";
  save.SaveAs();
  fs::remove(folder / "b.imy");
  folder.MakeFolder("b.imy");
  browser.Accept(Offer::Restore);
  EXPECT_EQ(host.notice, "Not restored: something else stands in its place");
  EXPECT_THAT(log.lines, Contains("1: Could not restore the file->C:\\b.imy"));
  fs::remove(folder / "b.imy");
  fs::remove(keptFolder / keptFolder.Names().back());
  browser.Accept(Offer::Restore);
  EXPECT_EQ(host.notice, "Not restored: the kept file cannot be read any more");
}

TEST_F(KeptFilesTest, WhatWouldBeTheSameIsNotKept) {
  FillWith({{"a.imy", "c2"}});
  SaveOver("*5d3");
  EXPECT_THAT(keptFolder.Names(), ElementsAre("1-a.imy"));
  save.Save();
  EXPECT_EQ(host.notice, "");
  host.savePath = folder / "new.imy";
  save.SaveAs();
  EXPECT_EQ(host.notice, "");
  host.newName = "c";
  browser.RenameSelected();
  EXPECT_THAT(keptFolder.Names(), ElementsAre("1-a.imy"));
  EXPECT_THAT(folder.Names(), ElementsAre("a.imy", "c.imy"));
}

TEST_F(KeptFilesTest, WhatCannotBeKeptIsSavedOverButNotDeleted) {
  FillWith({{"a.imy", "c2"}, {"b.imy", "b2"}});
  BreakKeeper();
  SaveOver("*5d3");
  EXPECT_THAT(log.lines, ElementsAre("1: Save file started", "1: Removed file",
                                     "1: Could not keep the old file->c:\\a.imy", "1: Saved the file"));
  EXPECT_THAT(host.notice, StartsWith("Replaced a.imy, but the old file could not be kept"));
  EXPECT_EQ(host.offer, Offer::None);
  EXPECT_EQ(folder.Read("a.imy"), FileBytes());
  log.lines.clear();
  browser.DeleteSelected();
  EXPECT_THAT(log.lines, ElementsAre("1: Could not keep the file->c:\\a.imy",
                                     "1: Failed to remove the file in bDeleteFile->c:\\a.imy"));
  EXPECT_THAT(host.notice, StartsWith("Not deleted: it could not be kept"));
  EXPECT_EQ(Rows(), "a.imy b.imy ");
}

TEST_F(KeptFilesTest, TheFolderKeepsTheLastFiftyFilesAndTwentyMebibytes) {
  using How = FileKeeper::How;
  const std::string longName = std::string(240, 'n') + ".imy";
  folder.Write(longName, "long");
  for (int i = 0; i < 60; ++i) ASSERT_TRUE(keeper.Keep(folder / longName, How::Copy));
  EXPECT_EQ(keptFolder.Names().size(), FolderKeeper::kMostFiles);
  for (const std::string& name : keptFolder.Names()) EXPECT_GT(std::stoi(name), 10);
  folder.Write("large", std::string(FolderKeeper::kLargestFile, 'l'));
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(keeper.Keep(folder / "large", How::Copy));
  EXPECT_THAT(keptFolder.Names(), ElementsAre("62-large", "63-large"));
  folder.Write("larger", std::string(FolderKeeper::kLargestFile + 1, 'l'));
  EXPECT_FALSE(keeper.Keep(folder / "larger", How::Copy));
  EXPECT_THAT(keptFolder.Names(), ElementsAre("62-large", "63-large"));
}

TEST_F(FilesTest, WhatWasOpenedOrSavedLastOpensAgain) {
  FillWith({{"a.imy", "a2"}, {"b.imy", "b2"}});
  folder.MakeFolder("x");
  folder.Write("x/c.mel", "+CdE");
  Click("a.imy");
  Click("b.imy");
  browser.OpenFile(folder / "x/c.mel");
  browser.OpenFile(folder / "x/gone.mel");
  host.savePath = folder / "x/d.mel";
  save.SaveAs();
  browser.OpenRecent(folder / "a.imy");
  EXPECT_EQ(Tokens(), "*4a2");
  const std::vector<fs::path> used{folder / "a.imy", folder / "x/d.mel", folder / "x/c.mel",
                                   folder / "b.imy"};
  EXPECT_EQ(recent.Files(), used);
  fs::remove(folder / "b.imy");
  browser.OpenRecent(folder / "b.imy");
  EXPECT_EQ(host.notice, "Not opened: there is no file b.imy");
  EXPECT_EQ(Tokens(), "*4a2");
  EXPECT_EQ(recent.Files().size(), 3U);
  RecentFiles again;
  again.Set(recent.Paths());
  EXPECT_EQ(again.Files(), recent.Files());
  for (int i = 0; i < 20; ++i) again.Add(folder / std::to_string(i));
  EXPECT_EQ(again.Files().size(), kMostRecentFiles);
  EXPECT_EQ(again.Files().front(), folder / "19");
}

TEST_F(FilesTest, OpenAsksForAFile) {
  FillWith({{"a.imy", "a2"}});
  browser.Open();
  ASSERT_TRUE(host.openDialog);
  EXPECT_EQ(host.openDialog->folder.lexically_normal(), folder.Path());
  EXPECT_EQ(host.openDialog->filter, "Melodies (*.imy *.emy *.rtx *.mel)");
  EXPECT_TRUE(document.IsEmpty());
  host.openPath = folder / "a.imy";
  host.plays = true;
  browser.Open();
  browser.OpenRecent(folder / "a.imy");
  EXPECT_TRUE(document.IsEmpty());
  host.plays = false;
  browser.Open();
  EXPECT_EQ(Tokens(), "*4a2");
  EXPECT_EQ(host.opened, 1);
  EXPECT_EQ(SelectedText(), "a.imy");
  browser.New();
  EXPECT_TRUE(document.IsEmpty());
  EXPECT_TRUE(document.File().empty());
  EXPECT_EQ(SelectedText(), "");
}

// The offer stands until the song is brought back or the message is closed, whatever else is done.
TEST_F(FilesTest, ASongThatTheLastRunLeftIsOffered) {
  FillWith({{"a.imy", "a2"}});
  for (const bool wanted : {false, true}) {
    Compose("c2 c2");
    recovery.emplace(document, store, folder / "state", log);
    recovery->Start();
    Compose("c2");
    recovery->End();
    const auto left = recovery->Start();
    ASSERT_TRUE(left);
    browser.OfferLeft(*left);
    EXPECT_THAT(host.notice, HasSubstr(" (1 element) was not saved when Trillomat ended the last time"));
    EXPECT_EQ(host.offer, Offer::Recover);
    Click("nothing");
    Click("a.imy");
    EXPECT_EQ(host.offer, Offer::Recover);
    wanted ? browser.Accept(host.offer) : browser.CloseMessage();
    EXPECT_EQ(Tokens(), wanted ? "*4c2" : "*4a2");
    EXPECT_EQ(host.notice, "");
    Click("a.imy");
    EXPECT_EQ(host.notice, "");
    document.SetFile({}, true);
  }
}

}  // namespace
}  // namespace trillomat
