// The table of keys: every row of it pressed in the real main window.
#include <QMap>
#include <QSet>
#include <QSignalSpy>
#include <QTreeWidget>

#include "core/tone.h"
#include "ui/key_place.h"
#include "ui/keys_window.h"
#include "ui/main_window_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(KeyTable, NoTwoRowsShareAKey) {
  QSet<QString> seen;
  for (const KeyRow& row : KeyTable()) {
    EXPECT_FALSE(KeysOf(row.command).isEmpty()) << row.words;
    for (const QKeySequence& key : KeysOf(row.command)) {
      const QString name = key.toString(QKeySequence::PortableText);
      EXPECT_EQ(key.count(), 1) << row.words;
      EXPECT_FALSE(seen.contains(name)) << name.toStdString();
      seen.insert(name);
    }
  }
  EXPECT_GE(seen.size(), 65);
}

TEST(KeyTable, TellsPlacesFromScanCodes) {
  // The rows of the keyboard from the left, as the published scan codes of set 1 number them.
  const std::map<quint32, char> places{{2, '1'},  {3, '2'},  {8, '7'},  {16, 'Q'}, {22, 'U'}, {31, 'S'},
                                       {36, 'J'}, {44, 'Z'}, {50, 'M'}, {12, '-'}, {52, '.'}};
  for (const auto& [code, key] : places) EXPECT_EQ(KeyAtPlace(code), key) << code;
  for (const quint32 code : {0U, 1U, 13U, 26U, 28U, 42U, 51U, 53U, 71U, 0x120U})
    EXPECT_EQ(KeyAtPlace(code), 0);
}

/// The main window with three notes, the cursor behind the second.
class Keys : public MainWindowTest {
 protected:
  Keys() { SetToggle("mnuSettingPlayMoving", false); }

  void Prepare(ElementRange selected = {}) {
    document.Apply({.removed = document.Size(),
                    .inserted = ElementsOf("*4c2 *4d2 *4e2"),
                    .cursor = 1,
                    .selection = selected});
    Press("optDuration(2)");
    Press("optDurationExtra(0)");
    Get<QSlider>("SliderOctave").setValue(4);
    Get<QWidget>("txtRight").setFocus();
    sound.beeps.clear();
  }
  void PressKeyOf(KeyCommand command, int index = 0) {
    const QKeyCombination key = KeysOf(command).at(index)[0];
    QTest::keyClick(window.focusWidget(), key.key(), key.keyboardModifiers());
  }
  /// Notes with the cursor as "|", what is selected, and the octave, duration and extra of the next.
  std::string State() const {
    const auto cursor = document.Elements().begin() + document.Cursor() + 1;
    const auto checked = [this](const char* group, int count) {
      for (int i = 0; i < count; ++i) {
        if (Get<QRadioButton>(IndexedName(group, i)).isChecked()) return std::to_string(i);
      }
      return std::string("none");
    };
    const ElementRange selected = document.Selection();
    return TokensOf({document.Elements().begin(), cursor}, " ") + "|" +
           TokensOf({cursor, document.Elements().end()}, " ") + " " + std::to_string(selected.begin) + "-" +
           std::to_string(selected.end) + " " + std::to_string(Get<QSlider>("SliderOctave").value()) +
           checked("optDuration", 6) + checked("optDurationExtra", 4);
  }
};

