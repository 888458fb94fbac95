#include "files/replace_file.h"

#include <memory>

#include "files/files_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

// The real store on a medium on which one step fails, and with `vanishes` every one after it.
class FailingStore : public FolderStore {
 public:
  FailingStore(const TempFolder& folder, int steps, bool vanishes)
      : FolderStore(folder.Path()), steps_(steps), vanishes_(vanishes) {}

  bool Failed() const { return steps_ < 0; }

  bool Exists(const std::filesystem::path& file) const override {
    return !Gone() && FolderStore::Exists(file);
  }
  bool Delete(const std::filesystem::path& file) override { return !Gone() && FolderStore::Delete(file); }
  bool Create(const std::filesystem::path& file) override { return Works() && FolderStore::Create(file); }
  bool Flush(const std::filesystem::path& file) override { return Works() && FolderStore::Flush(file); }
  bool FlushFolder(const std::filesystem::path& folder) override {
    return Works() && FolderStore::FlushFolder(folder);
  }
  bool Move(const std::filesystem::path& from, const std::filesystem::path& to) override {
    return Works() && FolderStore::Move(from, to);
  }

 private:
  bool Gone() const { return vanishes_ && steps_ < 0; }
  bool Works() { return steps_-- != 0 && !Gone(); }

  int steps_;
  bool vanishes_;
};

// Whatever step fails, and whether the medium comes back by itself: the file holds its old or its new
// content, what is said is what happened, and the next look at the folder finds nothing else.
TEST_F(FilesTest, AStepThatFailsKeepsTheOldOrTheNewContent) {
  const std::vector<std::vector<std::string>> lines = {
      {"1: Could not make a new file beside->a.imy", "1: Error in bSaveFile_IMelody"},
      {"1: Could not flush the new file", "1: Error in bSaveFile_IMelody"},
      {"1: Could not move the new file to its place->a.imy", "1: Error in bSaveFile_IMelody"},
      {"1: Could not flush the folder of->a.imy"},
      {}};
  for (const bool vanishes : {false, true}) {
    for (size_t step = 0; step < lines.size(); ++step) {
      SCOPED_TRACE(testing::Message() << "step " << step << ", vanishes " << vanishes);
      folder.Write("a.imy", "old");
      Compose("*5d3");
      document.SetFile({});
      log.lines.clear();
      FailingStore failing(folder, static_cast<int>(step), vanishes);
      const SaveResult result = SaveOver({folder / "a.imy", "a.imy"}, failing, document, services, [] {});
      const bool saved = step >= 3;
      EXPECT_EQ(result.outcome, saved ? SaveResult::Outcome::Saved : SaveResult::Outcome::NotWritten);
      EXPECT_EQ(failing.Failed(), step < 4);
      EXPECT_EQ(log.lines, lines[step]);
      EXPECT_EQ(folder.Read("a.imy"), saved ? FileBytes() : "old");
      EXPECT_EQ(document.File().empty(), !saved);
      if (vanishes) SweepLeftovers(folder.Path(), store);
      EXPECT_THAT(folder.Names(), ElementsAre("a.imy"));
    }
  }
}

TEST_F(FilesTest, ALookAtTheFolderSweepsOnlyWhatAKilledProgramLeft) {
  for (const char* name : {".saving-7.trillomat", ".kept.trillomat", "saving-1.trillomat", "a.imy"}) {
    folder.Write(name, "old");
  }
  EXPECT_TRUE(ReplaceFile(folder / "a.imy", store, [this](std::ostream& stream) {
    stream << "new";
    browser.Refresh();
  }));
  EXPECT_THROW(ReplaceFile(folder / "a.imy", store,
                           [](std::ostream& stream) {
                             stream << "half";
                             throw std::runtime_error("no more");
                           }),
               std::runtime_error);
  EXPECT_EQ(folder.Read("a.imy"), "new");
  EXPECT_THAT(folder.Names(), ElementsAre(".kept.trillomat", "a.imy", "saving-1.trillomat"));
}

}  // namespace
}  // namespace trillomat
