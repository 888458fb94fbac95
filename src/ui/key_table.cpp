#include "ui/key_table.h"

#include <QAction>
#include <algorithm>
#include <array>

#include "ui/key_place.h"

namespace trillomat {
namespace {

using enum KeyCommand;
using enum KeyGroup;

constexpr std::array kTable{
    KeyRow{.command = Tones,
           .group = Entering,
           .keys = "Z S X D C V G B H N J M",
           .words = "The tones c to b of the active octave",
           .byPlace = true},
    KeyRow{.command = TonesAbove,
           .group = Entering,
           .keys = "Q 2 W 3 E R 5 T 6 Y 7 U",
           .words = "The tones c to b, an octave higher",
           .byPlace = true},
    KeyRow{.command = Pause, .group = Entering, .keys = "-", .words = "A pause"},
    KeyRow{.command = Durations,
           .group = Entering,
           .keys = "Ctrl+1 Ctrl+2 Ctrl+3 Ctrl+4 Ctrl+5 Ctrl+6",
           .words = "The duration: full note, 1/2, 1/4, 1/8, 1/16 and 1/32",
           .byPlace = true},
    KeyRow{.command = NextExtra,
           .group = Entering,
           .keys = ".",
           .words = "The next extra: nothing, dotted, double dotted, 2/3 length"},
    KeyRow{.command = OctaveUp,
           .group = Entering,
           .keys = "PgUp",
           .words = "The active octave one higher",
           .repeats = true},
    KeyRow{.command = OctaveDown,
           .group = Entering,
           .keys = "PgDown",
           .words = "The active octave one lower",
           .repeats = true},
    KeyRow{.command = Enter,
           .group = Entering,
           .keys = "Return Enter",
           .words = "In the note strip, take over length and octave; elsewhere, press the button"},
    KeyRow{.command = MoveLeft,
           .group = Moving,
           .keys = "Left",
           .words = "Move the cursor left",
           .repeats = true},
    KeyRow{.command = MoveRight,
           .group = Moving,
           .keys = "Right",
           .words = "Move the cursor right",
           .repeats = true},
    KeyRow{.command = ToStart,
           .group = Moving,
           .keys = "Home",
           .words = "Put the cursor before the first element",
           .repeats = true},
    KeyRow{.command = ToEnd,
           .group = Moving,
           .keys = "End",
           .words = "Put the cursor behind the last element",
           .repeats = true},
    KeyRow{.command = SelectLeft,
           .group = Moving,
           .keys = "Shift+Left",
           .words = "Select one element more, or less, to the left",
           .repeats = true},
    KeyRow{.command = SelectRight,
           .group = Moving,
           .keys = "Shift+Right",
           .words = "Select one element more, or less, to the right",
           .repeats = true},
    KeyRow{.command = SelectToStart,
           .group = Moving,
           .keys = "Shift+Home",
           .words = "Select as far as the first element"},
    KeyRow{.command = SelectToEnd,
           .group = Moving,
           .keys = "Shift+End",
           .words = "Select as far as the last element"},
    KeyRow{.command = SelectAll,
           .group = Moving,
           .keys = "Ctrl+A",
           .words = "Select the whole melody",
           .standard = QKeySequence::SelectAll,
           .item = "mnuEditSelectAll"},
    KeyRow{.command = NextProblem,
           .group = Moving,
           .keys = "F8",
           .words = "Select the next element that was not understood or that the format cannot hold",
           .item = "mnuEditNextProblem"},
    KeyRow{.command = Leave,
           .group = Moving,
           .keys = "Esc",
           .words = "Go back to the melody, from wherever the focus is"},
    KeyRow{.command = EraseLeft,
           .group = Changing,
           .keys = "Backspace",
           .words = "Erase the element left of the cursor, or what is selected",
           .repeats = true},
    KeyRow{.command = EraseRight,
           .group = Changing,
           .keys = "Del",
           .words = "Erase the element right of the cursor, or what is selected",
           .item = "mnuEditDelete",
           .repeats = true},
    KeyRow{.command = SemitoneUp,
           .group = Changing,
           .keys = "Ctrl+Up",
           .words = "Move what is selected, or the whole melody, up by a semitone",
           .item = "mnuEditSemitoneUp"},
    KeyRow{.command = SemitoneDown,
           .group = Changing,
           .keys = "Ctrl+Down",
           .words = "Move what is selected, or the whole melody, down by a semitone",
           .item = "mnuEditSemitoneDown"},
    KeyRow{.command = Undo,
           .group = Changing,
           .keys = "Ctrl+Z",
           .words = "Take back the last change",
           .standard = QKeySequence::Undo,
           .item = "mnuEditUndo"},
    KeyRow{.command = Redo,
           .group = Changing,
           .keys = "Ctrl+Shift+Z",
           .words = "Make the change again that was taken back last",
           .standard = QKeySequence::Redo,
           .item = "mnuEditRedo"},
    KeyRow{.command = Cut,
           .group = Changing,
           .keys = "Ctrl+X",
           .words = "Cut what is selected",
           .standard = QKeySequence::Cut,
           .item = "mnuEditCut"},
    KeyRow{.command = Copy,
           .group = Changing,
           .keys = "Ctrl+C",
           .words = "Copy what is selected",
           .standard = QKeySequence::Copy,
           .item = "mnuEditCopy"},
    KeyRow{.command = Paste,
           .group = Changing,
           .keys = "Ctrl+V",
           .words = "Paste behind the cursor, or in the place of what is selected",
           .standard = QKeySequence::Paste,
           .item = "mnuEditPaste"},
    KeyRow{.command = Duplicate,
           .group = Changing,
           .keys = "Ctrl+D",
           .words = "Insert what is selected, or the element at the cursor, once more",
           .item = "mnuEditDuplicate"},
    KeyRow{.command = PlayOrStop,
           .group = Playing,
           .keys = "Space",
           .words = "Play the melody from its start, or stop",
           .item = "mnuPlayOrStop"},
    KeyRow{.command = PlayFromCursor,
           .group = Playing,
           .keys = "Shift+Space",
           .words = "Play the melody from the cursor, or stop",
           .item = "mnuPlayFromCursor"},
    KeyRow{.command = New,
           .group = Files,
           .keys = "Ctrl+N",
           .words = "Begin a new melody",
           .standard = QKeySequence::New,
           .item = "mnuFileNew"},
    KeyRow{.command = Open,
           .group = Files,
           .keys = "Ctrl+O",
           .words = "Open a file",
           .standard = QKeySequence::Open,
           .item = "mnuFileOpen"},
    KeyRow{.command = Save,
           .group = Files,
           .keys = "Ctrl+S",
           .words = "Save the melody to its file",
           .standard = QKeySequence::Save,
           .item = "mnuFileSave"},
    KeyRow{.command = SaveAs,
           .group = Files,
           .keys = "Ctrl+Shift+S",
           .words = "Save the melody to a new file",
           .standard = QKeySequence::SaveAs,
           .item = "mnuFileSaveAs"},
    KeyRow{.command = Exit,
           .group = Files,
           .keys = "Ctrl+Q",
           .words = "End the program",
           .standard = QKeySequence::Quit,
           .item = "mnuFileExit"},
    KeyRow{.command = ZoomIn,
           .group = View,
           .keys = "Ctrl++ Ctrl+=",
           .words = "Make the note strip larger",
           .standard = QKeySequence::ZoomIn,
           .item = "mnuViewZoomIn"},
    KeyRow{.command = ZoomOut,
           .group = View,
           .keys = "Ctrl+-",
           .words = "Make the note strip smaller",
           .standard = QKeySequence::ZoomOut,
           .item = "mnuViewZoomOut"},
    KeyRow{.command = ZoomReset,
           .group = View,
           .keys = "Ctrl+0",
           .words = "Give the note strip its usual size",
           .item = "mnuViewZoomReset"},
    KeyRow{.command = ShowKeys,
           .group = Help,
           .keys = "F1",
           .words = "Show this list of keys",
           .standard = QKeySequence::HelpContents,
           .item = "mnuHelpKeys"},
};

// The modifiers that a key's meaning depends on. Whether a sign takes Shift differs from keyboard to
// keyboard, so for signs Shift does not count.
Qt::KeyboardModifiers ModifiersOf(const QKeyEvent& press) {
  Qt::KeyboardModifiers modifiers = press.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
  const int key = press.key();
  const bool sign =
      key == Qt::Key_Period || key == Qt::Key_Minus || key == Qt::Key_Plus || key == Qt::Key_Equal;
  if (sign) modifiers &= ~Qt::KeyboardModifiers(Qt::ShiftModifier);
  return modifiers;
}

bool IsLetterOrDigit(int key) {
  return (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
}

// The key at the pressed place of a keyboard for US English, 0 for none that the rows name. Where the system
// does not tell the place, letters and digits are taken as they are.
int PlacedKey(const QKeyEvent& press) {
  if (const auto scanCode = PlaceOf(press)) return KeyAtPlace(*scanCode);
  return IsLetterOrDigit(press.key()) && !press.modifiers().testFlag(Qt::KeypadModifier) ? press.key() : 0;
}

// Looks for `key` in the rows whose flag `byPlace` is the same.
std::optional<KeyStroke> Find(const QKeySequence& key, bool byPlace) {
  for (const KeyRow& row : kTable) {
    const auto index = row.byPlace == byPlace ? KeysOf(row.command).indexOf(key) : -1;
    if (index >= 0) return KeyStroke{row.command, static_cast<int>(index)};
  }
  return std::nullopt;
}

}  // namespace

std::span<const KeyRow> KeyTable() { return kTable; }

const KeyRow& RowOf(KeyCommand command) {
  return *std::find_if(kTable.begin(), kTable.end(),
                       [=](const KeyRow& row) { return row.command == command; });
}

QList<QKeySequence> KeysOf(KeyCommand command) {
  const KeyRow& row = RowOf(command);
  QList<QKeySequence> keys = QKeySequence::keyBindings(row.standard);
  for (const QString& key : QString::fromLatin1(row.keys).split(u' ')) {
    const QKeySequence sequence = QKeySequence::fromString(key, QKeySequence::PortableText);
    if (!keys.contains(sequence)) keys.append(sequence);
  }
  return keys;
}

QString KeyName(KeyCommand command, int index) {
  return KeysOf(command).value(index).toString(QKeySequence::NativeText);
}

QString WithKey(const QString& tip, KeyCommand command, int index) {
  return QStringLiteral("%1 (%2)").arg(tip, KeyName(command, index));
}

void SetShortcuts(QAction& item) {
  for (const KeyRow& row : kTable) {
    const QLatin1String name(row.item);
    if (name.isEmpty() || item.objectName() != name) continue;
    item.setShortcuts(KeysOf(row.command));
    item.setToolTip(WithKey(QLatin1String(row.words), row.command));
  }
}

QString TitleOf(KeyGroup group) {
  constexpr std::array<const char*, kKeyGroups> kTitles{
      "Entering", "Moving and selecting", "Changing", "Playing", "Files", "View", "Help"};
  return QLatin1String(kTitles.at(static_cast<size_t>(group)));
}

// Places come first: where another keyboard has "." on a key that means a tone, the key means the tone. A key
// that means nothing else has the meaning of "-" or "." when it is in that sign's place.
std::optional<KeyStroke> StrokeOf(const QKeyEvent& press) {
  const Qt::KeyboardModifiers modifiers = ModifiersOf(press);
  const int placed = PlacedKey(press);
  const QKeySequence asPlaced(QKeyCombination(modifiers, static_cast<Qt::Key>(placed)));
  const QKeySequence asNamed(QKeyCombination(modifiers, static_cast<Qt::Key>(press.key())));
  if (const auto stroke = Find(asPlaced, true)) return stroke;
  if (const auto stroke = Find(asNamed, false)) return stroke;
  const bool sign = placed != 0 && !IsLetterOrDigit(placed) && modifiers == Qt::NoModifier;
  return sign ? Find(asPlaced, false) : std::nullopt;
}

}  // namespace trillomat
