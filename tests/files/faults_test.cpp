// Media on which a system call fails: whichever it is and however it fails, a file holds its old or its new
// content under its name, what is said is what happened, and nothing else is left for long.
#include <cerrno>
#include <functional>
#include <utility>

#include "files/files_fixture.h"
#include "files/system_faults.h"
#include "platform/trash_posix.h"

namespace trillomat {
namespace {

using testing::Contains;

class FaultsTest : public FilesTest {
 protected:
  ~FaultsTest() override { Faults() = {}; }

  /// Runs `work` with its first call failing, then with its second, and so on, until it makes no more calls
  /// than that. `check` is told the fault after each run.
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

// The same commands, where the files that they replace or remove go to the trash.
class KeepingFaultsTest : public FaultsTest {
 protected:
  KeepingFaultsTest() { host.browser = &browser; }

  void Prepare() {
    std::filesystem::remove_all(keptFolder / "Trash");
    browser.CloseMessage();
    FillWith({{"a.imy", "c2"}});
    old_ = folder.Read("a.imy");
    browser.Refresh();
    browser.Click(0);
  }
  void Restore() { browser.Accept(FileMessage::Offer::Restore); }
  static bool Happened(const SystemFaults& fault) {
    return fault.count >= fault.fails && fault.code != EINTR;
  }

  Trash trash_{store, keptFolder / "Trash"};
  KeptFiles inTrash_{store, trash_};
  FileParts withTrash_{document, record, store, operations, *recovery, inTrash_, recent, host, services};
  FileBrowser browser{withTrash_};
  SaveCommands save{withTrash_, browser};
  std::string old_;
};

TEST_F(KeepingFaultsTest, WhatIsSavedOverComesBack) {
  const auto prepare = [this] { Prepare(), Compose("*5d3"); };
  const auto work = [this] { save.Save(); };
  const auto check = [this](const SystemFaults& fault) {
    const bool saved = !document.IsChanged();
    EXPECT_EQ(folder.Read("a.imy"), saved ? FileBytes() : old_);
    const bool kept = host.notice == "Replaced a.imy";
    EXPECT_TRUE(kept || Happened(fault)) << host.notice;
    EXPECT_EQ(host.notice.starts_with("Replaced a.imy, but "), saved && !kept);
    store.Sweep(folder.Path());
    EXPECT_EQ(folder.Names().size(), 1U);
    if (!kept) return;
    Restore();
    EXPECT_EQ(folder.Read("a.imy"), old_);
  };
  WithEachFault(prepare, work, check);
  EXPECT_GT(cases_, 200);
}

TEST_F(KeepingFaultsTest, WhatIsDeletedIsThereOrComesBack) {
  const auto prepare = [this] { Prepare(); };
  const auto work = [this] { browser.DeleteSelected(); };
  const auto check = [this](const SystemFaults& fault) {
    const bool gone = !std::filesystem::exists(folder / "a.imy");
    EXPECT_EQ(host.notice == "Deleted a.imy", gone) << host.notice;
    EXPECT_TRUE(gone || Happened(fault));
    if (gone) Restore();
    EXPECT_EQ(folder.Read("a.imy"), old_);
  };
  WithEachFault(prepare, work, check);
  EXPECT_GT(cases_, 100);
}

TEST_F(KeepingFaultsTest, RestoringLosesNeitherContent) {
  std::string saved;
  const auto prepare = [&] {
    Prepare();
    Compose("*5d3");
    save.Save();
    saved = folder.Read("a.imy");
    ASSERT_NE(saved, old_);
  };
  const auto work = [this] { Restore(); };
  const auto check = [&](const SystemFaults& fault) {
    const bool restored = host.notice == "Restored a.imy";
    EXPECT_TRUE(restored || Happened(fault)) << host.notice;
    EXPECT_EQ(folder.Read("a.imy"), restored ? old_ : saved);
    Restore();
    EXPECT_EQ(folder.Read("a.imy"), restored ? saved : old_);
    store.Sweep(folder.Path());
    EXPECT_EQ(folder.Names().size(), 1U);
  };
  WithEachFault(prepare, work, check);
  EXPECT_GT(cases_, 200);
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
