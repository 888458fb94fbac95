#include "ui/main_menu.h"

#include <QActionGroup>
#include <QMenu>

#include "core/format_mode.h"
#include "ui/qt_text.h"

namespace trillomat {
namespace {

QMenu* AddMenu(QMenuBar& bar, const char* objectName, const QString& caption) {
  QMenu* menu = bar.addMenu(caption);
  menu->setObjectName(QLatin1String(objectName));
  return menu;
}

}  // namespace

MainMenu::MainMenu(QMenuBar& bar, const Document& document, Composer& composer, PlaySettings& settings,
                   Player& player)
    : QObject(&bar), document_(document), composer_(composer), settings_(settings), player_(player) {
  AddFileMenu(bar);
  AddSettingMenu(bar);
  QAction* about = bar.addAction(QStringLiteral("A&bout"));
  about->setObjectName(QStringLiteral("mnuAbout"));
  connect(about, &QAction::triggered, this, &MainMenu::AboutRequested);
  menus_[2] = about;
}

QAction* MainMenu::AddItem(QMenu& menu, const QString& objectName, const QString& caption,
                           const std::function<void()>& clicked) {
  QAction* item = menu.addAction(caption);
  item->setObjectName(objectName);
  // The check mark shows the state that the program has, whatever the click did to it.
  // An item of a menu that was open when a melody began to play does nothing.
  connect(item, &QAction::triggered, this, [this, clicked] {
    if (composer_.MayEdit()) clicked();
    ShowState();
  });
  return item;
}

void MainMenu::AddFileMenu(QMenuBar& bar) {
  QMenu* file = AddMenu(bar, "mnuFile", QStringLiteral("&File"));
  AddItem(*file, QStringLiteral("mnuFileRecover"), QStringLiteral("&Recover last melody"),
          [this] { emit RecoverRequested(); });
  AddItem(*file, QStringLiteral("mnuFileCleanUp"), QStringLiteral("&Clean up settings"),
          [this] { emit CleanUpRequested(); });
  file->addSeparator();
  QAction* exit = AddItem(*file, QStringLiteral("mnuFileExit"), QStringLiteral("E&xit"),
                          [this] { emit ExitRequested(); });
  exit->setShortcut(QKeySequence(QKeySequence::Quit));
  menus_[0] = file->menuAction();
}

void MainMenu::AddSettingMenu(QMenuBar& bar) {
  QMenu* setting = AddMenu(bar, "mnuSetting", QStringLiteral("Se&tting"));
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
      AddItem(*rtttl, QStringLiteral("mnuRTTTLUseDefault"), QStringLiteral("&Use Default in Composer"),
              [this] { composer_.ToggleUseDefaults(); });
  useDefault_->setCheckable(true);
  menus_[1] = setting->menuAction();
}

void MainMenu::AddFormatMenu(QMenu& setting) {
  QMenu* menu = setting.addMenu(QStringLiteral("&Format"));
  menu->setObjectName(QStringLiteral("mnuSettingFormat"));
  for (size_t i = 0; i < formats_.size(); ++i) {
    const ModeLimits& limits = kModeLimits.at(i);
    formats_.at(i) = AddItem(*menu, IndexedName("mnuSettingFormatType", static_cast<int>(i)),
                             QLatin1Char('&') + ToQString(limits.caption),
                             [this, mode = limits.mode] { composer_.SetMode(mode); });
    formats_.at(i)->setCheckable(true);
  }
}

void MainMenu::AddOutputMenu(QMenu& setting) {
  constexpr std::array<const char*, 3> kCaptions{"&Wave", "&Beep", "&Midi"};
  QMenu* menu = setting.addMenu(QStringLiteral("&Output"));
  menu->setObjectName(QStringLiteral("mnuSettingOutput"));
  for (size_t i = 0; i < outputs_.size(); ++i) {
    outputs_.at(i) = AddItem(*menu, IndexedName("mnuSettingOutputType", static_cast<int>(i)),
                             QLatin1String(kCaptions.at(i)),
                             [this, i] { player_.outputType = static_cast<OutputType>(i); });
    outputs_.at(i)->setCheckable(true);
  }
}

QAction* MainMenu::AddToggle(QMenu& menu, const char* objectName, const QString& caption,
                             bool PlaySettings::*flag) {
  QAction* item = AddItem(menu, QLatin1String(objectName), caption,
                          [this, flag] { settings_.*flag = !(settings_.*flag); });
  item->setCheckable(true);
  return item;
}

void MainMenu::ShowState() {
  for (QAction* menu : menus_) menu->setVisible(composer_.MayEdit());
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
