#include <array>

#include "files/files_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(FilesTest, ListsFoldersAndTheFilesOfTheMode) {
  for (const char* name : {"Zeta.imy", "alpha.IMY", "b.emy", "c.rtx", "d.mel", "imy"}) folder.Write(name, "");
  for (const char* name : {"x", "folder.imy", "x/Previous"}) folder.MakeFolder(name);
  const std::vector<std::string> rows{"alpha.IMY Zeta.imy ", "b.emy ", "c.rtx ", "d.mel "};
  for (const ModeLimits& limits : kModeLimits) {
    host.EnterMode(limits.mode);
    EXPECT_EQ(Rows(), "[folder.imy] [x] " + rows[static_cast<size_t>(limits.mode)]);
  }
  browser.DoubleClick(RowOf("[x]"));
  EXPECT_EQ(browser.Folder(), "c:\\x\\");
  EXPECT_EQ(Rows(), "[Previous] [Previous] ");
  browser.DoubleClick(1);
  EXPECT_EQ(browser.Folder(), "c:\\x\\Previous\\");
  for (const char* folder : {"c:\\x\\", "c:\\"}) {
    browser.DoubleClick(0);
    EXPECT_EQ(browser.Folder(), folder);
  }
}

TEST_F(FilesTest, AGestureOpensAFileOnceAndARefusedOneChangesNothing) {
  folder.Write("bad.imy", "NAME:Bad\r\nMELODY:zz\r\n");
  folder.Write("nameless.imy", "MELODY:d2\r\nEND:IMELODY\r\n");
  FillWith({{"good.imy", "c2*5d3"}});
  host.meanwhile = [this] { browser.DoubleClick(RowOf("good.imy")); };
  Click("good.imy");
  EXPECT_EQ(host.opened, 1) << "its second press comes while it plays";
  host.meanwhile = nullptr;
  Compose("e2");
  Click("good.imy");
  for (int press = 0; press < 2; ++press) {
    EXPECT_EQ(Tokens(), "*4c2*5d3");
    EXPECT_EQ(document.Cursor(), -1);
    EXPECT_EQ(document.Info().name, "Tune");
    EXPECT_EQ(document.File(), folder / "good.imy");
    EXPECT_FALSE(document.IsChanged());
    EXPECT_TRUE(browser.CanSave());
    EXPECT_EQ(log.lines.empty(), press == 0);
    if (press == 0) Click("bad.imy");
    browser.DoubleClick(RowOf("bad.imy"));
  }
  EXPECT_THAT(log.lines, ElementsAre("1: Error in bReadFile_IMelody", "1: Error when decoding file"));
  EXPECT_THAT(host.notice, testing::StartsWith("Not opened: "));
  Click("nameless.imy");
  EXPECT_EQ(host.notice, "");
  EXPECT_EQ(document.Info().name, "Bad") << "the next read starts from what the refused one left";
}

// It waits for the timer, and never opens its file in the middle of something else.
TEST_F(FilesTest, AClickWhileAToneSoundsWaits) {
  ReadResult imported;
  imported.elements = ElementsOf("e2");
  const std::pair<std::string, std::function<void()>> commands[] = {
      {"nothing", [this] { host.meanwhile(); }},
      {"Save As", [this] { save.SaveAs(); }},
      {"Rename", [this] { browser.RenameSelected(); }},
      {"import", [&] { host.meanwhile(), browser.TakeImported(ReadResult(imported)); }}};
  for (const auto& [name, command] : commands) {
    SCOPED_TRACE(name);
    FillWith({{"a.imy", "c2"}, {"b.imy", "d2"}});
    Click("a.imy");
    host.toneSounds = true;
    Click("b.imy");
    browser.DoubleClick(RowOf("b.imy"));
    browser.ClickTimerRan();
    EXPECT_THAT(host.calls, ElementsAre("timer on", "timer off", "stop", "timer on"));
    EXPECT_FALSE(browser.CanSave());
    host.toneSounds = false;
    host.savePath = folder / "new.imy";
    host.meanwhile = [this] {
      const auto own = operations.Begin();  // as the import and the export window have it
      host.calls.clear();
      browser.ClickTimerRan();
      for (const auto& other :
           {&FileBrowser::DeleteSelected, &FileBrowser::RenameSelected, &FileBrowser::RecoverLast}) {
        (browser.*other)();
      }
      save.Save();
      browser.ChooseDrive("Z:");
      EXPECT_FALSE(browser.OpenFile(folder / "b.imy"));
      EXPECT_THAT(host.calls, ElementsAre("timer off", "timer on"));
      EXPECT_EQ(Tokens(), "*4c2");
    };
    command();
    host.meanwhile = nullptr;
    browser.ClickTimerRan();
    EXPECT_EQ(Tokens(), name == "import" ? "*4e2" : "*4d2");
    EXPECT_EQ(SelectedText(), name == "import" ? "" : "b.imy");
    if (name != "Save As") continue;
    EXPECT_THAT(folder.Read("new.imy"), HasSubstr("MELODY:c2\r\n"));
    std::filesystem::remove(folder / "new.imy");
  }
}

