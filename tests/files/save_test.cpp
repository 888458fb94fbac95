#include "browser/safe_save.h"

#include "browser/browser_fixture.h"
#include "formats/imelody_file.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

// The real store on a medium that vanishes after a number of changes: nothing works from then on. Without
// links, a file can only be set aside by moving it, as on a memory stick.
class VanishingStore : public FolderStore {
 public:
  VanishingStore(const TempFolder& folder, bool links) : FolderStore(folder.Path()), links_(links) {}

  int changesLeft = 0;

  bool Exists(const std::filesystem::path& file) const override {
    return changesLeft > 0 && FolderStore::Exists(file);
  }
  bool Delete(const std::filesystem::path& file) override { return Change() && FolderStore::Delete(file); }
  bool Create(const std::filesystem::path& file) override { return Change() && FolderStore::Create(file); }
  bool Flush(const std::filesystem::path& file) override { return Change() && FolderStore::Flush(file); }
  bool Move(const std::filesystem::path& from, const std::filesystem::path& to) override {
    return Change() && FolderStore::Move(from, to);
  }
  bool KeepAside(const std::filesystem::path& file, const std::filesystem::path& aside) override {
    if (!links_) return Move(file, aside);
    return Change() && FolderStore::KeepAside(file, aside);
  }

 private:
  bool Change() { return changesLeft-- > 0; }

  bool links_;
};

// Whatever step the medium vanishes at, the next look at the folder finds the old or the new content.
TEST_F(BrowserTest, AMediumThatVanishesKeepsTheOldOrTheNewContent) {
  for (const bool links : {true, false}) {
    int saved = 0;
    for (int changes = 0; changes < 12; ++changes) {
      SCOPED_TRACE(testing::Message() << "links " << links << ", changes " << changes);
      folder.Write("a.imy", "old");
      Compose("*5d3");
      VanishingStore vanishing(folder, links);
      vanishing.changesLeft = changes;
      const TargetFile file{folder / "a.imy", "a.imy"};
      const SaveOutcome outcome = SaveOver(file, vanishing, ws, [] {});
      PutBackLeftovers(folder.Path(), store, log);
      EXPECT_THAT(folder.Names(), ElementsAre("a.imy"));
      EXPECT_THAT(folder.Read("a.imy"), testing::AnyOf("old", WriteText_IMelody(ws)));
      if (outcome == SaveOutcome::Saved) {
        EXPECT_NE(folder.Read("a.imy"), "old");
        ++saved;
      }
      EXPECT_EQ(ws.melody.Elements().size(), 1U);
    }
    EXPECT_GE(saved, 1);
    EXPECT_LE(saved, 9);
  }
}

// A step that fails alone, the medium still there: the old content is back at once, and nothing is left.
TEST_F(BrowserTest, AFailedStepPutsTheOldContentBack) {
  class FailingStore : public VanishingStore {
   public:
    using VanishingStore::VanishingStore;
    bool Flush(const std::filesystem::path& file) override { return flushes && VanishingStore::Flush(file); }
    bool Move(const std::filesystem::path& from, const std::filesystem::path& to) override {
      if (!moves && from.string().find(".saving-") != std::string::npos) return false;
      return VanishingStore::Move(from, to);
    }
    bool flushes = true;
    bool moves = true;
  };
  for (const bool links : {true, false}) {
    for (const bool flushes : {true, false}) {
      folder.Write("a.imy", "old");
      Compose("*5d3");
      FailingStore failing(folder, links);
      failing.changesLeft = 100;
      failing.flushes = flushes;
      failing.moves = !flushes;
      EXPECT_EQ(SaveOver({folder / "a.imy", "a.imy"}, failing, ws, [] {}), SaveOutcome::NotWritten);
      EXPECT_EQ(folder.Read("a.imy"), "old");
      EXPECT_THAT(folder.Names(), ElementsAre("a.imy"));
    }
  }
}

TEST_F(BrowserTest, AnotherProgramsRefreshLeavesARunningSaveAlone) {
  class WatchedStore : public FolderStore {
   public:
    WatchedStore(const TempFolder& folder, Log& log)
        : FolderStore(folder.Path()), folder_(folder), log_(log) {}
    bool Flush(const std::filesystem::path& file) override {
      FolderStore other(folder_.Path());
      PutBackLeftovers(folder_.Path(), other, log_);
      return FolderStore::Flush(file);
    }

   private:
    const TempFolder& folder_;
    Log& log_;
  };
  folder.Write("a.imy", "old");
  Compose("*5d3");
  WatchedStore watched(folder, log);
  EXPECT_EQ(SaveOver({folder / "a.imy", "a.imy"}, watched, ws, [] {}), SaveOutcome::Saved);
  EXPECT_EQ(folder.Read("a.imy"), WriteText_IMelody(ws));
  EXPECT_THAT(folder.Names(), ElementsAre("a.imy"));
}

TEST_F(BrowserTest, PutsBackOnlyWhatASaveLeft) {
  folder.Write(".a.imy.kept.trillomat", "a");
  folder.Write(".b.imy.kept.trillomat", "b, superseded");
  folder.Write("b.imy", "b");
  folder.Write(".saving-7.trillomat", "half");
  for (const char* foreign : {".kept.trillomat", "c.kept.trillomat", "d.trillomat", "...kept.trillomat"}) {
    folder.Write(foreign, "foreign");
  }
  browser.UpdateListFiles();
  EXPECT_EQ(Rows(), "a.imy b.imy ");
  EXPECT_EQ(folder.Read("a.imy"), "a");
  EXPECT_EQ(folder.Read("b.imy"), "b");
  EXPECT_THAT(folder.Names(), ElementsAre("...kept.trillomat", ".kept.trillomat", "a.imy", "b.imy",
                                          "c.kept.trillomat", "d.trillomat"));
  EXPECT_THAT(log.lines, ElementsAre("1: Put back the old file of an interrupted save->C:\\a.imy"));
}

}  // namespace
}  // namespace trillomat