TEST_F(Keys, EveryRowThatNoMenuStandsForDoesWhatItSays) {
  const std::map<KeyCommand, std::string> expected{{KeyCommand::Pause, "*4c2 *4d2 r2|*4e2 0-0 420"},
                                                   {KeyCommand::NextExtra, "*4c2 *4d2|*4e2 0-0 421"},
                                                   {KeyCommand::OctaveUp, "*4c2 *4d2|*4e2 0-0 520"},
                                                   {KeyCommand::OctaveDown, "*4c2 *4d2|*4e2 0-0 320"},
                                                   {KeyCommand::MoveLeft, "*4c2|*4d2 *4e2 0-0 420"},
                                                   {KeyCommand::MoveRight, "*4c2 *4d2 *4e2| 0-0 420"},
                                                   {KeyCommand::ToStart, "|*4c2 *4d2 *4e2 0-0 420"},
                                                   {KeyCommand::ToEnd, "*4c2 *4d2 *4e2| 0-0 420"},
                                                   {KeyCommand::SelectLeft, "*4c2|*4d2 *4e2 1-2 420"},
                                                   {KeyCommand::SelectRight, "*4c2 *4d2 *4e2| 2-3 420"},
                                                   {KeyCommand::SelectToStart, "|*4c2 *4d2 *4e2 0-2 420"},
                                                   {KeyCommand::SelectToEnd, "*4c2 *4d2 *4e2| 2-3 420"},
                                                   {KeyCommand::EraseLeft, "*4c2|*4e2 0-0 420"},
                                                   {KeyCommand::EraseRight, "*4c2 *4d2| 0-0 420"}};
  for (const auto& [command, state] : expected) {
    Prepare();
    PressKeyOf(command);
    EXPECT_EQ(State(), state) << RowOf(command).words;
    EXPECT_THAT(sound.beeps, IsEmpty());
  }
  QSet<KeyCommand> pressed;
  for (const auto& entry : expected) pressed.insert(entry.first);
  for (int tone = 0; tone < 12; ++tone) {
    for (const auto& [command, octave] : {std::pair{KeyCommand::Tones, 4}, {KeyCommand::TonesAbove, 5}}) {
      Prepare();
      PressKeyOf(command, tone);
      ASSERT_EQ(document.Size(), 4U);
      EXPECT_EQ(document.At(2), Note(kPianoTones.at(static_cast<size_t>(tone)), octave));
      EXPECT_THAT(sound.beeps, testing::SizeIs(1));
      pressed.insert(command);
    }
  }
  for (int duration = 0; duration < 6; ++duration) {
    Prepare();
    PressKeyOf(KeyCommand::Durations, duration);
    EXPECT_EQ(State(), "*4c2 *4d2|*4e2 0-0 4" + std::to_string(duration) + "0");
  }
  Prepare();
  PressKeyOf(KeyCommand::PlayOrStop);
  EXPECT_THAT(sound.beeps, ElementsAre(528, 592, 656));
  Prepare();
  PressKeyOf(KeyCommand::PlayFromCursor);
  EXPECT_THAT(sound.beeps, ElementsAre(592, 656));
  for (int key = 0; key < 2; ++key) {
    Prepare();
    Get<QWidget>("cmdPause").setFocus();
    PressKeyOf(KeyCommand::Enter, key);
    EXPECT_EQ(State(), expected.at(KeyCommand::Pause));
  }
  Get<QWidget>("SliderOctave").setFocus();
  PressKeyOf(KeyCommand::Leave);
  EXPECT_EQ(window.focusWidget()->objectName(), "txtRight");
  for (const auto command : {KeyCommand::Durations, KeyCommand::PlayOrStop, KeyCommand::PlayFromCursor,
                             KeyCommand::Enter, KeyCommand::Leave}) {
    pressed.insert(command);
  }
  for (const KeyRow& row : KeyTable()) {
    EXPECT_TRUE(pressed.contains(row.command) || *row.item != 0) << row.words << " was not pressed";
  }
}

TEST_F(Keys, EveryMenuItemOfTheTableIsRunByItsKeysAndShowsThem) {
  for (const auto* item : window.findChildren<QAction*>()) {
    EXPECT_TRUE(!item->isSeparator() || item->shortcuts().isEmpty());
  }
  const std::map<KeyCommand, std::string> expected{{KeyCommand::SelectAll, "*4c2 *4d2 *4e2| 0-3 420"},
                                                   {KeyCommand::SemitoneUp, "*4c2 *4#d2|*4e2 1-2 420"},
                                                   {KeyCommand::SemitoneDown, "*4c2 *4#c2|*4e2 1-2 420"},
                                                   {KeyCommand::Cut, "*4c2|*4e2 0-0 420"},
                                                   {KeyCommand::Copy, "*4c2 *4d2|*4e2 1-2 420"},
                                                   {KeyCommand::Paste, "*4c2 *4d2|*4e2 0-0 420"},
                                                   {KeyCommand::Duplicate, "*4c2 *4d2 *4d2|*4e2 2-3 420"},
                                                   {KeyCommand::Undo, "*4c2 *4d2|*4e2 0-0 420"},
                                                   {KeyCommand::Redo, "*4c2 *4d2 r2|*4e2 0-0 420"}};
  for (const KeyRow& row : KeyTable()) {
    if (*row.item == 0) continue;
    EXPECT_EQ(Action(row.item).shortcuts(), KeysOf(row.command)) << row.item;
    // These are not the menu's: they work while it is hidden, too, and when they are held down.
    const bool bound = row.command == KeyCommand::EraseRight || row.command == KeyCommand::PlayOrStop ||
                       row.command == KeyCommand::PlayFromCursor;
    for (int key = 0; !bound && row.command != KeyCommand::Exit && key < KeysOf(row.command).size(); ++key) {
      Prepare({1, 2});
      const bool steps = row.command == KeyCommand::Undo || row.command == KeyCommand::Redo;
      if (steps) {
        document.Apply({.cursor = 1});
        PressKeyOf(KeyCommand::Pause);
      }
      if (row.command == KeyCommand::Redo) PressKeyOf(KeyCommand::Undo);
      const QSignalSpy triggered(&Action(row.item), &QAction::triggered);
      PressKeyOf(row.command, key);
      EXPECT_EQ(triggered.count(), 1) << row.item << " " << KeyName(row.command, key).toStdString();
      if (expected.contains(row.command)) {
        EXPECT_EQ(State(), expected.at(row.command)) << row.item;
      }
      window.activateWindow();
    }
  }
  const QSignalSpy closed(&window, &MainWindow::Closed);
  PressKeyOf(KeyCommand::Exit);
  EXPECT_EQ(closed.count(), 1);
}

