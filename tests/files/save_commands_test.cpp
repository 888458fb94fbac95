#include "files/files_fixture.h"
#include "files/save_dialog.h"

namespace trillomat {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(FilesTest, SaveWritesOverTheSelectedFileAndIsNotDisturbed) {
  FillWith({{"a.imy", "c2"}});
  Click("a.imy");
  log.lines.clear();
  Compose("*5d3");
  const std::string bytes = FileBytes();
  pump.onPump = [this](int /*pumps*/) {
    save.Save();
    save.SaveAs();
    browser.Refresh();
    Compose("e2 e2");
  };
  save.Save();
  EXPECT_THAT(log.lines, ElementsAre("1: Save file started", "1: Removed file", "1: Saved the file"));
  EXPECT_THAT(host.calls, ElementsAre("Wait", "Save"));
  EXPECT_GT(pump.pumps, 0);
  EXPECT_EQ(folder.Read("a.imy"), bytes);
  EXPECT_THAT(bytes, testing::HasSubstr("*5d3"));
  EXPECT_THAT(folder.Names(), ElementsAre("a.imy"));
  EXPECT_TRUE(browser.CanSave());
  EXPECT_TRUE(document.IsChanged()) << "while it was written";
}

TEST_F(FilesTest, SaveWithoutASongOrAFileChangesNothing) {
  save.Save();
  save.SaveAs();
  EXPECT_THAT(log.lines, ElementsAre("2: Nothing to save", "2: Nothing to save"));
  EXPECT_THAT(host.calls, IsEmpty());
  folder.Write("a.imy", TuneText("c2"));
  folder.MakeFolder("x");
  Fill();
  Compose("c2");
  std::filesystem::remove(folder / "a.imy");
  for (const char* row : {"", "[x]", "a.imy"}) {
    browser.OpenMenu(RowOf(row));
    log.lines.clear();
    save.Save();
    EXPECT_THAT(log.lines,
                ElementsAre("1: Save file started",
                            testing::StartsWith("1: Could not find the file in bDeleteFile....->c:\\"),
                            "1: Could not remove the old file"));
    EXPECT_EQ(host.notice, "Not saved: the file is not there any more");
  }
  EXPECT_THAT(folder.Names(), ElementsAre("x"));
}

TEST_F(FilesTest, SaveAsFollowsTheAnswers) {
  struct Case {
    std::string_view name;
    std::optional<std::string> answer;
    bool yes;
    std::string file;  ///< that holds the song afterwards
    std::vector<std::string> lines;
    std::string notice = {};
  };
  const std::vector<std::string> saved{"1: File Saved"};
  const std::vector<std::string> aborted{"1: Abort Save As file"};
  const std::vector<std::string> inTheWay{"1: Failed to remove the file in bDeleteFile->C:\\folder.imy",
                                          "1: Failed to remove file"};
  const std::vector<std::string> nowhere{"1: Could not make a new file beside->C:\\gone\\new.imy",
                                         "1: Error in bSaveFile_IMelody", "2: Failed to save file"};
  const Case cases[] = {{"cancelled", std::nullopt, true, "", aborted},
                        {"no name", "", true, "", aborted},
                        {"extension appended", "tune", true, "tune.imy", saved},
                        {"blanks behind it", "two  ", true, "two.imy", saved},
                        {"extension there", "x.ImY", true, "x.ImY", saved},
                        {"extension inside", "x.imy.txt", true, "x.imy.txt", saved},
                        {"answered No", "old.imy", false, "", {}},
                        {"answered Yes", "old", true, "old.imy", saved, "Replaced old.imy"},
                        {"a folder in its place", "folder.imy", true, "", inTheWay,
                         "Not saved: the old file cannot be replaced"},
                        {"no such folder", "gone/new.imy", true, "", nowhere,
                         "Not saved: no new file can be made in its folder"}};
  folder.MakeFolder("folder.imy");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    folder.Write("old.imy", "old");
    Fill();
    Compose("*5d3");
    if (c.answer) host.savePath = c.answer->empty() ? "" : folder / *c.answer;
    host.yes = c.yes;
    host.notice.clear();
    save.SaveAs();
    EXPECT_EQ(log.lines.front(), "1: Save As started");
    log.lines.erase(log.lines.begin());
    EXPECT_EQ(log.lines, c.lines);
    EXPECT_THAT(host.notice, testing::StartsWith(c.notice));
    EXPECT_EQ(host.notice.empty(), c.notice.empty());
    EXPECT_EQ(host.calls.front(), "Wait");
    EXPECT_EQ(host.calls.back(), "Save As");
    const bool asked = testing::Value(host.calls, Contains("File Exist|File Already exist! Remove?"));
    EXPECT_EQ(asked, c.answer && (c.answer->starts_with("old") || c.answer->starts_with("folder")));
    if (!c.file.empty()) {
      EXPECT_EQ(folder.Read(c.file), FileBytes());
      EXPECT_EQ(RowOf(c.file) != FileBrowser::kNoRow, !c.file.ends_with("txt"));
    }
    EXPECT_EQ(folder.Read("old.imy") == "old", c.file != "old.imy");
  }
  EXPECT_TRUE(std::filesystem::is_directory(folder / "folder.imy"));
  EXPECT_THAT(folder.Names(),
              ElementsAre("folder.imy", "old.imy", "tune.imy", "two.imy", "x.ImY", "x.imy.txt"));
}

TEST_F(FilesTest, TheSaveDialogOpensForTheMode) {
  Compose("c2");
  host.EnterMode(FormatMode::EMelody);
  save.SaveAs();
  ASSERT_TRUE(host.dialog);
  EXPECT_EQ(host.dialog->folder.lexically_normal(), folder.Path());
  EXPECT_EQ(host.dialog->fileName, "SaveMelody");
  EXPECT_EQ(host.dialog->extension, "emy");
  const std::string caption(LimitsOf(FormatMode::EMelody).caption);
  EXPECT_EQ(host.dialog->filter, caption + std::string(" (*.emy)\0*.emy + Chr$(0)", 24));
  const std::pair<std::string_view, std::string_view> two[] = {{"One", "a"}, {"Two", "b"}};
  EXPECT_EQ(BuildDialogFilter(two), std::string("One (*.a)\0*.a\0Two (*.b)\0*.b + Chr$(0)", 37));
  EXPECT_EQ(ChosenFile(std::string("tune\0rest.imy", 13), "imy"), "tune.imy");
}

TEST_F(FilesTest, ANameThatWillNotComeBackIsSaid) {
  Compose("c2");
  document.Apply({.info = SongInfo{.name = "a:b"}});
  host.savePath = folder / "a.imy";
  save.SaveAs();
  EXPECT_EQ(host.notice, "");
  host.EnterMode(FormatMode::Rtttl);
  host.savePath = folder / "a.rtx";
  save.SaveAs();
  EXPECT_THAT(host.notice, testing::StartsWith("The name \"a:b\" holds \":\""));
  folder.Write("a.rtx", "other");
  save.SaveAs();
  EXPECT_THAT(host.notice, testing::StartsWith("Replaced a.rtx. The name \"a:b\" holds \":\""));
  EXPECT_EQ(host.offer, FileMessage::Offer::Restore);
}

}  // namespace
}  // namespace trillomat
