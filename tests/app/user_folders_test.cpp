#include "platform/user_folders.h"

#include <gtest/gtest.h>

#include "app/log_folder.h"
#include "support/folder_store.h"
#include "support/temp_folder.h"

namespace trillomat {
namespace {

TEST(LogFolderTest, TheFirstFolderThatCanBeWrittenIsTaken) {
  const TempFolder folder;
  FolderStore files(folder.Path());
  folder.Write("file", "");
  EXPECT_EQ(LogFolder(folder.Path(), folder / "state", files), folder.Path());
  EXPECT_EQ(LogFolder(folder / "file", folder / "a/state", files), folder / "a/state");
  EXPECT_EQ(LogFolder({}, folder / "file/state", files), std::nullopt);
  EXPECT_TRUE(std::filesystem::is_empty(folder / "a/state"));
}

#ifndef _WIN32
TEST(UserFoldersTest, NamesNeedNotBeText) {
  setenv("HOME", "/home/\xFF", 1);
  setenv("XDG_STATE_HOME", "relative", 1);
  setenv("XDG_CONFIG_HOME", "/\xFE\x80", 1);
  EXPECT_EQ(StateFolder().native(), "/home/\xFF/.local/state/trillomat");
  EXPECT_EQ(SettingsFolder().native(), "/\xFE\x80/trillomat");
  EXPECT_TRUE(std::filesystem::exists(ProgramFolder() / "app_test"));
}
#endif

}  // namespace
}  // namespace trillomat
