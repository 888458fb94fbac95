#include "files/files_fixture.h"

namespace trillomat {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(FilesTest, ListsFoldersAndTheFilesOfTheMode) {
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
    host.EnterMode(mode);
    EXPECT_EQ(Rows(), rows);
  }
  browser.DoubleClick(RowOf("[x]"));
  EXPECT_EQ(browser.Folder(), "c:\\x\\");
  EXPECT_EQ(Rows(), "[Previous] [Previous] ");
  browser.DoubleClick(1);
  EXPECT_EQ(browser.Folder(), "c:\\x\\Previous\\");
  browser.DoubleClick(0);
  EXPECT_EQ(browser.Folder(), "c:\\x\\");
  browser.DoubleClick(0);
  EXPECT_EQ(browser.Folder(), "c:\\");
  EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(FilesTest, AGestureOpensAFileOnce) {
  folder.Write("bad.imy", "no melody at all");
  folder.MakeFolder("x");
  FillWith({{"good.imy", "c2*5d3"}});
  host.meanwhile = [this] { browser.DoubleClick(RowOf("good.imy")); };
  Click("good.imy");
  EXPECT_EQ(host.opened, 1) << "its second press comes while it plays";
  host.meanwhile = nullptr;
  EXPECT_EQ(Tokens(), "*4c2*5d3");
  EXPECT_EQ(document.Cursor(), -1);
  EXPECT_EQ(document.Info().name, "Tune");
  EXPECT_EQ(document.File(), folder / "good.imy");
  EXPECT_FALSE(document.IsChanged());
  EXPECT_TRUE(browser.CanSave());
  EXPECT_THAT(Logged(), IsEmpty());

  Click("[x]");
  EXPECT_FALSE(browser.CanSave());
  Click("bad.imy");
  browser.DoubleClick(RowOf("bad.imy"));
  EXPECT_EQ(Tokens(), "*4c2*5d3");
  EXPECT_THAT(Logged(), ElementsAre("1: Error when decoding file"));
  EXPECT_THAT(host.notice, testing::StartsWith("Not opened: "));
  EXPECT_EQ(host.opened, 1);
  Click("good.imy");
  EXPECT_EQ(host.notice, "");
}

TEST_F(FilesTest, WhatARefusedFileSetStaysForTheNextOne) {
  folder.Write("bad.imy", "BEGIN:IMELODY\r\nNAME:Bad\r\nBEAT:77\r\nMELODY:zz\r\n");
  FillWith({{"good.imy", "c2"}});
  folder.Write("plain.imy", "MELODY:d2\r\nEND:IMELODY\r\n");
  Fill();
  Click("good.imy");
  Click("bad.imy");
  EXPECT_EQ(document.Info().name, "Tune");
  EXPECT_EQ(record.info.name, "Bad");
  Click("plain.imy");
  EXPECT_EQ(document.Info().name, "Bad");
  EXPECT_EQ(document.Info().bpm, 77);
}

TEST_F(FilesTest, AFolderWithoutABackslashIsMendedAndLogged) {
  folder.MakeFolder("x");
  folder.Write("x/a.imy", TuneText("c2"));
  browser.SetFolder("c:\\x");
  Fill();
  Click("a.imy");
  Click("");
  browser.DoubleClick(RowOf("a.imy"));
  EXPECT_EQ(Tokens(), "*4c2");
  EXPECT_THAT(Logged(), ElementsAre("1: Found sBrowseFolder without \\", "1: sBrowseFolder without \\"));
}

TEST_F(FilesTest, AClickWhileAToneSoundsWaitsForTheTimer) {
  FillWith({{"a.imy", "c2"}, {"b.imy", "d2"}});
  Click("a.imy");
  host.toneSounds = true;
  Click("b.imy");
  browser.DoubleClick(RowOf("b.imy"));
  EXPECT_FALSE(browser.CanSave());
  browser.ClickTimerRan();
  EXPECT_EQ(Tokens(), "*4c2");
  EXPECT_THAT(host.calls, ElementsAre("timer on", "timer off", "stop", "timer on"));
  host.toneSounds = false;
  browser.ClickTimerRan();
  EXPECT_EQ(Tokens(), "*4d2");
  EXPECT_EQ(SelectedText(), "b.imy");
  EXPECT_TRUE(browser.CanSave());
  EXPECT_EQ(host.opened, 2);
}

// A click that waits for its tone never opens its file in the middle of something else.
TEST_F(FilesTest, AClickThatWaitsStaysOutOfOtherOperations) {
  struct Case {
    std::string_view name;
    std::function<void()> operation;
    std::string tokens;  ///< once the timer has run again
  };
  ReadResult imported;
  imported.elements = ElementsOf("e2");
  const Case cases[] = {
      {"Save As", [this] { save.SaveAs(); }, "*4d2"},
      {"Save As, cancelled", [this] { host.savePath.reset(), save.SaveAs(); }, "*4d2"},
      {"Rename", [this] { browser.RenameSelected(); }, "*4d2"},
      {"export", [this] { host.meanwhile(); }, "*4d2"},
      {"import", [&] { host.meanwhile(), browser.TakeImported(ReadResult(imported)); }, "*4e2"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    folder.Write("new.imy", "");
    FillWith({{"a.imy", "c2"}, {"b.imy", "d2"}});
    Click("a.imy");
    host.toneSounds = true;
    Click("b.imy");
    host.toneSounds = false;
    host.savePath = folder / "new.imy";
    host.meanwhile = [this] {
      auto own = operations.Begin();  // as the import and the export window have it
      host.calls.clear();
      browser.ClickTimerRan();
      EXPECT_THAT(host.calls, ElementsAre("timer off", "timer on"));
      EXPECT_EQ(Tokens(), "*4c2");
      for (const auto& command :
           {&FileBrowser::DeleteSelected, &FileBrowser::RenameSelected, &FileBrowser::RecoverLast}) {
        (browser.*command)();
      }
      save.Save();
      browser.ChooseDrive("Z:");
      EXPECT_FALSE(browser.OpenFile(folder / "b.imy"));
      EXPECT_THAT(host.calls, ElementsAre("timer off", "timer on"));
      EXPECT_EQ(Tokens(), "*4c2");
    };
    c.operation();
    if (c.name == "Save As") {
      EXPECT_THAT(folder.Read("new.imy"), HasSubstr("MELODY:c2\r\n"));
    }
    host.meanwhile = nullptr;
    browser.ClickTimerRan();
    EXPECT_EQ(Tokens(), c.tokens);
  }
}

TEST_F(FilesTest, AClickDuringAReadIsIgnored) {
  FillWith({{"a.imy", "c2"}, {"b.imy", "d2"}});
  pump.onPump = [this](int pumps) {
    if (pumps > 1) return;
    Click("b.imy");
    browser.DoubleClick(RowOf("b.imy"));
    browser.OpenMenu(RowOf("b.imy"));
    EXPECT_EQ(SelectedText(), "a.imy");
  };
  Click("a.imy");
  EXPECT_GT(pump.pumps, 0);
  EXPECT_EQ(Tokens(), "*4c2");
}

TEST_F(FilesTest, TheRightButtonSelectsAndShowsTheMenu) {
  FillWith({{"a.imy", "c2"}, {"b.imy", "d2"}});
  Click("a.imy");
  host.meanwhile = [this] { browser.Click(browser.SelectedRow()); };
  browser.OpenMenu(FileBrowser::kNoRow);
  EXPECT_THAT(host.calls, IsEmpty());
  EXPECT_EQ(SelectedText(), "a.imy");
  browser.OpenMenu(RowOf("b.imy"));
  EXPECT_THAT(host.calls, ElementsAre("menu"));
  EXPECT_EQ(SelectedText(), "b.imy");
  EXPECT_EQ(Tokens(), "*4c2");
  EXPECT_FALSE(browser.CanSave()) << "the song of a.imy must not be saved over b.imy";
  browser.OpenMenu(RowOf("a.imy"));
  EXPECT_TRUE(browser.CanSave());
}

TEST_F(FilesTest, TheSelectionSaysWhatSaveOverwrites) {
  struct Case {
    std::string_view name;
    std::function<void()> command;
    std::string selected;
  };
  const auto saveAs = [this](const std::string& name) {
    host.savePath = folder / name;
    save.SaveAs();
  };
  folder.MakeFolder("x");
  const Case cases[] = {
      {"refresh", [this] { browser.Refresh(); }, "a.imy"},
      {"edit and Save", [this] { Compose("g2"), save.Save(); }, "a.imy"},
      {"Save As beside it", [&] { saveAs("b.imy"); }, "b.imy"},
      {"Save As elsewhere", [&] { saveAs("x/b.imy"); }, ""},
      {"Save As for which the list has no row", [&] { saveAs("b.imy.txt"); }, ""},
      {"Save As that fails", [&] { saveAs("gone/b.imy"); }, "a.imy"},
      {"import", [this] { browser.TakeImported({}); }, ""},
      {"change of mode", [this] { host.EnterMode(FormatMode::Rtttl), host.EnterMode({}); }, ""},
      {"another folder", [this] { browser.DoubleClick(RowOf("[x]")), browser.DoubleClick(0); }, ""},
      {"refused file", [this] { Click("bad.imy"), browser.Refresh(); }, ""},
      {"deleted elsewhere", [this] { std::filesystem::remove(folder / "a.imy"), browser.Refresh(); }, ""},
      {"Rename", [this] { host.newName = "c", browser.RenameSelected(); }, ""}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    folder.Write("bad.imy", "");
    FillWith({{"a.imy", "c2"}});
    Click("a.imy");
    const int opened = host.opened;
    c.command();
    EXPECT_EQ(SelectedText(), c.selected);
    EXPECT_EQ(browser.CanSave(), !c.selected.empty());
    EXPECT_EQ(host.opened, opened) << "nothing is read again";
    // Ctrl+S writes over the selected file, and asks for another where none is selected.
    if (document.IsEmpty()) Compose("c2");
    host.dialog.reset();
    host.savePath.reset();
    Compose("b2");
    save.SaveOrSaveAs();
    EXPECT_EQ(host.dialog.has_value(), c.selected.empty());
    if (!c.selected.empty()) {
      EXPECT_THAT(folder.Read(c.selected), HasSubstr("MELODY:b2\r\n"));
    }
    if (c.selected == "b.imy") {
      EXPECT_EQ(folder.Read("a.imy"), TuneText("c2"));
    }
    EXPECT_EQ(document.IsChanged(), c.selected.empty());
    for (const char* name : {"b.imy", "c.imy"}) std::filesystem::remove(folder / name);
  }
}

TEST_F(FilesTest, DeletesTheSelectedFile) {
  for (const char* name : {"a.imy", "b.imy", "[x]"}) folder.Write(name, TuneText("c2"));
  folder.MakeFolder("x");
  Fill();
  browser.OpenMenu(RowOf("[x]"));
  browser.DeleteSelected();
  EXPECT_THAT(folder.Names(), ElementsAre("[x]", "a.imy", "b.imy", "x"));
  browser.OpenMenu(RowOf("a.imy"));
  browser.DeleteSelected();
  EXPECT_EQ(Rows(), "[x] b.imy ");
  EXPECT_EQ(browser.SelectedRow(), FileBrowser::kNoRow);
  EXPECT_THAT(Logged(), IsEmpty());
  browser.OpenMenu(RowOf("b.imy"));
  std::filesystem::remove(folder / "b.imy");
  browser.DeleteSelected();
  EXPECT_EQ(Rows(), "[x] ");
  EXPECT_THAT(Logged(), ElementsAre("1: Could not find the file in bDeleteFile....->c:\\b.imy"));
  EXPECT_THAT(host.notice, testing::StartsWith("Not deleted: "));
}

TEST_F(FilesTest, RenamesWithinTheFolderAndSaysWhyNot) {
  const std::map<std::string, std::string> refused = {{"", "the name is empty"},
                                                      {".", "the name is that of a folder"},
                                                      {"..", "the name is that of a folder"},
                                                      {"x\\d", "the name holds a separator"},
                                                      {"x/d", "the name holds a separator"},
                                                      {"../d", "the name holds a separator"},
                                                      {"z:d", "the name holds a separator"},
                                                      {"a.b", "a file of that name exists"},
                                                      {std::string(300, 'd'), "copying failed"}};
  folder.Write("a.b.IMY", TuneText("c2"));
  folder.Write("c.imy", TuneText("d2"));
  folder.MakeFolder("x");
  const auto rename = [this](const char* row, const std::optional<std::string>& newName) {
    Fill();
    browser.OpenMenu(RowOf(row));
    host.newName = newName;
    browser.RenameSelected();
  };
  for (const auto& [newName, reason] : refused) {
    rename("a.b.IMY", newName);
    EXPECT_THAT(host.calls, ElementsAre("menu", "rename a.b"));
    EXPECT_EQ(Rows(), "[x] a.b.IMY c.imy ");
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("Could not rename the file: " + reason + "->c:\\")));
    EXPECT_EQ(host.notice, "Not renamed: " + reason);
  }
  rename("a.b.IMY", std::nullopt);
  EXPECT_EQ(Rows(), "[x] a.b.IMY c.imy ");
  EXPECT_THAT(log.lines, IsEmpty());
  rename("a.b.IMY", std::string("d\n\x7f"
                                "e\0\xC2\x85\xE2\x80\xA8\xC3\xA9",
                                12));
  EXPECT_EQ(Rows(), "[x] c.imy d  e   \xC3\xA9.IMY ") << "it stays one line";
  EXPECT_EQ(folder.Read("d  e   \xC3\xA9.IMY"), TuneText("c2"));
  EXPECT_EQ(host.notice, "");
  rename("[x]", "y");
  EXPECT_THAT(host.calls, ElementsAre("menu"));
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(FilesTest, AFolderThatVanishesIsLogged) {
  for (const char* browsed : {"c:\\gone\\", "q:\\", "c:", "", "c:\\..\\", "nonsense"}) {
    browser.SetFolder(browsed);
    log.lines.clear();
    browser.Refresh();
    EXPECT_THAT(Logged(), ElementsAre("1: Could not list all folders in UpdateListFiles",
                                      "1: Could not list all files in UpdateListFiles"));
    browser.DoubleClick(0);
  }
}

TEST_F(FilesTest, AFileFromOutsideOpensAsIfClicked) {
  folder.MakeFolder("x");
  folder.Write("x/a.MEL", "+CdE");
  folder.Write("x/b.txt", "+CdE");
  folder.Write("bad.emy", "no melody at all");
  EXPECT_TRUE(browser.OpenFile(folder / "x/a.MEL"));
  EXPECT_EQ(document.Mode(), FormatMode::Melody);
  EXPECT_EQ(browser.Folder(), "C:\\x\\");
  EXPECT_EQ(SelectedText(), "a.MEL");
  EXPECT_TRUE(browser.CanSave());
  EXPECT_EQ(document.Elements().size(), 3U);
  EXPECT_THAT(Logged(), IsEmpty());

  struct Case {
    std::string file;
    std::string line;
    std::string notice;
  };
  const Case cases[] = {
      {"x/b.txt", "2: Not a melody file (imy, emy, rtx, mel)->C:\\x\\b.txt", ""},
      {"gone/a.MEL", "1: Error when decoding file", "Not opened: there is no file a.MEL"},
      {"x", "2: Not a melody file (imy, emy, rtx, mel)->C:\\x", ""},
      {"bad.emy", "1: Error when decoding file", "Not opened: the file holds no \"MELODY:\""}};
  for (const Case& c : cases) {
    log.lines.clear();
    host.notice.clear();
    EXPECT_FALSE(browser.OpenFile(folder / c.file));
    EXPECT_THAT(Logged(), ElementsAre(c.line));
    EXPECT_EQ(host.notice, c.notice);
    EXPECT_EQ(document.Mode(), FormatMode::Melody);
    EXPECT_EQ(document.Elements().size(), 3U);
    EXPECT_EQ(host.opened, 1);
  }
  EXPECT_EQ(browser.Folder(), "C:\\") << "that of the last file that is there";
  EXPECT_FALSE(browser.CanSave());
}

}  // namespace
}  // namespace trillomat
