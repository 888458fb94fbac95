// The menu bar of the main window. Most items come from a table that the window fills; the choices of the
// "Setting" menu are the menu's own.
#pragma once

#include <QAction>
#include <QMenuBar>
#include <QObject>
#include <array>
#include <functional>
#include <vector>

#include "composer/composer.h"
#include "playback/play_controls.h"

namespace trillomat {

/// The menus that are filled from a table, in the order of the bar; "Setting" stands behind Edit.
enum class MenuPlace { File, Edit, View, Play, Help };

/// An item of a menu, or the line above one.
struct MenuItem {
  MenuPlace menu;
  const char* name;          ///< the object name; null for a line
  const char* caption = "";  ///< with its mnemonic
  std::function<void()> run = {};
  std::function<bool()> isEnabled = {};  ///< empty for always
  std::function<bool()> isChecked = {};  ///< empty for an item without a check mark
};

/// A menu in a menu, filled when it is opened.
struct ListMenu {
  const char* name;     ///< the object name; its items are "name(0)" and on
  const char* caption;  ///< with its mnemonic
  const char* before;   ///< stands above the item of that name
  std::function<QStringList()> items;
  std::function<void(int)> run;
};

class MainMenu : public QObject {
  Q_OBJECT

 public:
  /// The check marks follow `composer`, `settings` and `player`, and the items change them.
  MainMenu(QMenuBar& bar, const Document& document, Composer& composer, PlaySettings& settings,
           Player& player);

  /// Adds the items to their menus. To be called once.
  void Fill(std::vector<MenuItem> items);
  /// Adds a menu in "File". To be called after Fill.
  void AddList(const ListMenu& list);

  /// Moves the check marks to where they belong and names what can be taken back; "File", "Setting" and
  /// "About" are shown unless the composer is locked.
  void ShowState();
  /// The item of that object name, which must be there.
  QAction& Item(const char* name) const;

 signals:
  void AboutRequested();

 private:
  QMenu& AddMenu(const char* objectName, const QString& caption);
  QAction* AddItem(QMenu& menu, const QString& objectName, const QString& caption,
                   const std::function<void()>& clicked, const std::function<bool()>& may);
  QAction* AddSetting(QMenu& menu, const QString& objectName, const QString& caption,
                      const std::function<void()>& clicked);
  QAction* AddToggle(QMenu& menu, const char* objectName, const QString& caption, bool PlaySettings::*flag);
  void AddSettingMenu();
  void AddFormatMenu(QMenu& setting);
  void AddOutputMenu(QMenu& setting);
  void ShowSteps();
  void ShowSettings();

  QMenuBar& bar_;
  const Document& document_;
  Composer& composer_;
  PlaySettings& settings_;
  Player& player_;
  std::array<QMenu*, 5> places_{};    ///< by MenuPlace
  std::array<QAction*, 3> locked_{};  ///< hidden while the composer is locked
  std::vector<MenuItem> items_;
  std::vector<QAction*> actions_;  ///< one for each of items_
  std::array<QAction*, kFormatModes> formats_{};
  std::array<QAction*, 3> outputs_{};
  std::array<QAction*, 3> toggles_{};
  QAction* useDefault_ = nullptr;
};

}  // namespace trillomat
