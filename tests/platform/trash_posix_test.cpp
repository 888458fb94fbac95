#include "platform/trash_posix.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "support/folder_store.h"
#include "support/temp_folder.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::MatchesRegex;
using How = FileKeeper::How;

class TrashTest : public testing::Test {
 protected:
  std::vector<std::string> NamesIn(const std::string& below) const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(home / below)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  TempFolder home;
  FolderStore store{home.Path()};
  Trash trash{store, home / "share/Trash"};
};

TEST_F(TrashTest, KeepsCopiesAndFilesWithTheirPlaceAndDate) {
  home.Write("a b%\xff.imy", "old");
  const auto copy = trash.Keep(home / "a b%\xff.imy", How::Copy);
  ASSERT_TRUE(copy);
  EXPECT_EQ(*copy, home.Path() / "share/Trash/files/a b%\xff.imy");
  EXPECT_EQ(home.Read("share/Trash/files/a b%\xff.imy"), "old");
  EXPECT_THAT(home.Read("share/Trash/info/a b%\xff.imy.trashinfo"),
              MatchesRegex("\\[Trash Info\\]\nPath=" + home.Path().string() +
                           "/a%20b%25%FF\\.imy\nDeletionDate=20..-..-..T..:..:..\n"));
  for (const char* folder : {"share/Trash", "share/Trash/files", "share/Trash/info"}) {
    EXPECT_EQ(fs::status(home / folder).permissions(), fs::perms::owner_all) << folder;
  }
  const auto moved = trash.Keep(home / "a b%\xff.imy", How::Move);
  ASSERT_TRUE(moved);
  EXPECT_FALSE(fs::exists(home / "a b%\xff.imy"));
  EXPECT_THAT(NamesIn("share/Trash/files"), ElementsAre("a b%\xff 2.imy", "a b%\xff.imy"));
  trash.Discard(*copy);
  EXPECT_THAT(NamesIn("share/Trash/files"), ElementsAre("a b%\xff 2.imy"));
  EXPECT_THAT(NamesIn("share/Trash/info"), ElementsAre("a b%\xff 2.imy.trashinfo"));
}

TEST_F(TrashTest, TakesNoNameThatIsTaken) {
  home.Write("a.imy", "new");
  home.MakeFolder("share/Trash/files");
  home.MakeFolder("share/Trash/info");
  home.Write("share/Trash/info/a.imy.trashinfo", "somebody's");
  home.Write("share/Trash/files/a 2.imy", "somebody's");
  EXPECT_EQ(trash.Keep(home / "a.imy", How::Copy), home / "share/Trash/files/a 3.imy");
  EXPECT_EQ(home.Read("share/Trash/info/a.imy.trashinfo"), "somebody's");
  EXPECT_EQ(home.Read("share/Trash/files/a 2.imy"), "somebody's");
  EXPECT_FALSE(fs::exists(home / "share/Trash/info/a 2.imy.trashinfo"));
  const std::string longName = std::string(240, 'n') + ".imy";
  home.Write(longName, "new");
  EXPECT_TRUE(trash.Keep(home / longName, How::Copy));
}

TEST_F(TrashTest, WhatCannotBeKeptLeavesNothing) {
  home.MakeFolder("share/Trash/files");
  home.MakeFolder("a.imy");
  EXPECT_FALSE(trash.Keep(home / "a.imy", How::Copy));
  EXPECT_FALSE(trash.Keep(home / "gone.imy", How::Move));
  EXPECT_TRUE(NamesIn("share/Trash/files").empty());
  EXPECT_TRUE(NamesIn("share/Trash/info").empty());
  home.Write("file", "");
  EXPECT_FALSE(Trash(store, home / "file/Trash").Keep(home / "file", How::Copy));
}

TEST_F(TrashTest, ThereIsOneWhereADesktopIs) {
  setenv("XDG_DATA_HOME", (home / "share").c_str(), 1);
  unsetenv("XDG_CURRENT_DESKTOP");
  EXPECT_EQ(DesktopTrash(), std::nullopt);
  setenv("XDG_CURRENT_DESKTOP", "GNOME", 1);
  EXPECT_EQ(DesktopTrash(), home / "share/Trash");
  unsetenv("XDG_CURRENT_DESKTOP");
  home.MakeFolder("share/Trash");
  EXPECT_EQ(DesktopTrash(), home / "share/Trash");
  unsetenv("XDG_DATA_HOME");
}

}  // namespace
}  // namespace trillomat
