// What the window asks the user in dialogs of the system or the toolkit, and what it has other programs show.
// Abstract so that tests can give the answers.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <filesystem>
#include <optional>

#include "files/files_host.h"

namespace trillomat {

class Questions {
 public:
  Questions() = default;
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;
  virtual ~Questions() = default;

  // As in FilesHost; the dialogs stand over `parent`.
  virtual std::optional<std::filesystem::path> AskSavePath(QWidget* parent, const SaveDialog& dialog) = 0;
  virtual std::optional<std::filesystem::path> AskOpenPath(QWidget* parent, const OpenDialog& dialog) = 0;
  virtual bool AskYesNo(QWidget* parent, const QString& title, const QString& question) = 0;
  /// Which of the tracks of a MIDI file is taken, `proposed` to begin with. Nothing when cancelled.
  virtual std::optional<int> AskTrack(QWidget* parent, const QStringList& tracks, int proposed) = 0;
  /// Shows an HTML page in the user's browser. False where there is none.
  virtual bool ShowPage(const std::filesystem::path& page) = 0;
};

/// Asks with the window system's own dialogs.
class QtQuestions : public Questions {
 public:
  std::optional<std::filesystem::path> AskSavePath(QWidget* parent, const SaveDialog& dialog) override;
  std::optional<std::filesystem::path> AskOpenPath(QWidget* parent, const OpenDialog& dialog) override;
  bool AskYesNo(QWidget* parent, const QString& title, const QString& question) override;
  std::optional<int> AskTrack(QWidget* parent, const QStringList& tracks, int proposed) override;
  bool ShowPage(const std::filesystem::path& page) override;
};

}  // namespace trillomat
