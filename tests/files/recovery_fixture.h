// A recovery over the browser tests' temporary folder.
#pragma once

#include <memory>
#include <string>

#include "browser/browser_fixture.h"
#include "browser/recovery.h"

namespace trillomat {

inline RecoveredMelody Composed(const Workspace& ws) {
  return {ws.iNoteMode, ws.header, ws.melody.Elements()};
}

class RecoveryTest : public BrowserTest {
 protected:
  std::filesystem::path State() const { return folder / "state/trillomat"; }

  /// Ends as a crash does: the lock goes, the files stay.
  static void Crash(std::unique_ptr<Recovery>& recovery) { recovery.reset(); }

  std::unique_ptr<Recovery> MakeRecovery() { return std::make_unique<Recovery>(ws, store, State()); }

  void Edit(Recovery& recovery, const std::string& token) {
    Compose(token);
    recovery.MarkChanged();
    recovery.Tick();
  }

  std::string LastTokens(const Recovery& recovery) {
    const auto last = recovery.LastMelody();
    return last ? TokensOf(last->elements) : "none";
  }
};

}  // namespace trillomat
