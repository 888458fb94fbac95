// Programs that are killed or limited while they save. Needs fork(2), signals and resource limits.
#include <sys/resource.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "files/files_fixture.h"
#include "files/system_faults.h"
#include "support/child_process.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

// A full disk, as a process meets it that may not write more than so much.
TEST_F(FilesTest, AFullDiskLeavesTheOldFile) {
  FillWith({{"a.imy", "c2"}});
  Click("a.imy");
  Compose(ElementList(2000, Note("c")));
  host.savePath = folder / "new.imy";
  ChildProcess child([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
    save.Save();
    save.SaveAs();
    const std::vector<std::string> lines{
        "1: Save file started",       "1: Removed file",    "1: Error in bSaveFile_IMelody",
        "2: Failed to save the file", "1: Save As started", "1: Error in bSaveFile_IMelody",
        "2: Failed to save file"};
    return log.lines == lines && document.IsChanged() ? 0 : 1;
  });
  EXPECT_EQ(child.WaitFor(), 0);
  EXPECT_EQ(folder.Read("a.imy"), TuneText("c2"));
  EXPECT_THAT(folder.Names(), ElementsAre("a.imy"));
}

// How often the kill test kills; more than in the everyday run with TRILLOMAT_KILL_ROUNDS.
int KillRounds() {
  const char* rounds = std::getenv("TRILLOMAT_KILL_ROUNDS");
  return rounds == nullptr ? 50 : std::atoi(rounds);
}

// On a medium whose new files have no name, nothing is left to see of a save that was killed.
TEST_F(FilesTest, AKilledSaveLeavesTheOldOrTheNewContent) {
  const ElementList songs[] = {ElementList(300, Note("c")), ElementList(500, Note("d", 5, 0.5F))};
  std::string texts[2];
  for (int i = 1; i >= 0; --i) {
    Compose(songs[i]);
    texts[i] = FileBytes();
  }
  folder.Write("a.imy", texts[0]);
  host.savePath = folder / "a.imy";
  std::minstd_rand random(1);  // the same instants each run, as far as there are any
  for (const Medium medium : {Medium::AsItIs, Medium::NoLinks, Medium::NoNamelessFiles}) {
    int interrupted = 0;
    for (int round = 0; round < KillRounds(); ++round) {
      ChildProcess child([&] {
        Faults().medium = medium;
        for (size_t i = 0;; ++i) {
          Compose(songs[i % 2]);
          save.SaveAs();
        }
        return 0;
      });
      std::this_thread::sleep_for(std::chrono::microseconds(500 + random() % 8000));
      ASSERT_TRUE(child.Kill());
      const std::string found = folder.Read("a.imy");
      ASSERT_TRUE(found == texts[0] || found == texts[1]) << "in round " << round << ": " << found;
      interrupted += folder.Names().size() > 1 ? 1 : 0;
      browser.Refresh();
      ASSERT_THAT(folder.Names(), ElementsAre("a.imy"));
    }
    RecordProperty("interrupted" + std::to_string(static_cast<int>(medium)), interrupted);
    if (medium == Medium::NoNamelessFiles) {
      EXPECT_GT(interrupted, KillRounds() / 10) << "kills came too rarely in the middle of a save";
    }
  }
}

}  // namespace
}  // namespace trillomat
