// Programs that are killed or limited while they save. Needs fork(2), signals and resource limits.
#include <sys/mman.h>
#include <sys/resource.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <random>
#include <thread>

#include "files/files_fixture.h"
#include "files/system_faults.h"
#include "support/child_process.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

// A full disk, imitated by a limit on what the process may write.
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

// How often the kill test kills: more often with TRILLOMAT_KILL_ROUNDS.
int KillRounds() {
  const char* rounds = std::getenv("TRILLOMAT_KILL_ROUNDS");
  return rounds == nullptr ? 50 : std::atoi(rounds);
}

// On a medium whose new files have no name, a killed save leaves nothing behind.
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

// What the other process enters, in memory that the test shares: element i at times[i], in ms of the steady
// clock.
struct Entered {
  static constexpr int kMost = 1000;

  std::atomic<int> count;
  std::array<std::atomic<int64_t>, kMost> times;
};

int64_t SteadyTime() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

// The element at `index`; two in a row are never alike.
Element EnteredElement(int index) { return Note(index % 2 == 0 ? "c" : "#d", 3 + index % 3); }

// Enters an element every 20 to 50 ms, and writes the recovery file when the window would.
int ComposeInto(const TempFolder& folder, Entered& entered, unsigned seed) {
  FakeLog log;
  Document document;
  FolderStore store(folder.Path());
  Recovery recovery(document, store, folder / "state", log);
  recovery.Start();
  std::minstd_rand random(seed);
  int64_t nextTick = SteadyTime() + Recovery::kTickInterval;
  for (int i = 0; i < Entered::kMost; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20 + random() % 31));
    document.Apply({.at = document.Size(), .inserted = {EnteredElement(i)}, .cursor = i});
    entered.times[static_cast<size_t>(i)] = SteadyTime();
    entered.count = i + 1;
    if (SteadyTime() < nextTick) continue;
    recovery.Tick();
    nextTick += Recovery::kTickInterval;
  }
  return 0;
}

// A composer in a process of its own, and what the next start finds after it was killed.
class KilledComposer {
 public:
  explicit KilledComposer(unsigned seed)
      : entered_(static_cast<Entered*>(
            mmap(nullptr, sizeof(Entered), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))),
        child_([this, seed] { return ComposeInto(folder_, *entered_, seed); }) {}
  KilledComposer(const KilledComposer&) = delete;
  KilledComposer& operator=(const KilledComposer&) = delete;
  ~KilledComposer() { munmap(entered_, sizeof(Entered)); }

  void Kill() {
    killed_ = SteadyTime();
    ASSERT_TRUE(child_.Kill());
  }

  /// How many ms before the kill the first of the lost elements was entered; 0 where none is lost.
  int64_t LostTime() const {
    FakeLog log;
    Document document;
    FolderStore store(folder_.Path());
    Recovery recovery(document, store, folder_ / "state", log);
    const auto left = recovery.Start();
    const auto song = left ? recovery.Recovered(left->file) : std::nullopt;
    const ElementList found = song ? song->song.elements : ElementList();
    for (size_t i = 0; i < found.size(); ++i) EXPECT_EQ(found[i], EnteredElement(static_cast<int>(i)));
    if (found.size() >= static_cast<size_t>(entered_->count)) return 0;
    return killed_ - entered_->times[found.size()];
  }

 private:
  TempFolder folder_;
  Entered* entered_;
  ChildProcess child_;
  int64_t killed_ = 0;
};

// Eight compose at a time.
TEST(KilledComposing, LosesAtMostTheLastSecond) {
  constexpr int kAtOnce = 8;
  const char* rounds = std::getenv("TRILLOMAT_COMPOSING_KILLS");
  const int kills = rounds == nullptr ? kAtOnce : std::atoi(rounds);
  std::minstd_rand random(7);
  int64_t most = 0;
  for (int killed = 0; killed < kills;) {
    std::vector<std::unique_ptr<KilledComposer>> composers;
    composers.reserve(kAtOnce);
    for (int i = 0; i < kAtOnce; ++i) composers.push_back(std::make_unique<KilledComposer>(random()));
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    for (const auto& composer : composers) {
      std::this_thread::sleep_for(std::chrono::milliseconds(random() % 400));
      composer->Kill();
      const int64_t lost = composer->LostTime();
      ASSERT_LE(lost, 1000) << "in kill " << killed;
      most = std::max(most, lost);
      ++killed;
    }
  }
  RecordProperty("most_ms_lost", static_cast<int>(most));
  EXPECT_GT(most, 0);
}

}  // namespace
}  // namespace trillomat
