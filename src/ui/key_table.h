// One table of everything that the keyboard does in the main window: what menus and buttons take their
// shortcuts from, what plain keys are looked up in, and what the window of keys is drawn from.
#pragma once

#include <QKeyEvent>
#include <QKeySequence>
#include <QList>
#include <QString>
#include <optional>
#include <span>

class QAction;

namespace trillomat {

enum class KeyGroup { Entering, Moving, Changing, Playing, Files, View, Help };
inline constexpr int kKeyGroups = 7;

enum class KeyCommand {
  Tones,       ///< twelve keys, c to b in the active octave
  TonesAbove,  ///< the same, an octave higher
  Pause,
  Durations,  ///< six keys, from the full note to 1/32
  NextExtra,
  OctaveUp,
  OctaveDown,
  MoveLeft,
  MoveRight,
  ToStart,
  ToEnd,
  SelectLeft,
  SelectRight,
  SelectToStart,
  SelectToEnd,
  SelectAll,
  NextProblem,
  Enter,  ///< presses the button that has the focus; in the note strip takes over length and octave
  Leave,  ///< gives the focus back to the melody
  EraseLeft,
  EraseRight,
  SemitoneUp,
  SemitoneDown,
  Undo,
  Redo,
  Cut,
  Copy,
  Paste,
  Duplicate,
  PlayOrStop,
  PlayFromCursor,
  New,
  Open,
  Save,
  SaveAs,
  Exit,
  ZoomIn,
  ZoomOut,
  ZoomReset,
  ShowKeys,
};

struct KeyRow {
  KeyCommand command;
  KeyGroup group;
  const char* keys;   ///< as QKeySequence reads them, with blanks between
  const char* words;  ///< what they do
  QKeySequence::StandardKey standard = QKeySequence::UnknownKey;  ///< the platform's keys for it come first
  const char* item = "";  ///< object name of the menu item that does the same
  /// The letters and digits of these keys mean places on the keyboard, named as on one for US English.
  bool byPlace = false;
  bool repeats = false;  ///< goes on while it is held down
};

/// The table, by groups.
std::span<const KeyRow> KeyTable();
const KeyRow& RowOf(KeyCommand command);

/// The keys of a command, the one to be shown in a menu first.
QList<QKeySequence> KeysOf(KeyCommand command);
/// The key at `index` of KeysOf as the user knows it: "Ctrl+Z".
QString KeyName(KeyCommand command, int index = 0);
/// A tooltip that names the key, too: "Move the cursor left (Left)".
QString WithKey(const QString& tip, KeyCommand command, int index = 0);
/// Gives a menu item that has a row in the table the row's keys, and a tooltip of its words.
void SetShortcuts(QAction& item);

/// What stands above the group in the list of keys: "Entering".
QString TitleOf(KeyGroup group);

/// A command's key that was pressed.
struct KeyStroke {
  KeyCommand command;
  int index;  ///< of the key in KeysOf
};

/// What a key press means, by the table alone.
std::optional<KeyStroke> StrokeOf(const QKeyEvent& press);

}  // namespace trillomat
