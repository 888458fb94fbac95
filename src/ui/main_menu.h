// The menu bar of the main window.
#pragma once

#include <QAction>
#include <QMenuBar>
#include <QObject>
#include <array>
#include <functional>

#include "composer/composer.h"
#include "playback/play_controls.h"

namespace trillomat {

class MainMenu : public QObject {
  Q_OBJECT

 public:
  /// The check marks follow `composer`, `settings` and `player`, and the items change them.
  MainMenu(QMenuBar& bar, const Document& document, Composer& composer, PlaySettings& settings,
           Player& player);

  /// Moves the check marks to where they belong; the menus are shown unless the composer is locked.
  void ShowState();

 signals:
  void RecoverRequested();
  void CleanUpRequested();
  void ExitRequested();
  void AboutRequested();

 private:
  QAction* AddItem(QMenu& menu, const QString& objectName, const QString& caption,
                   const std::function<void()>& clicked);
  QAction* AddToggle(QMenu& menu, const char* objectName, const QString& caption, bool PlaySettings::*flag);
  void AddFileMenu(QMenuBar& bar);
  void AddSettingMenu(QMenuBar& bar);
  void AddFormatMenu(QMenu& setting);
  void AddOutputMenu(QMenu& setting);

  const Document& document_;
  Composer& composer_;
  PlaySettings& settings_;
  Player& player_;
  std::array<QAction*, 3> menus_{};  ///< hidden while the composer is locked
  std::array<QAction*, 4> formats_{};
  std::array<QAction*, 3> outputs_{};
  std::array<QAction*, 3> toggles_{};
  QAction* useDefault_ = nullptr;
};

}  // namespace trillomat
