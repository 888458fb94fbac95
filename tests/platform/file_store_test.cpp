// The system's file store, whichever it is.
#include <gmock/gmock.h>

#include "platform/system_parts.h"
#include "support/temp_folder.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

class FileStoreTest : public testing::Test {
 protected:
  TempFolder folder;
  std::unique_ptr<FileStore> store = SystemFileStore();
};

TEST_F(FileStoreTest, APathSurvivesTheRoundTripThroughTheGivenForm) {
  for (const char* name : {"a.imy", "two words.imy", "\xe5\xa4\x9c\xe6\x9b\xb2.imy"}) {
    const auto given = store->GivenPath(folder / name);
    ASSERT_TRUE(given);
    EXPECT_TRUE(given->ends_with("\\" + std::string(name))) << *given;
    EXPECT_EQ(store->NativePath(*given), folder / name);
    EXPECT_NE(store->Drives() & 1U << (given->front() - 'A'), 0U);
    EXPECT_TRUE(store->DriveText(given->front()).starts_with(given->substr(0, 2)));
  }
  for (const char* wrong :
       {"", "C:", "c:tunes", "/home", "\\\\nas\\", "c:\\..\\bob", "c:\\.", "c:\\a/b", "c:\\a:b"})
    EXPECT_EQ(store->NativePath(wrong), "") << wrong;
}

TEST_F(FileStoreTest, CopiesAndDeletesWithoutHarm) {
  const std::string text(200000, 'x');
  folder.Write("a", text);
  folder.Write("b", "old");
  folder.MakeFolder("x");
  EXPECT_TRUE(store->Copy(folder / "a", folder / "c"));
  EXPECT_EQ(folder.Read("c"), text);
  EXPECT_FALSE(store->Copy(folder / "a", folder / "b"));
  EXPECT_FALSE(store->Copy(folder / "gone", folder / "d"));
  EXPECT_FALSE(store->Copy(folder / "x", folder / "d"));
  EXPECT_FALSE(store->Delete(folder / "x"));
  EXPECT_FALSE(store->CanRemove(folder / "x"));
  EXPECT_TRUE(store->CanRemove(folder / "b"));
  EXPECT_EQ(folder.Read("b"), "old");
  EXPECT_THAT(folder.Names(), ElementsAre("a", "b", "c", "x"));
  EXPECT_TRUE(store->Delete(folder / "a"));
  EXPECT_FALSE(store->Exists(folder / "a"));
}

TEST_F(FileStoreTest, ALockEndsWithItsHolder) {
  auto lock = store->TryLock(folder / "lock");
  ASSERT_TRUE(lock);
  EXPECT_FALSE(store->TryLock(folder / "lock"));
  folder.Write("lock", "written all the same");
  EXPECT_EQ(folder.Read("lock"), "written all the same");
  lock.reset();
  lock = store->TryLock(folder / "lock");
  ASSERT_TRUE(lock);
  EXPECT_TRUE(store->Delete(folder / "lock")) << "its holder may delete it";
  lock.reset();
  EXPECT_FALSE(store->Exists(folder / "lock"));
  EXPECT_FALSE(store->TryLock(folder / "no/lock"));
}

}  // namespace
}  // namespace trillomat
