// What only POSIX has: names of any bytes, drives laid over one tree, access modes, very many files.
#include <sys/stat.h>

#include <chrono>

#include "browser/browser_fixture.h"
#include "browser/safe_save.h"
#include "formats/imelody_file.h"

namespace trillomat {
namespace {

using testing::Contains;
using testing::ElementsAre;

TEST_F(BrowserTest, ChangesTheDrive) {
  folder.Write("a.imy", TuneText("c2"));
  ASSERT_TRUE(browser.FillDrives());
  EXPECT_THAT(browser.Drives(), ElementsAre("C: " + folder.Path().string(), "Z: /"));
  Fill();
  browser.ListFiles_Click(RowOf("a.imy"));
  EXPECT_TRUE(browser.CanSave());
  browser.cboDrives_Click(browser.Drives()[1]);
  EXPECT_EQ(browser.sBrowseFolder, "Z:\\");
  EXPECT_EQ(browser.CurrentDrive(), 1);
  EXPECT_NE(RowOf("[etc]"), FileBrowser::kNoRow);
  EXPECT_FALSE(browser.CanSave());
  EXPECT_THAT(Logged(), Contains("1: Change drive"));
}

TEST_F(BrowserTest, NamesOfAnyBytesAreListedOrLeftOut) {
  for (const char* name : {"\xff\xfe.imy", "line\nfeed.imy", "\xe3\x81\x82.imy", "a:b.imy", "c\\d.imy"}) {
    folder.Write(name, TuneText("c2"));
  }
  mkfifo((folder / "pipe.imy").c_str(), 0600);
  folder.MakeFolder("x/y:z");
  for (const auto& [link, to] :
       {std::pair{"dangling.imy", "nowhere"}, {"link", "x"}, {"m.imy", "line\nfeed.imy"}})
    std::filesystem::create_symlink(to, folder / link);
  Fill();
  EXPECT_EQ(Rows(), "[link] [x] line\nfeed.imy m.imy \xe3\x81\x82.imy \xff\xfe.imy ");
  for (int row = 2; row < 6; ++row) {
    ws.melody.Clear();
    browser.ListFiles_Click(row);
    EXPECT_EQ(Tokens(), "*4c2");
  }
  browser.UpdateListFiles();
  EXPECT_THAT(Logged(), testing::UnorderedElementsAre("1: Left out of the list->a:b.imy",
                                                      "1: Left out of the list->c\\d.imy"));
  browser.ListFiles_MouseDown(2, 2);
  std::filesystem::remove(folder / "line\nfeed.imy");
  browser.mnuDelete_Click();
  EXPECT_THAT(Logged(), Contains("1: Could not find the file in bDeleteFile....->c:\\line?feed.imy"));
  browser.ListFiles_DblClick(0);
  EXPECT_EQ(Rows(), "[Previous] ");
  EXPECT_THAT(Logged(), Contains("1: Left out of the list->y:z"));
}

// Not for Windows: there the tests run under Wine, which makes them slowly, for it searches a folder for
// every new name in any case.
TEST_F(BrowserTest, ListsTwentyThousandFilesWithoutAStall) {
  constexpr int kFiles = 20000;
  for (int i = 0; i < kFiles; ++i)
    folder.Write((i % 2 == 0 ? "TUNE" : "tune") + std::to_string(i) + ".imy", "");
  const auto start = std::chrono::steady_clock::now();
  browser.UpdateListFiles();
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(browser.Rows().size(), static_cast<size_t>(kFiles));
  EXPECT_EQ(browser.Rows()[1].name, "tune1.imy");
  EXPECT_LT(time.count(), 1.0);
}

TEST_F(BrowserTest, AFileInAFolderThatCannotBeShownOpens) {
  folder.MakeFolder("q:r");
  folder.Write("q:r/a.imy", TuneText("c2"));
  EXPECT_TRUE(browser.OpenFile(folder / "q:r/a.imy"));
  EXPECT_EQ(browser.sBrowseFolder, "c:\\");
  EXPECT_FALSE(browser.CanSave()) << "its folder cannot be shown, so no row is that file";
}

TEST_F(BrowserTest, SaveKeepsTheRightsOfTheFile) {
  folder.Write("a.imy", TuneText("c2"));
  const auto rights = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
  std::filesystem::permissions(folder / "a.imy", rights);
  Fill();
  browser.ListFiles_Click(RowOf("a.imy"));
  save.cmdSave_Click();
  EXPECT_EQ(std::filesystem::status(folder / "a.imy").permissions(), rights);
}

TEST_F(BrowserTest, ANameWithoutRoomForASuffixIsSavedOver) {
  const std::string name = std::string(251, 'n') + ".imy";
  folder.Write(name, "old");
  Compose("*5d3");
  EXPECT_EQ(SaveOver({folder / name, name}, store, ws, [] {}), SaveOutcome::Saved);
  EXPECT_EQ(folder.Read(name), WriteText_IMelody(ws));
  EXPECT_THAT(folder.Names(), ElementsAre(name));
}

}  // namespace
}  // namespace trillomat
