#include "browser/browser_fixture.h"

namespace trillomat {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(BrowserTest, ListsFoldersAndTheFilesOfTheMode) {
  for (const char* name : {"Zeta.imy", "alpha.IMY", "b.emy", "c.rtx", "d.mel", "imy", "e.imy.txt"}) {
    folder.Write(name, "");
  }
  for (const char* name : {"x", "Apart", "folder.imy", "x/Previous"}) folder.MakeFolder(name);
  const std::vector<std::pair<FormatMode, std::string>> cases = {
      {FormatMode::IMelody, "[Apart] [folder.imy] [x] alpha.IMY Zeta.imy "},
      {FormatMode::EMelody, "[Apart] [folder.imy] [x] b.emy "},
      {FormatMode::Rtttl, "[Apart] [folder.imy] [x] c.rtx "},
      {FormatMode::Melody, "[Apart] [folder.imy] [x] d.mel "}};
  for (const auto& [mode, rows] : cases) {
    composer.mnuSettingFormatType_Click(mode);
    EXPECT_EQ(Rows(), rows);
  }
  browser.ListFiles_DblClick(RowOf("[x]"));
  EXPECT_EQ(browser.sBrowseFolder, "c:\\x\\");
  EXPECT_EQ(Rows(), "[Previous] [Previous] ");
  browser.ListFiles_DblClick(1);
  EXPECT_EQ(browser.sBrowseFolder, "c:\\x\\Previous\\");
  browser.ListFiles_DblClick(0);
  EXPECT_EQ(browser.sBrowseFolder, "c:\\x\\");
  browser.ListFiles_DblClick(0);
  EXPECT_EQ(browser.sBrowseFolder, "c:\\");
  EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(BrowserTest, AClickOpensAFile) {
  folder.Write("good.imy", TuneText("c2*5d3"));
  folder.Write("bad.imy", "no melody at all");
  folder.MakeFolder("x");
  Fill();
  browser.ListFiles_Click(RowOf("good.imy"));
  EXPECT_EQ(Tokens(), "*4c2*5d3");
  EXPECT_EQ(ws.melody.lCurrentIndex, -1);
  EXPECT_EQ(ws.header.Name, "Tune");
  EXPECT_EQ(composer.SongInfo().Rows()[2].text, "Tune");
  EXPECT_EQ(composer.SongInfo().GetStyleCode(), "S2");
  EXPECT_TRUE(browser.CanSave());
  EXPECT_THAT(Logged(), IsEmpty());
  EXPECT_THAT(sound.beeps, IsEmpty());

  browser.ListFiles_Click(RowOf("[x]"));
  EXPECT_FALSE(browser.CanSave());
  browser.ListFiles_DblClick(RowOf("bad.imy"));
  EXPECT_EQ(Tokens(), "*4c2*5d3");
  EXPECT_THAT(Logged(), Contains("1: Error when decoding file"));

  settings.bAutoPlay = true;
  browser.ListFiles_DblClick(RowOf("good.imy"));
  EXPECT_THAT(sound.beeps, testing::SizeIs(2));
}

TEST_F(BrowserTest, AFolderWithoutABackslashIsMendedAndLogged) {
  folder.MakeFolder("x");
  folder.Write("x/a.imy", TuneText("c2"));
  browser.sBrowseFolder = "c:\\x";
  Fill();
  browser.ListFiles_Click(RowOf("a.imy"));
  browser.ListFiles_DblClick(RowOf("a.imy"));
  EXPECT_EQ(Tokens(), "*4c2");
  EXPECT_THAT(Logged(), ElementsAre("1: Found sBrowseFolder without \\", "1: sBrowseFolder without \\"));
}

TEST_F(BrowserTest, AClickWhileAToneSoundsWaitsForTimer1) {
  FillWith({{"a.imy", "c2"}, {"b.imy", "d2"}});
  browser.ListFiles_Click(RowOf("a.imy"));
  sound.onBeep = [this] {
    browser.ListFiles_Click(RowOf("b.imy"));
    EXPECT_EQ(Tokens(), "*4c2");
    EXPECT_FALSE(browser.CanSave());
    browser.Timer1_Tick();  // still sounding
    EXPECT_EQ(Tokens(), "*4c2");
  };
  player.PlayTone(100, 523, 3);
  EXPECT_THAT(window.calls, ElementsAre("timer on 1", "timer off 1", "timer on 1"));
  browser.Timer1_Tick();
  EXPECT_EQ(Tokens(), "*4d2");
  EXPECT_EQ(SelectedText(), "b.imy");
  EXPECT_TRUE(browser.CanSave());
}

// With AutoPlay on, opening plays inside the handler of the click; another file can be opened all the same.
TEST_F(BrowserTest, OpeningAFileEndsThePlayingOfTheOneBefore) {
  settings.bAutoPlay = true;
  FillWith({{"a.imy", "c2c2c2c2c2c2c2c2"}, {"b.imy", "a3"}});
  sound.onBeep = [this] {
    if (sound.beeps.size() == 2) browser.ListFiles_Click(RowOf("b.imy"));
    if (sound.beeps.size() == 3) browser.Timer1_Tick();
  };
  pump.onPump = [this](int /*pumps*/) {
    if (!player.NoteIsSounding()) browser.Timer1_Tick();
  };
  browser.ListFiles_Click(RowOf("a.imy"));
  EXPECT_EQ(Tokens(), "*4a3");
  ASSERT_FALSE(sound.beeps.empty());
  EXPECT_LT(sound.beeps.size(), 6U);
  EXPECT_NE(sound.beeps.back(), sound.beeps.front());
  EXPECT_FALSE(controls.IsPlaying());
}

TEST_F(BrowserTest, AClickDuringAReadIsIgnored) {
  FillWith({{"a.imy", "c2"}, {"b.imy", "d2"}});
  pump.onPump = [this](int pumps) {
    if (pumps > 1) return;
    browser.ListFiles_Click(RowOf("b.imy"));
    browser.ListFiles_DblClick(RowOf("b.imy"));
    EXPECT_FALSE(browser.OpenFile(folder / "b.imy"));
    EXPECT_EQ(SelectedText(), "a.imy");
  };
  browser.ListFiles_Click(RowOf("a.imy"));
  EXPECT_GT(pump.pumps, 0);
  EXPECT_EQ(Tokens(), "*4c2");
}

TEST_F(BrowserTest, TheRightButtonSelectsAndShowsTheMenu) {
  FillWith({{"a.imy", "c2"}, {"b.imy", "d2"}});
  browser.ListFiles_Click(RowOf("a.imy"));
  window.onMenu = [this] { browser.ListFiles_Click(browser.SelectedRow()); };
  browser.ListFiles_MouseDown(1, RowOf("b.imy"));
  browser.ListFiles_MouseDown(2, FileBrowser::kNoRow);
  EXPECT_THAT(window.calls, IsEmpty());
  EXPECT_EQ(SelectedText(), "a.imy");
  browser.ListFiles_MouseDown(2, RowOf("b.imy"));
  EXPECT_THAT(window.calls, ElementsAre("menu"));
  EXPECT_EQ(SelectedText(), "b.imy");
  EXPECT_EQ(Tokens(), "*4c2");
  EXPECT_FALSE(browser.CanSave()) << "the melody of a.imy must not be saved over b.imy";
}

TEST_F(BrowserTest, DeletesTheSelectedFile) {
  for (const char* name : {"a.imy", "b.imy", "[x]"}) folder.Write(name, TuneText("c2"));
  folder.MakeFolder("x");
  Fill();
  browser.ListFiles_MouseDown(2, RowOf("[x]"));
  browser.mnuDelete_Click();
  EXPECT_THAT(folder.Names(), ElementsAre("[x]", "a.imy", "b.imy", "x"));
  browser.ListFiles_MouseDown(2, RowOf("a.imy"));
  browser.mnuDelete_Click();
  EXPECT_EQ(Rows(), "[x] b.imy ");
  EXPECT_EQ(browser.SelectedRow(), FileBrowser::kNoRow);
  EXPECT_THAT(Logged(), IsEmpty());
  browser.ListFiles_MouseDown(2, RowOf("b.imy"));
  std::filesystem::remove(folder / "b.imy");
  browser.mnuDelete_Click();
  EXPECT_EQ(Rows(), "[x] ");
  EXPECT_THAT(Logged(), ElementsAre("1: Could not find the file in bDeleteFile....->c:\\b.imy"));
}

TEST_F(BrowserTest, RenamesWithinTheFolder) {
  const std::map<std::string, std::string> refused = {
      {"", "the name is empty"},  {".", "that of a folder"},
      {"..", "that of a folder"}, {"x\\d", "separator"},
      {"x/d", "separator"},       {"../d", "separator"},
      {"z:d", "separator"},       {std::string("d\0e", 3), "separator"},
      {"a.b", "exists"},          {std::string(300, 'd'), "copying failed"}};
  folder.Write("a.b.IMY", TuneText("c2"));
  folder.Write("c.imy", TuneText("d2"));
  folder.MakeFolder("x");
  const auto rename = [this](const char* row, const std::optional<std::string>& newName) {
    Fill();
    browser.ListFiles_MouseDown(2, RowOf(row));
    window.newName = newName;
    browser.mnuRename_Click();
  };
  for (const auto& [newName, reason] : refused) {
    rename("a.b.IMY", newName);
    EXPECT_THAT(window.calls, ElementsAre("menu", "rename a.b"));
    EXPECT_EQ(Rows(), "[x] a.b.IMY c.imy ");
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr(reason)));
  }
  rename("a.b.IMY", std::nullopt);
  EXPECT_EQ(Rows(), "[x] a.b.IMY c.imy ");
  EXPECT_THAT(log.lines, IsEmpty());
  rename("a.b.IMY", "d e");
  EXPECT_EQ(Rows(), "[x] c.imy d e.IMY ");
  EXPECT_EQ(folder.Read("d e.IMY"), TuneText("c2"));
  EXPECT_THAT(folder.Names(), ElementsAre("c.imy", "d e.IMY", "x"));
  rename("[x]", "y");
  EXPECT_THAT(window.calls, ElementsAre("menu"));
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(BrowserTest, AFolderThatVanishesIsLogged) {
  for (const char* browsed : {"c:\\gone\\", "q:\\", "c:", "", "c:\\..\\", "nonsense"}) {
    browser.sBrowseFolder = browsed;
    log.lines.clear();
    browser.UpdateListFiles();
    EXPECT_THAT(Logged(), ElementsAre("1: Could not list all folders in UpdateListFiles",
                                      "1: Could not list all files in UpdateListFiles"));
    browser.ListFiles_DblClick(0);
  }
}

TEST_F(BrowserTest, AFileFromOutsideOpensAsIfClicked) {
  folder.MakeFolder("x");
  folder.Write("x/a.MEL", "+CdE");
  folder.Write("x/b.txt", "+CdE");
  EXPECT_TRUE(browser.OpenFile(folder / "x/a.MEL"));
  EXPECT_EQ(ws.iNoteMode, FormatMode::Melody);
  EXPECT_EQ(browser.sBrowseFolder, "C:\\x\\");
  EXPECT_EQ(SelectedText(), "a.MEL");
  EXPECT_TRUE(browser.CanSave());
  EXPECT_EQ(ws.melody.Elements().size(), 3U);
  EXPECT_THAT(Logged(), IsEmpty());

  EXPECT_FALSE(browser.OpenFile(folder / "x/b.txt"));
  EXPECT_THAT(Logged(), ElementsAre("2: Not a melody file (imy, emy, rtx, mel)->C:\\x\\b.txt"));
  log.lines.clear();
  EXPECT_FALSE(browser.OpenFile(folder / "gone/a.imy"));
  EXPECT_THAT(Logged(), ElementsAre("1: Error when decoding file"));
  EXPECT_EQ(browser.sBrowseFolder, "C:\\x\\");
  EXPECT_EQ(ws.melody.Elements().size(), 3U);
}

}  // namespace
}  // namespace trillomat
