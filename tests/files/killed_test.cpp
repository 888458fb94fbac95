// Programs that are killed or limited while they save. Needs fork(2), signals and resource limits.
#include <sys/resource.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "browser/recovery_fixture.h"
#include "formats/imelody_file.h"
#include "support/child_process.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

// Edits and ticks like a running window, killed in the middle of it: of all that was edited, at most what
// came after the last tick is lost.
TEST_F(RecoveryTest, AKilledProgramLosesOnlyTheLastEdits) {
  std::minstd_rand random(1);  // the same instants each run, as far as there are any
  for (int round = 0; round < 20; ++round) {
    std::filesystem::remove_all(State());
    folder.Write("ticked", "0");
    ChildProcess child([&] {
      auto recovery = MakeRecovery();
      recovery->Start();
      MelodyList elements;
      for (int ticks = 1;; ++ticks) {
        elements.push_back(ws.codec.DecodeNote("c2", FormatMode::IMelody));
        ws.melody.Assign(elements);
        recovery->MarkChanged();
        recovery->Tick();
        truncate((folder / "ticked").c_str(), ticks);
      }
      return 0;
    });
    while (std::filesystem::file_size(folder / "ticked") < 2) std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
    ASSERT_TRUE(child.Kill());
    const size_t ticks = std::filesystem::file_size(folder / "ticked");
    const auto recovery = MakeRecovery();
    ASSERT_TRUE(recovery->Start());
    ASSERT_TRUE(recovery->LastMelody());
    EXPECT_GE(recovery->LastMelody()->elements.size(), ticks);
    EXPECT_LE(recovery->LastMelody()->elements.size(), ticks + 1);
    recovery->End();
  }
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
