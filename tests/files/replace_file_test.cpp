#include "files/replace_file.h"

#include <memory>
#include <stdexcept>

#include "files/files_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

TEST_F(FilesTest, AReplacementThatFailsLeavesNothingButTheOldFile) {
  folder.Write("a.imy", "old");
  EXPECT_THROW(ReplaceFile(folder / "a.imy", store,
                           [](std::ostream& stream) {
                             stream << "half";
                             throw std::runtime_error("no more");
                           }),
               std::runtime_error);
  EXPECT_EQ(ReplaceFile(folder / "gone/a.imy", store, WriteBytes("new")).outcome,
            Replacement::Outcome::NotMade);
  EXPECT_FALSE(ReplaceFile(folder.Path(), store, WriteBytes("new")));
  EXPECT_EQ(folder.Read("a.imy"), "old");
  EXPECT_THAT(folder.Names(), ElementsAre("a.imy"));
}

TEST_F(FilesTest, AFileThatIsMarkedReadOnlyIsNotOverwritten) {
  FillWith({{"a.imy", "c2"}});
  Click("a.imy");
  Compose("*5d3");
  std::filesystem::permissions(folder / "a.imy", std::filesystem::perms::owner_read);
  log.lines.clear();
  save.Save();
  EXPECT_THAT(log.lines,
              ElementsAre("1: Save file started", "1: Failed to remove the file in bDeleteFile->c:\\a.imy",
                          "1: Could not remove the old file"));
  EXPECT_EQ(host.notice, "Not saved: the file is marked read-only");
  EXPECT_EQ(ReplaceFile(folder / "a.imy", store, WriteBytes("new")).reason, kMarkedReadOnly);
  EXPECT_EQ(folder.Read("a.imy"), TuneText("c2"));
  std::filesystem::permissions(folder / "a.imy", std::filesystem::perms::owner_all);
}

TEST_F(FilesTest, FilesAreReadAsFarAsThereIsRoom) {
  folder.Write("a", std::string(70000, 'x'));
  EXPECT_EQ(store.Read(folder / "a", 70000).bytes, std::string(70000, 'x'));
  EXPECT_EQ(store.Read(folder / "a", 69999).fault, FileBytes::Fault::TooLarge);
  EXPECT_EQ(store.Read(folder.Path(), 1).fault, FileBytes::Fault::NotPlain);
  EXPECT_EQ(store.Read(folder / "b", 1).fault, FileBytes::Fault::NotOpened);
}

}  // namespace
}  // namespace trillomat
