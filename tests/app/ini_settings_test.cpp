#include "app/ini_settings.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "support/folder_store.h"
#include "support/temp_folder.h"

namespace trillomat {
namespace {

const SettingsChanges kChange{.deletedSections = {}, .values = {{"Settings", "Scale", "6"}}};

class IniSettingsTest : public testing::Test {
 protected:
  TempFolder folder_;
  FolderStore files_{folder_.Path()};
  std::filesystem::path file_ = folder_ / "new/of user/trillomat.ini";
};

TEST_F(IniSettingsTest, ProgramsThatRunAtTheSameTimeKeepWhatTheOthersWrote) {
  IniSettingsStore first(file_, files_);
  IniSettingsStore second(file_, files_);
  EXPECT_EQ(first.Write({.deletedSections = {}, .values = {{"Path", "BrowseFolder", "c:\\\xFF\\"}}}),
            std::nullopt);
  EXPECT_EQ(second.Write(kChange), std::nullopt);
  EXPECT_EQ(first.Get("Settings", "Scale"), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file_.parent_path() / ".trillomat.lock"));
  const IniSettingsStore next(file_, files_);
  EXPECT_EQ(next.Get("Settings", "Scale"), "6");
  EXPECT_EQ(next.Get("Path", "BrowseFolder"), "c:\\\xFF\\");
}

class FullDisk : public FolderStore {
 public:
  using FolderStore::FolderStore;
  std::unique_ptr<NewFile> Make(const std::filesystem::path& /*target*/, bool /*userAlone*/) override {
    errno = ENOSPC;
    return nullptr;
  }
};

TEST_F(IniSettingsTest, AFullDiskLeavesTheOldFileWhole) {
  folder_.Write("trillomat.ini", "[Settings]\nScale=3\n");
  FullDisk files(folder_.Path());
  IniSettingsStore store(folder_ / "trillomat.ini", files);
  EXPECT_EQ(store.Write(kChange), Refusal{std::generic_category().message(ENOSPC)});
  EXPECT_EQ(folder_.Read("trillomat.ini"), "[Settings]\nScale=3\n");
}

TEST_F(IniSettingsTest, WhatIsNoPlainFileIsNeitherReadNorReplaced) {
  folder_.MakeFolder("folder.ini");
  std::vector<std::filesystem::path> cases = {folder_ / "folder.ini"};
#ifndef _WIN32
  ASSERT_EQ(mkfifo((folder_ / "pipe.ini").c_str(), 0600), 0);
  std::filesystem::create_symlink("/dev/zero", folder_ / "zero.ini");
  cases.insert(cases.end(), {folder_ / "pipe.ini", folder_ / "zero.ini"});
#endif
  for (const std::filesystem::path& file : cases) {
    const auto kind = std::filesystem::status(file).type();
    IniSettingsStore store(file, files_);
    EXPECT_TRUE(store.Fault()) << file;
    EXPECT_EQ(store.Get("Settings", "Scale"), std::nullopt);
    EXPECT_EQ(store.Write(kChange), store.Fault());
    EXPECT_EQ(std::filesystem::status(file).type(), kind);
  }
}

}  // namespace
}  // namespace trillomat