TEST_F(FilesTest, TheRightButtonSelectsAndClicksDuringAReadAreIgnored) {
  FillWith({{"a.imy", "c2"}, {"b.imy", "d2"}});
  pump.onPump = [this](int /*pumps*/) {
    Click("b.imy");
    browser.DoubleClick(RowOf("b.imy"));
    browser.OpenMenu(RowOf("b.imy"));
  };
  Click("a.imy");
  EXPECT_GT(pump.pumps, 0);
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
    // Ctrl+S writes over the selected file alone, and asks for another where none is selected.
    host.dialog.reset();
    host.savePath.reset();
    Compose("b2");
    save.SaveOrSaveAs();
    EXPECT_EQ(host.dialog.has_value(), c.selected.empty());
    EXPECT_EQ(document.IsChanged(), c.selected.empty());
    for (const char* name : {"a.imy", "b.imy", "c.imy"}) {
      const bool written = folder.Read(name).find("MELODY:b2\r\n") != std::string::npos;
      EXPECT_EQ(written, c.selected == name);
      std::filesystem::remove(folder / name);
    }
  }
}

TEST_F(FilesTest, DeletesTheSelectedFile) {
  folder.MakeFolder("x");
  folder.Write("[x]", "");
  FillWith({{"a.imy", "c2"}, {"b.imy", "c2"}});
  const auto remove = [this](const char* row) {
    browser.OpenMenu(RowOf(row));
    if (row == std::string("b.imy")) std::filesystem::remove(folder / row);
    browser.DeleteSelected();
  };
  remove("[x]");
  EXPECT_THAT(folder.Names(), ElementsAre("[x]", "a.imy", "b.imy", "x"));
  remove("a.imy");
  EXPECT_EQ(Rows(), "[x] b.imy ");
  EXPECT_EQ(browser.SelectedRow(), FileBrowser::kNoRow);
  EXPECT_THAT(log.lines, IsEmpty());
  remove("b.imy");
  EXPECT_EQ(Rows(), "[x] ");
  EXPECT_THAT(log.lines, ElementsAre("1: Could not find the file in bDeleteFile....->c:\\b.imy"));
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

TEST_F(FilesTest, AFileFromOutsideOpensAsIfClicked) {
  folder.MakeFolder("x");
  folder.Write("x/a.MEL", "+CdE");
  folder.Write("bad.emy", "no melody at all");
  EXPECT_TRUE(browser.OpenFile(folder / "x/a.MEL"));
  EXPECT_EQ(browser.Folder(), "C:\\x\\");
  EXPECT_EQ(SelectedText(), "a.MEL");
  EXPECT_TRUE(browser.CanSave());
  EXPECT_THAT(log.lines, IsEmpty());

  const std::string failure = "1: Error when decoding file";
  const std::array<std::string, 3> refused[] = {
      {"x/b.txt", "2: Not a melody file (imy, emy, rtx, mel)->C:\\x\\b.txt", ""},
      {"gone/a.MEL", failure, "Not opened: there is no file a.MEL"},
      {"bad.emy", failure,
       "Not opened: bad.emy, line 1, column 1: the file holds no \"MELODY:\" (\"no melody at all\"). "
       "Notes stand between \"MELODY:\" and \"END:EMELODY\"."}};
  for (const auto& [file, line, notice] : refused) {
    log.lines.clear();
    EXPECT_FALSE(browser.OpenFile(folder / file));
    EXPECT_THAT(log.lines, ElementsAre(line));
    EXPECT_EQ(host.notice, notice);
    EXPECT_EQ(document.Mode(), FormatMode::Melody);
    EXPECT_EQ(document.Size(), 3U);
  }
  EXPECT_EQ(browser.Folder(), "C:\\") << "that of the last file that is there";
  EXPECT_FALSE(browser.CanSave());
}

TEST_F(FilesTest, LongWorkTellsHowFarItHasCome) {
  std::string notes;
  for (int i = 0; i < 45'000; ++i) notes += "c2";
  folder.Write("long.imy", "BEGIN:IMELODY\r\nMELODY:" + notes + "\r\nEND:IMELODY\r\n");
  ASSERT_TRUE(browser.OpenFile(folder / "long.imy"));
  EXPECT_THAT(host.progress, testing::ElementsAre("Reading long.imy: 20000 elements",
                                                  "Reading long.imy: 40000 elements", ""));
}

}  // namespace
}  // namespace trillomat
