// Keeps the composed melody safe while it is composed: the timer that writes the recovery file, and the
// offer to bring a melody back.
#pragma once

#include <QTimer>
#include <filesystem>

#include "browser/open_melody.h"
#include "browser/recovery.h"
#include "ui/questions.h"

namespace trillomat {

class RecoveryKeeper : public QObject {
  Q_OBJECT

 public:
  /// `folder` is the per-user state folder; an empty one keeps nothing. `opener` tells of melodies that
  /// replace the composed one, and takes a recovered one in.
  RecoveryKeeper(const Workspace& workspace, FileStore& files, const std::filesystem::path& folder,
                 MelodyOpener& opener, QObject* parent);

  /// To be called at the program's start and at its normal end.
  void Start();
  void End();

  /// After a run that ended abnormally: says so and offers to bring its melody back.
  void Offer(QWidget* parent, Questions& questions);
  /// Brings back the last composed melody; says so in the log when there is none.
  void RecoverLast();

  void MarkChanged() { recovery_.MarkChanged(); }
  void KeepBeforeReplacing() { recovery_.KeepBeforeReplacing(); }

 private:
  Log& log_;
  MelodyOpener& opener_;
  Recovery recovery_;
  QTimer timer_;
  bool keeps_;
  bool endedAbnormally_ = false;
};

}  // namespace trillomat
