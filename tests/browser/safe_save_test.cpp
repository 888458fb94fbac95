#include "browser/safe_save.h"

#include <sys/resource.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "browser/browser_fixture.h"
#include "formats/imelody_file.h"
#include "support/child_process.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

// The real store on a medium that vanishes after a number of changes: nothing works from then on. Without
// links, a file can only be set aside by moving it, as on a memory stick.
class VanishingStore : public PosixFileStore {
 public:
  VanishingStore(const TempFolder& folder, bool links)
      : PosixFileStore(DriveMap(folder.Path(), "/dev/null")), links_(links) {}

  int changesLeft = 0;

  bool Exists(const std::filesystem::path& file) const override {
    return changesLeft > 0 && PosixFileStore::Exists(file);
  }
  bool Delete(const std::filesystem::path& file) override { return Change() && PosixFileStore::Delete(file); }
  bool Create(const std::filesystem::path& file) override { return Change() && PosixFileStore::Create(file); }
  bool Flush(const std::filesystem::path& file) override { return Change() && PosixFileStore::Flush(file); }
  bool Move(const std::filesystem::path& from, const std::filesystem::path& to) override {
    return Change() && PosixFileStore::Move(from, to);
  }
  bool KeepAside(const std::filesystem::path& file, const std::filesystem::path& aside) override {
    if (!links_) return Move(file, aside);
    return Change() && PosixFileStore::KeepAside(file, aside);
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
      if (!moves && from.native().find(".saving-") != std::string::npos) return false;
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

TEST_F(BrowserTest, ANameWithoutRoomForASuffixIsSavedOver) {
  const std::string name = std::string(251, 'n') + ".imy";
  folder.Write(name, "old");
  Compose("*5d3");
  EXPECT_EQ(SaveOver({folder / name, name}, store, ws, [] {}), SaveOutcome::Saved);
  EXPECT_EQ(folder.Read(name), WriteText_IMelody(ws));
  EXPECT_THAT(folder.Names(), ElementsAre(name));
}

// Saves in a process with limits of its own and returns what it logged.
class LimitedSave : public BrowserTest {
 protected:
  void SaveIn(const std::function<void()>& limit) {
    folder.Write("a.imy", TuneText("c2"));
    Fill();
    browser.ListFiles_Click(RowOf("a.imy"));
    MelodyList elements(2000, ws.melody.At(0));
    ws.melody.Assign(elements);
    log.lines.clear();
    ChildProcess child([&] {
      limit();
      save.cmdSave_Click();
      window.savePath = folder / "new.imy";
      save.cmdSaveAs_Click();
      const std::vector<std::string> expected{"2: Failed to save the file", "2: Failed to save file"};
      std::vector<std::string> shown;
      for (const std::string& line : log.lines) {
        if (line.starts_with('2')) shown.push_back(line);
      }
      return shown == expected && ws.melody.Elements() == elements ? 0 : 1;
    });
    EXPECT_EQ(child.WaitFor(), 0);
    EXPECT_EQ(folder.Read("a.imy"), TuneText("c2"));
    EXPECT_THAT(folder.Names(), ElementsAre("a.imy"));
  }
};

TEST_F(LimitedSave, AFullDiskLeavesTheOldFile) {
  SaveIn([] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
  });
}

TEST_F(LimitedSave, AReadOnlyFolderLeavesTheOldFile) {
  constexpr uid_t kNobody = 65534;
  SaveIn([this] {
    std::filesystem::permissions(folder.Path(), static_cast<std::filesystem::perms>(0555));
    if (geteuid() == 0 && setuid(kNobody) != 0) _exit(2);
  });
}

// How often the kill test kills; more than in the everyday run with TRILLOMAT_KILL_ROUNDS.
int KillRounds() {
  const char* rounds = std::getenv("TRILLOMAT_KILL_ROUNDS");
  return rounds == nullptr ? 100 : std::atoi(rounds);
}

TEST_F(BrowserTest, AKilledSaveLeavesTheOldOrTheNewContent) {
  MelodyList melodies[] = {MelodyList(300, ws.codec.DecodeNote("c2", FormatMode::IMelody)),
                           MelodyList(500, ws.codec.DecodeNote("*5d3", FormatMode::IMelody))};
  std::string texts[2];
  for (int i = 0; i < 2; ++i) {
    ws.ExportMelody = melodies[i];
    texts[i] = WriteText_IMelody(ws);
  }
  folder.Write("a.imy", texts[0]);
  Fill();
  browser.ListFiles_Click(RowOf("a.imy"));
  std::minstd_rand random(1);  // the same instants each run, as far as there are any
  int interrupted = 0;
  for (int round = 0; round < KillRounds(); ++round) {
    ChildProcess child([&] {
      for (size_t i = 0;; ++i) {
        ws.melody.Assign(melodies[i % 2]);
        save.cmdSave_Click();
      }
      return 0;
    });
    std::this_thread::sleep_for(std::chrono::microseconds(500 + random() % 8000));
    ASSERT_TRUE(child.Kill());
    const std::string found = folder.Read("a.imy");
    ASSERT_TRUE(found == texts[0] || found == texts[1]) << "in round " << round << ": " << found;
    interrupted += folder.Names().size() > 1 ? 1 : 0;
    browser.UpdateListFiles();
    ASSERT_THAT(folder.Names(), ElementsAre("a.imy"));
  }
  EXPECT_GT(interrupted, KillRounds() / 10) << "kills came too rarely in the middle of a save";
}

}  // namespace
}  // namespace trillomat
