#include "ui/main_menu.h"

#include <QActionGroup>
#include <QMenu>
#include <stdexcept>
#include <utility>

#include "core/format_mode.h"
#include "ui/controls.h"
#include "ui/key_table.h"
#include "ui/qt_text.h"

namespace trillomat {

MainMenu::MainMenu(QMenuBar& bar, const Document& document, Composer& composer, PlaySettings& settings,
                   Player& player)
    : QObject(&bar),
      bar_(bar),
      document_(document),
      composer_(composer),
      settings_(settings),
      player_(player) {
  const auto add = [this](MenuPlace place, const char* objectName, const QString& caption) {
    places_.at(static_cast<size_t>(place)) = &AddMenu(objectName, caption);
  };
  add(MenuPlace::File, "mnuFile", QStringLiteral("&File"));
  // The other menus have no mnemonic, because each letter of their captions is one of a button.
  add(MenuPlace::Edit, "mnuEdit", QStringLiteral("Edit"));
  AddSettingMenu();
  add(MenuPlace::View, "mnuView", QStringLiteral("View"));
  add(MenuPlace::Play, "mnuPlay", QStringLiteral("Play"));
  add(MenuPlace::Help, "mnuHelp", QStringLiteral("Help"));
  locked_[0] = places_[0]->menuAction();
  locked_[2] = bar.addAction(QStringLiteral("A&bout"));
  locked_[2]->setObjectName(QStringLiteral("mnuAbout"));
  connect(locked_[2], &QAction::triggered, this, &MainMenu::AboutRequested);
}

QMenu& MainMenu::AddMenu(const char* objectName, const QString& caption) {
  QMenu* menu = bar_.addMenu(caption);
  menu->setObjectName(QLatin1String(objectName));
  menu->setToolTipsVisible(true);
  return *menu;
}

// The check mark shows the state that the program has, whatever the click did to it. An item of a menu that
// was open when a melody began to play asks once more whether it may do anything.
QAction* MainMenu::AddItem(QMenu& menu, const QString& objectName, const QString& caption,
                           const std::function<void()>& clicked, const std::function<bool()>& may) {
  QAction* item = menu.addAction(caption);
  item->setObjectName(objectName);
  connect(item, &QAction::triggered, this, [this, clicked, may] {
    if (may()) clicked();
    ShowState();
  });
  return item;
}

QAction* MainMenu::AddSetting(QMenu& menu, const QString& objectName, const QString& caption,
                              const std::function<void()>& clicked) {
  QAction* item = AddItem(menu, objectName, caption, clicked, [this] { return composer_.MayEdit(); });
  item->setCheckable(true);
  return item;
}

void MainMenu::Fill(std::vector<MenuItem> items) {
  items_ = std::move(items);
  for (const MenuItem& item : items_) {
    QMenu& menu = *places_.at(static_cast<size_t>(item.menu));
    const bool isLine = item.name == nullptr;
    actions_.push_back(isLine ? menu.addSeparator()
                              : AddItem(
                                    menu, QLatin1String(item.name), QLatin1String(item.caption), item.run,
                                    item.isEnabled ? item.isEnabled : [] { return true; }));
    actions_.back()->setCheckable(static_cast<bool>(item.isChecked));
    SetShortcuts(*actions_.back());
  }
}

void MainMenu::AddList(const ListMenu& list) {
  auto* menu = new QMenu(QLatin1String(list.caption), &bar_);
  menu->setObjectName(QLatin1String(list.name));
  places_[0]->insertMenu(&Item(list.before), menu);
  connect(menu, &QMenu::aboutToShow, this, [this, menu, list] {
    menu->clear();
    const QStringList items = list.items();
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
      QString text = items.at(i);
      AddItem(
          *menu, IndexedName(list.name, i), text.replace(QLatin1Char('&'), QStringLiteral("&&")),
          [run = list.run, i] { run(i); }, [this] { return composer_.MayEdit(); });
    }
  });
  connect(places_[0], &QMenu::aboutToShow, menu,
          [menu, list] { menu->menuAction()->setEnabled(!list.items().isEmpty()); });
}

QAction& MainMenu::Item(const char* name) const {
  for (size_t i = 0; i < items_.size(); ++i) {
    if (items_[i].name != nullptr && std::string_view(items_[i].name) == name) return *actions_[i];
  }
  throw std::logic_error("no such item");
}

