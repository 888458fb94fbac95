// What only POSIX has: names of any bytes, drives laid over one tree, links, pipes, owners, very many files.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>

#include "files/files_fixture.h"
#include "files/read_file.h"
#include "files/replace_file.h"
#include "files/system_faults.h"

namespace trillomat {
namespace {

using testing::Contains;
using testing::ElementsAre;

TEST_F(FilesTest, ChangesTheDrive) {
  ASSERT_TRUE(browser.FillDrives());
  EXPECT_THAT(browser.Drives(), ElementsAre("C: " + folder.Path().string(), "Z: /"));
  FillWith({{"a.imy", "c2"}});
  Click("a.imy");
  EXPECT_TRUE(browser.CanSave());
  browser.ChooseDrive(browser.Drives()[1]);
  EXPECT_EQ(browser.Folder(), "Z:\\");
  EXPECT_EQ(browser.CurrentDrive(), 1);
  EXPECT_NE(RowOf("[etc]"), FileBrowser::kNoRow);
  EXPECT_FALSE(browser.CanSave());
  EXPECT_THAT(log.lines, Contains("1: Change drive"));
}

TEST_F(FilesTest, NamesOfAnyBytesAreListedOrLeftOut) {
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
    Compose("");
    browser.Click(row);
    EXPECT_EQ(Tokens(), "*4c2");
    browser.Refresh();
    EXPECT_EQ(browser.SelectedRow(), row);
  }
  EXPECT_THAT(log.lines, Contains("1: Left out of the list->a:b.imy"));
  EXPECT_THAT(log.lines, Contains("1: Left out of the list->c\\d.imy"));
  browser.OpenMenu(2);
  std::filesystem::remove(folder / "line\nfeed.imy");
  browser.DeleteSelected();
  EXPECT_THAT(log.lines, Contains("1: Could not find the file in bDeleteFile....->c:\\line?feed.imy"));
  EXPECT_FALSE(browser.OpenFile(folder / "pipe.imy"));
  EXPECT_EQ(host.notice, "Not opened: pipe.imy is no plain file");
  browser.DoubleClick(0);
  EXPECT_EQ(Rows(), "[Previous] ");
  EXPECT_THAT(log.lines, Contains("1: Left out of the list->y:z"));
}

// Save and Save As, and the same of the command line: only a plain file is replaced, whatever leads to it.
TEST_F(FilesTest, OnlyPlainFilesAreReplaced) {
  folder.MakeFolder("x");
  struct Case {
    const char* file;
    const char* link;    ///< what it is a link to, if it is one
    const char* target;  ///< what holds the song afterwards
  };
  const Case cases[] = {
      {"plain.imy", nullptr, "plain.imy"},        {"link.imy", "plain.imy", "plain.imy"},
      {"again.imy", "link.imy", "plain.imy"},     {"there.imy", "x/there.imy", "x/there.imy"},
      {"dangling.imy", "x/new.imy", "x/new.imy"}, {"x/up.imy", "../up2.imy", "up2.imy"}};
  folder.Write("x/there.imy", "old");
  folder.Write("plain.imy", "old");
  for (const Case& c : cases) {
    if (c.link != nullptr) std::filesystem::create_symlink(c.link, folder / c.file);
  }
  for (const Case& c : cases) {
    SCOPED_TRACE(c.file);
    Compose("*5d3");
    host.savePath = folder / c.file;
    save.SaveAs();
    EXPECT_EQ(std::filesystem::is_symlink(folder / c.file), c.link != nullptr);
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(folder / c.target)));
    EXPECT_EQ(folder.Read(c.target), FileBytes());
    std::filesystem::remove(folder / c.target);
  }
  std::filesystem::create_symlink("circle.imy", folder / "circle.imy");
  save.SaveAs();
  EXPECT_FALSE(ReplaceFile(folder / "circle.imy", store, WriteBytes("new")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "circle.imy"));
}

