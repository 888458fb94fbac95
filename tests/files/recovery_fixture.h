// A recovery that can be ended as a crash does, over the files' temporary folder.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "files/files_fixture.h"

namespace trillomat {

class RecoveryTest : public FilesTest {
 protected:
  std::filesystem::path State() const { return folder / "state/trillomat"; }
  RecoveredSong Composed() const { return {document.Mode(), document.CurrentSong()}; }

  /// Ends the recovery that runs as a crash does (the lock goes, the files stay), and starts the next.
  void Restart(bool offered, const std::string& last) {
    recovery.reset();
    recovery = std::make_unique<Recovery>(document, store, State(), log);
    EXPECT_EQ(recovery->Start(), offered);
    EXPECT_EQ(LastTokens(*recovery), last);
  }

  /// Runs `body` with a browser over that recovery.
  void WithRecovery(const std::function<void(FileBrowser&)>& body) {
    FileBrowser own({document, record, store, operations, *recovery, host, services});
    host.browser = &own;
    body(own);
    host.browser = &browser;
  }

  void Edit(const std::string& tokens) {
    Compose(tokens);
    recovery->Tick();
  }

  static std::string LastTokens(const Recovery& recovery) {
    const auto last = recovery.LastSong();
    return last ? TokensOf(last->song.elements) : "none";
  }

  std::unique_ptr<Recovery> recovery;
};

}  // namespace trillomat
