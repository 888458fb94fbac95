#include "ui/recovery_keeper.h"

#include <utility>

namespace trillomat {

RecoveryKeeper::RecoveryKeeper(const Workspace& workspace, FileStore& files,
                               const std::filesystem::path& folder, MelodyOpener& opener, QObject* parent)
    : QObject(parent),
      log_(workspace.log),
      opener_(opener),
      recovery_(workspace, files, folder),
      keeps_(!folder.empty()) {
  connect(&timer_, &QTimer::timeout, this, [this] { recovery_.Tick(); });
}

void RecoveryKeeper::Start() {
  if (!keeps_) return;
  endedAbnormally_ = recovery_.Start();
  opener_.recovery = &recovery_;
  timer_.start(Recovery::kTickInterval);
}

void RecoveryKeeper::End() {
  timer_.stop();
  recovery_.End();
}

void RecoveryKeeper::Offer(QWidget* parent, Questions& questions) {
  if (!std::exchange(endedAbnormally_, false)) return;
  const bool wanted = questions.AskYesNo(
      parent, QStringLiteral("Trillomat"),
      QStringLiteral("Trillomat did not end normally the last time. Bring back the melody that was being "
                     "composed?\n\nWith No it stays available as \"Recover last melody\" in the File menu "
                     "until another melody takes its place."));
  if (wanted) RecoverLast();
}

void RecoveryKeeper::RecoverLast() {
  if (auto melody = recovery_.LastMelody()) {
    opener_.TakeRecovered(*std::move(melody));
  } else {
    log_.WriteLog("There is no melody to recover", 2);
  }
}

}  // namespace trillomat
