// Media on which a system call fails: whichever it is and however it fails, a file holds its old or its new
// content under its name, what is said is what happened, and nothing else is left for long.
#include <cerrno>
#include <functional>
#include <utility>

#include "files/files_fixture.h"
#include "files/system_faults.h"

namespace trillomat {
namespace {

using testing::Contains;

class FaultsTest : public FilesTest {
 protected:
  ~FaultsTest() override { Faults() = {}; }

  /// Runs `work` with the first of the calls failing, then with the second, and so on, until it makes fewer
  /// than that. `check` is told the fault after each.
  void WithEachFault(const std::function<void()>& prepare, const std::function<void()>& work,
                     const std::function<void(const SystemFaults&)>& check) {
    for (const Medium medium : {Medium::AsItIs, Medium::NoLinks, Medium::NoNamelessFiles}) {
      for (const unsigned call : {kOpen, kWrite, kFlush, kRename, kUnlink, kLink}) {
        for (const int code : {ENOSPC, EIO, EACCES, EINTR}) {
          for (int fails = 1, made = 0; fails <= made + 1; ++fails) {
            SCOPED_TRACE(testing::Message() << "medium " << static_cast<int>(medium) << ", call " << call
                                            << ", fault " << fails << ", error " << code);
            Faults() = {};
            prepare();
            Faults() = {medium, call, fails, code};
            work();
            const SystemFaults done = std::exchange(Faults(), {});
            made = done.count;
            check(done);
            if (HasFailure()) return;
            ++cases_;
          }
        }
      }
    }
  }

  int cases_ = 0;
};

TEST_F(FaultsTest, SaveAndSaveAsKeepTheOldOrTheNewContent) {
  for (const bool isNew : {false, true}) {
    std::string old;
    const auto prepare = [&] {
      std::filesystem::remove(folder / "b.imy");
      FillWith({{"a.imy", "c2"}});
      Click("a.imy");
      old = isNew ? "" : folder.Read("a.imy");
      Compose("*5d3");
      host.savePath = folder / "b.imy";
    };
    const auto check = [&](const SystemFaults& fault) {
      const std::string found = folder.Read(isNew ? "b.imy" : "a.imy");
      const bool saved = !document.IsChanged();
      EXPECT_EQ(found, saved ? FileBytes() : old);
      EXPECT_TRUE(saved || (fault.count >= fault.fails && fault.code != EINTR));
      EXPECT_EQ(!host.notice.starts_with("Not saved: "), saved) << host.notice;
      const auto failure = Contains(isNew ? "2: Failed to save file" : "2: Failed to save the file");
      EXPECT_EQ(testing::Value(log.lines, failure), !saved);
      store.Sweep(folder.Path());
      EXPECT_EQ(folder.Names().size(), isNew && saved ? 2U : 1U);
    };
    WithEachFault(
        prepare, [&] { isNew ? save.SaveAs() : save.Save(); }, check);
  }
  EXPECT_GT(cases_, 300);
}

TEST_F(FaultsTest, TheRecoveryFileKeepsTheOldOrTheNewSong) {
  int round = 0;
  const auto prepare = [&] {
    std::filesystem::remove_all(folder / "state");
    recovery.emplace(document, store, folder / "state", log);
    recovery->Start();
    Compose(ElementList(1, Note("c")));
    recovery->Tick();
    Compose(ElementList(2, Note("d")));
    round = 0;
  };
  const auto work = [&] { recovery->Tick(); };
  const auto check = [&](const SystemFaults& fault) {
    recovery.reset();  // as when it is killed
    recovery.emplace(document, store, folder / "state", log);
    const auto left = recovery->Start();
    ASSERT_TRUE(left);
    const size_t kept = left->elements;
    EXPECT_TRUE(kept == 2 || (kept == 1 && fault.count >= fault.fails && fault.code != EINTR)) << kept;
  };
  WithEachFault(prepare, work, check);
  EXPECT_GT(cases_, 100);
}

}  // namespace
}  // namespace trillomat
