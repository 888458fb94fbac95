// The real main window over fakes: sound that takes no time, settings in memory, and a folder of its own
// for the melody files.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <functional>
#include <string>
#include <vector>

#include "files/folder_keeper.h"
#include "support/fake_sound.h"
#include "support/folder_store.h"
#include "support/memory_store.h"
#include "support/sample_notes.h"
#include "support/temp_folder.h"
#include "ui/controls.h"
#include "ui/dialog_probe.h"
#include "ui/main_window.h"

namespace trillomat {

/// Gives the answers that a test sets.
class FakeQuestions : public Questions {
 public:
  std::optional<std::filesystem::path> AskSavePath(QWidget* /*parent*/,
                                                   const SaveDialog& /*dialog*/) override {
    ++saveDialogs;
    if (whileAsking) whileAsking();
    return savePath;
  }
  std::optional<std::filesystem::path> AskOpenPath(QWidget* /*parent*/,
                                                   const OpenDialog& /*dialog*/) override {
    if (whileAsking) whileAsking();
    return openPath;
  }
  bool AskYesNo(QWidget* /*parent*/, const QString& /*title*/, const QString& /*question*/) override {
    return yes;
  }

  std::optional<int> AskTrack(QWidget* /*parent*/, const QStringList& asked, int proposed) override {
    tracks = asked;
    return track == kProposed ? std::optional(proposed) : track;
  }

  bool ShowPage(const std::filesystem::path& page) override {
    shownPage = page;
    return yes;
  }

  static constexpr int kProposed = -1;
  QStringList tracks;  ///< that it was last asked of
  std::optional<int> track = kProposed;
  std::filesystem::path shownPage;
  int saveDialogs = 0;
  std::function<void()> whileAsking;
  std::optional<std::filesystem::path> savePath;
  std::optional<std::filesystem::path> openPath;
  bool yes = true;
};

/// An I-Melody file with these notes, and a bad one.
inline std::string Tune(const std::string& notes) {
  return "BEGIN:IMELODY\r\nNAME:Tune\r\nBEAT:120\r\nSTYLE:S2\r\nMELODY:" + notes + "\r\nEND:IMELODY\r\n";
}
constexpr const char* kRefusedTune = "NAME:Refused\r\nBEAT:300\r\nSTYLE:S1\r\nno colon\r\n";

/// What the program is made of, apart from the window.
struct Parts : FakeServices {
  WindowParts ForWindow(const std::filesystem::path& stateFolder = {}) {
    return {document,
            record,
            services,
            clock,
            sound,
            settings,
            files,
            keeper,
            questions,
            stateFolder,
            [this] { return folder / "Music"; },
            [this](std::string_view name) { return name == "samples" ? samples : manual; }};
  }

  Document document;
  ReadRecord record;
  FakeSound sound;
  MemoryStore settings;
  TempFolder folder;  ///< drive C:
  FolderStore files{folder.Path()};
  TempFolder keptFolder;
  FolderKeeper keeper{files, keptFolder.Path()};
  FakeQuestions questions;
  std::filesystem::path samples;
  std::filesystem::path manual;
};

/// Both halves of the melody, without the separators' extra blanks, the cursor as "|".
inline std::string ShownIn(const MainWindow& window) {
  const auto half = [&window](const char* name) { return Find<QLineEdit>(window, name).text().simplified(); };
  return (half("txtLeft") + "|" + half("txtRight")).toStdString();
}

/// Opens a menu that is filled when it is opened, and takes an item of it.
inline void TriggerInList(const MainWindow& window, const char* menu, int index) {
  emit Find<QMenu>(window, menu).aboutToShow();
  Find<QAction>(window, IndexedName(menu, index)).trigger();
}

class MainWindowTest : public testing::Test, public Parts {
 protected:
  /// A window that was loaded and shown, and played nothing yet.
  MainWindowTest() {
    EXPECT_TRUE(window.Load());
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    sound.beeps.clear();
    log.lines.clear();
  }

  template <class W>
  W& Get(const QString& name) const {
    return Find<W>(window, name);
  }
  void Press(const QString& name) { Get<QAbstractButton>(name).click(); }
  void Trigger(const QString& name) { Action(name).trigger(); }
  QAction& Action(const QString& name) { return Find<QAction>(window, name); }
  void SetMode(FormatMode mode) { Trigger(IndexedName("mnuSettingFormatType", static_cast<int>(mode))); }
  void SetOutput(OutputType output) {
    Trigger(IndexedName("mnuSettingOutputType", static_cast<int>(output)));
  }
  /// Turns one of the three settings off or on.
  void SetToggle(const QString& name, bool on) {
    if (Action(name).isChecked() != on) Trigger(name);
  }
  void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window.focusWidget(), key, modifiers);
  }
  QString Text(const QString& name) const { return Get<QLineEdit>(name).text(); }
  std::string Shown() const { return ShownIn(window); }
  QString NoticeText() const {
    return Get<QWidget>("messageBar").isHidden() ? QString() : Get<QLabel>("lblMessage").text();
  }
  /// Enters tones by their keys ("c#d"), "-" for a pause.
  void Enter(const std::string& keys) {
    const std::string letters = "cCdDefFgGaAb";
    for (const char key : keys) {
      if (key == '-') Press("cmdPause");
      if (key != '-') Press(IndexedName("cmdTone", static_cast<int>(letters.find(key))));
    }
  }

  // The file list.
  QListView& List() const { return Get<QListView>("ListFiles"); }
  QModelIndex RowAt(int row) const { return List().model()->index(row, 0); }
  std::string Rows() const {
    QStringList rows;
    for (int i = 0; i < List().model()->rowCount(); ++i) rows << RowAt(i).data().toString();
    return rows.join(' ').toStdString();
  }
  /// The selected row, "" for none.
  std::string SelectedRow() const {
    return List().selectionModel()->selectedIndexes().value(0).data().toString().toStdString();
  }
  QPoint PlaceOf(const QString& row) const {
    const auto found = List().model()->match(RowAt(0), Qt::DisplayRole, row, 1, Qt::MatchFixedString);
    return List().visualRect(found.value(0)).center();
  }
  void ClickRow(const QString& row, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(List().viewport(), button, {}, PlaceOf(row));
  }
  /// As the window system sends a double click: the press of a click comes first.
  void DoubleClickRow(const QString& row) {
    const QPoint place = PlaceOf(row);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, place);
  }

  MainWindow window{ForWindow()};
};

}  // namespace trillomat
