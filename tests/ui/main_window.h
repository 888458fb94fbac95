// The real main window over fakes: sound that takes no time, settings in memory, and a folder of its own
// for the melody files.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <string>
#include <vector>

#include "support/composer_fixture.h"
#include "support/folder_store.h"
#include "support/memory_store.h"
#include "support/temp_folder.h"
#include "ui/dialog_probe.h"
#include "ui/frm_main.h"
#include "ui/qt_text.h"

namespace trillomat {

/// Gives the answers that a test sets.
class FakeQuestions : public Questions {
 public:
  std::optional<std::filesystem::path> AskSavePath(QWidget* /*parent*/,
                                                   const SaveDialog& /*dialog*/) override {
    ++saveDialogs;
    return savePath;
  }
  bool AskYesNo(QWidget* /*parent*/, const QString& /*title*/, const QString& /*question*/) override {
    return yes;
  }

  int saveDialogs = 0;
  std::optional<std::filesystem::path> savePath;
  bool yes = true;
};

/// What the program is made of, apart from the window.
struct MainWindowParts : FakeWorkspace {
  FakeSound sound;
  MemoryStore settings;
  TempFolder folder;  ///< drive C:
  FolderStore files{folder.Path()};
  FakeQuestions questions;
};

/// Both halves of the melody, without the separators' extra blanks, the cursor as "|".
inline std::string ShownIn(const frmMain& window) {
  const auto half = [&window](const char* name) {
    return Control<QLineEdit>(window, name).text().simplified();
  };
  return (half("txtLeft") + "|" + half("txtRight")).toStdString();
}

class MainWindowTest : public testing::Test, public MainWindowParts {
 protected:
  /// A window that was loaded and shown, and played nothing yet.
  MainWindowTest() {
    EXPECT_TRUE(window.Load());
    window.show();
    sound.beeps.clear();
    log.lines.clear();
  }

  template <class W>
  W& Get(const QString& name) {
    return Control<W>(window, name);
  }
  void Press(const QString& name) { Get<QAbstractButton>(name).click(); }
  void Trigger(const QString& name) { Action(name).trigger(); }
  QAction& Action(const QString& name) { return Control<QAction>(window, name); }
  void SetMode(FormatMode mode) { Trigger(IndexedName("mnuSettingFormatType", static_cast<int>(mode))); }
  /// Turns one of the three settings off or on.
  void SetToggle(const QString& name, bool on) {
    if (Action(name).isChecked() != on) Trigger(name);
  }
  QString Text(const QString& name) { return Get<QLineEdit>(name).text(); }
  std::string Shown() const { return ShownIn(window); }
  /// Enters tones by their keys ("c#d"), "-" for a pause.
  void Enter(const std::string& keys) {
    const std::string letters = "cCdDefFgGaAb";
    for (const char key : keys) {
      if (key == '-') Press("cmdPause");
      if (key != '-') Press(IndexedName("cmdTone", static_cast<int>(letters.find(key))));
    }
  }

  frmMain window{{ws, clock, sound, settings, files, questions}};
};

}  // namespace trillomat