TEST_F(Keys, TheRowAboveIsRefusedWhereTheModeHasNoSuchOctave) {
  for (const KeyCommand command : {KeyCommand::TonesAbove, KeyCommand::Tones}) {
    SetMode(FormatMode::Melody);
    Prepare();
    log.lines.clear();
    PressKeyOf(command, 3);
    const bool entered = command == KeyCommand::Tones;
    EXPECT_EQ(document.Size(), entered ? 4U : 3U);
    EXPECT_EQ(log.lines.size(), entered ? 0U : 1U);
  }
}

TEST_F(Keys, ExtrasAndDurationsAreThoseOfTheMode) {
  const auto extras = [this] {
    std::string chosen;
    for (int i = 0; i < 5; ++i) {
      PressKeyOf(KeyCommand::NextExtra);
      chosen += State().back();
    }
    return chosen;
  };
  for (const auto& [mode, chosen] : {std::pair{FormatMode::IMelody, "12301"},
                                     {FormatMode::Rtttl, "10101"},
                                     {FormatMode::EMelody, "00000"}}) {
    SetMode(mode);
    Prepare();
    EXPECT_EQ(extras(), chosen);
  }
  SetMode(FormatMode::Melody);
  PressKeyOf(KeyCommand::Durations, 0);
  EXPECT_TRUE(Get<QRadioButton>("optDuration(3)").isChecked()) << "there are no full notes";
}

TEST_F(Keys, AKeyThatIsHeldDownMovesAndErasesButEntersNothing) {
  const auto hold = [this](KeyCommand command) {
    const QKeyCombination key = KeysOf(command).at(0)[0];
    for (int i = 0; i < 3; ++i) {
      QKeyEvent press(QEvent::KeyPress, key.key(), key.keyboardModifiers(), {}, i > 0);
      QCoreApplication::sendEvent(window.focusWidget(), &press);
    }
  };
  Prepare();
  for (const auto command : {KeyCommand::Tones, KeyCommand::TonesAbove, KeyCommand::Pause}) hold(command);
  EXPECT_THAT(document.Elements(), testing::SizeIs(3 + 3));
  hold(KeyCommand::EraseLeft);
  EXPECT_THAT(document.Elements(), testing::SizeIs(3));
  hold(KeyCommand::PlayOrStop);
  EXPECT_THAT(sound.beeps, testing::SizeIs(2 + 3)) << "the tones that were entered, and once the melody";
}

TEST_F(Keys, WhatAControlUsesItselfIsNotTakenFromIt) {
  using Case = std::tuple<const char*, KeyCommand, bool>;
  for (const auto& [control, command, taken] :
       {Case{"SliderOctave", KeyCommand::MoveLeft, false}, Case{"SliderOctave", KeyCommand::EraseLeft, true},
        Case{"cboSongInfo(0)", KeyCommand::ToEnd, false}, Case{"cboSongInfo(0)", KeyCommand::Pause, true},
        Case{"ListFiles", KeyCommand::EraseLeft, false}, Case{"ListFiles", KeyCommand::Pause, true},
        Case{"cboVolume", KeyCommand::Pause, false}, Case{"txtSongInfo(2)", KeyCommand::EraseLeft, false},
        Case{"cmdTone(3)", KeyCommand::MoveLeft, true}, Case{"cmdTone(3)", KeyCommand::SelectLeft, true},
        Case{"txtLeft", KeyCommand::SelectLeft, true}}) {
    Prepare();
    Get<QWidget>(control).setFocus();
    const int32_t cursor = document.Cursor();
    PressKeyOf(command);
    EXPECT_EQ(document.Cursor() != cursor, taken) << control << " " << RowOf(command).words;
  }
  Prepare();
  Get<QWidget>("txtSongInfo(2)").setFocus();
  PressKeyOf(KeyCommand::Durations, 4);
  EXPECT_EQ(State(), "*4c2 *4d2|*4e2 0-0 440") << "Ctrl means the same in a text box";
}

TEST_F(Keys, TheWindowOfKeysListsEveryRowAndClosesByEscape) {
  KeysWindow keys(&window);
  keys.show();
  auto& list = Find<QTreeWidget>(keys, "lstKeys");
  EXPECT_FALSE(keys.isModal()) << "to be looked at while composing";
  EXPECT_FALSE(list.accessibleName().isEmpty());
  QStringList words;
  for (int i = 0; i < list.topLevelItemCount(); ++i) {
    for (int row = 0; row < list.topLevelItem(i)->childCount(); ++row) {
      words << list.topLevelItem(i)->child(row)->text(1);
      EXPECT_FALSE(list.topLevelItem(i)->child(row)->text(0).isEmpty());
    }
  }
  EXPECT_EQ(list.topLevelItemCount(), kKeyGroups);
  for (const KeyRow& row : KeyTable()) EXPECT_EQ(words.count(row.words), 1) << row.words;
  QTest::keyClick(&list, Qt::Key_Escape);
  EXPECT_FALSE(keys.isVisible());
}

}  // namespace
}  // namespace trillomat