void MainMenu::AddSettingMenu() {
  QMenu* setting = &AddMenu("mnuSetting", QStringLiteral("Se&tting"));
  AddFormatMenu(*setting);
  AddOutputMenu(*setting);
  setting->addSeparator();
  toggles_ = {AddToggle(*setting, "mnuSettingAutoPlay", QStringLiteral("&AutoPlay"), &PlaySettings::autoPlay),
              AddToggle(*setting, "mnuSettingPlayComposing", QStringLiteral("Play when &composing"),
                        &PlaySettings::playComposing),
              AddToggle(*setting, "mnuSettingPlayMoving", QStringLiteral("Play when &moving"),
                        &PlaySettings::playMoving)};
  setting->addSeparator();
  QMenu* rtttl = setting->addMenu(QStringLiteral("&RTTTL Specific"));
  rtttl->setObjectName(QStringLiteral("mnuRTTTL"));
  useDefault_ =
      AddSetting(*rtttl, QStringLiteral("mnuRTTTLUseDefault"), QStringLiteral("&Use Default in Composer"),
                 [this] { composer_.ToggleUseDefaults(); });
  locked_[1] = setting->menuAction();
}

void MainMenu::AddFormatMenu(QMenu& setting) {
  QMenu* menu = setting.addMenu(QStringLiteral("&Format"));
  menu->setObjectName(QStringLiteral("mnuSettingFormat"));
  for (size_t i = 0; i < formats_.size(); ++i) {
    const ModeLimits& limits = kModeLimits.at(i);
    formats_.at(i) = AddSetting(*menu, IndexedName("mnuSettingFormatType", static_cast<int>(i)),
                                QLatin1Char('&') + ToQString(limits.caption),
                                [this, mode = limits.mode] { composer_.SetMode(mode); });
  }
}

void MainMenu::AddOutputMenu(QMenu& setting) {
  constexpr std::array<const char*, 3> kCaptions{"&Wave", "&Beep", "&Midi"};
  QMenu* menu = setting.addMenu(QStringLiteral("&Output"));
  menu->setObjectName(QStringLiteral("mnuSettingOutput"));
  for (size_t i = 0; i < outputs_.size(); ++i) {
    outputs_.at(i) = AddSetting(*menu, IndexedName("mnuSettingOutputType", static_cast<int>(i)),
                                QLatin1String(kCaptions.at(i)),
                                [this, i] { player_.outputType = static_cast<OutputType>(i); });
  }
}

QAction* MainMenu::AddToggle(QMenu& menu, const char* objectName, const QString& caption,
                             bool PlaySettings::*flag) {
  return AddSetting(menu, QLatin1String(objectName), caption,
                    [this, flag] { settings_.*flag = !(settings_.*flag); });
}

void MainMenu::ShowState() {
  for (QAction* menu : locked_) menu->setVisible(composer_.MayEdit());
  for (size_t i = 0; i < items_.size(); ++i) {
    if (items_[i].isEnabled) actions_[i]->setEnabled(items_[i].isEnabled());
    if (items_[i].isChecked) actions_[i]->setChecked(items_[i].isChecked());
  }
  ShowSteps();
  ShowSettings();
}

void MainMenu::ShowSteps() {
  const History& steps = composer_.Steps();
  const auto named = [](const char* caption, std::string_view step) {
    return step.empty() ? QLatin1String(caption)
                        : QLatin1String(caption) + QLatin1Char(' ') + ToQString(step);
  };
  Item("mnuEditUndo").setText(named("&Undo", steps.UndoName()));
  Item("mnuEditRedo").setText(named("&Redo", steps.RedoName()));
}

void MainMenu::ShowSettings() {
  for (size_t i = 0; i < formats_.size(); ++i)
    formats_.at(i)->setChecked(document_.Mode() == kModeLimits.at(i).mode);
  for (size_t i = 0; i < outputs_.size(); ++i) {
    outputs_.at(i)->setChecked(player_.outputType == static_cast<OutputType>(i));
  }
  toggles_[0]->setChecked(settings_.autoPlay);
  toggles_[1]->setChecked(settings_.playComposing);
  toggles_[2]->setChecked(settings_.playMoving);
  useDefault_->setChecked(composer_.UseDefaults());
}

}  // namespace trillomat