TEST_F(FilesTest, APipeIsWrittenInto) {
  const auto pipe = folder / "pipe.imy";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  Compose("*5d3");
  host.savePath = pipe;
  save.SaveAs();
  EXPECT_EQ(log.lines.back(), "1: File Saved");
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
  std::array<char, 1000> bytes{};
  const ssize_t count = read(reader, bytes.data(), bytes.size());
  EXPECT_EQ(std::string(bytes.data(), static_cast<size_t>(std::max<ssize_t>(count, 0))), FileBytes());
  close(reader);
  EXPECT_THAT(folder.Names(), ElementsAre("pipe.imy"));
  save.SaveAs();
  EXPECT_EQ(host.notice, "Not saved: the file cannot be written (No such device or address)");
  EXPECT_FALSE(ReplacePrivateFile(pipe, store, "secret"));
  EXPECT_EQ(ReadFile(pipe, store).Why().why, "it is no plain file");
}

// What a rename meets when the file was replaced after the list was filled.
TEST_F(FilesTest, APipeIsNotWaitedForToBeCopied) {
  const auto pipe = folder / "pipe.imy";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(store.Copy(pipe, folder / "copy.imy"));
  EXPECT_THAT(folder.Names(), ElementsAre("pipe.imy"));
}

// A name alone does not make a file one that a killed program left.
TEST_F(FilesTest, OnlyWhatIsMarkedAsAbandonedIsSwept) {
  Faults().medium = Medium::NoNamelessFiles;
  auto made = store.Make(folder / "a.imy", false);
  ASSERT_TRUE(made);
  const std::string name = folder.Names().at(0);
  std::filesystem::copy(folder / name, folder / "copy");
  std::filesystem::create_hard_link(folder / name, folder / "same");
  store.Sweep(folder.Path());
  EXPECT_THAT(folder.Names(), ElementsAre(name, "copy", "same")) << "somebody works on it";
  made.reset();
  std::filesystem::rename(folder / "copy", folder / name);
  store.Sweep(folder.Path());
  EXPECT_THAT(folder.Names(), ElementsAre(name, "same")) << "it is another's";
  std::filesystem::rename(folder / "same", folder / name);
  made = store.Make(folder / "a.imy", false);
  store.DeleteUnfinished();
  EXPECT_FALSE(made->TakePlace());
  store.Sweep(folder.Path());
  EXPECT_THAT(folder.Names(), ElementsAre());
  Faults() = {};
}

TEST_F(FilesTest, AReplacedFileKeepsItsOwnerAndRights) {
  const std::string name = std::string(251, 'n') + ".imy";  // no room is needed for a suffix
  folder.Write(name, "old");
  const std::filesystem::path file = folder / name;
  if (geteuid() == 0) {
    ASSERT_EQ(chown(file.c_str(), 65534, 65534), 0);
  }
  ASSERT_EQ(chmod(file.c_str(), 0640), 0);
  const bool attributes = setxattr(file.c_str(), "user.tune", "x", 1, 0) == 0;
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(stat(file.c_str(), &before), 0);
  const int nameless = open(folder.Path().c_str(), O_TMPFILE | O_WRONLY, 0600);  // not every medium has them
  if (nameless >= 0) close(nameless);
  EXPECT_TRUE(ReplaceFile(file, store, [&](std::ostream& stream) {
    stream << "new" << std::flush;
    EXPECT_EQ(folder.Names().size(), nameless >= 0 ? 1U : 2U);
  }));
  ASSERT_EQ(stat(file.c_str(), &after), 0);
  EXPECT_EQ(folder.Read(name), "new");
  EXPECT_NE(before.st_ino, after.st_ino);
  EXPECT_EQ(before.st_mode, after.st_mode);
  EXPECT_EQ(before.st_uid, after.st_uid);
  EXPECT_EQ(before.st_gid, after.st_gid);
  EXPECT_EQ(getxattr(file.c_str(), "user.tune", nullptr, 0), attributes ? 1 : -1);
  EXPECT_TRUE(ReplacePrivateFile(file, store, "secret"));
  ASSERT_EQ(stat(file.c_str(), &after), 0);
  EXPECT_EQ(after.st_mode & 0777U, 0600U);
}

}  // namespace
}  // namespace trillomat
