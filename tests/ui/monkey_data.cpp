#include "ui/monkey_data.h"

#include <QUrl>

#include "files/path_text.h"
#include "files/recovery_text.h"
#include "support/midi_bytes.h"
#include "ui/main_window_fixture.h"
#include "ui/melody_clipboard.h"

namespace trillomat {
namespace {

constexpr const char* kTexts[] = {"",    "0",   "2",     "15",  "16",    "100",         "901",
                                  "abc", "-1",  "ä\nb",  "V7",  "S1",    "99999999999", ")",
                                  "((",  "@0)", "cDe#f", "1.5", "a:b,c", "Ж☺",          "x:d=4:c,8d#,2p,e6."};

// No reader makes elements of these, but the program's own form on the clipboard can hold them.
constexpr const char* kOddNotes[] = {"c", "#d", "&e", "r", "H", "xyz", "", "a note of more than a word"};
constexpr const char* kOddCommands[] = {"(",      "@2)", "@0)",     "vibeon", "V15",
                                        "ledoff", ")",   "nothing", "@99999)"};
constexpr int16_t kOddOctaves[] = {4, 3, 0, 8, kNoOctave, -32768, 32767};
constexpr float kOddLengths[] = {1.0F, 0.125F, 4.0F, 1.5F, 0.0F, -1.0F, 99.0F, 0.3F};

Element AnyElement(Dice& dice) {
  const bool odd = dice.OneIn(4);
  Element element = Tone("c", 4, kDurations.at(static_cast<size_t>(dice.Number(6))), 1);
  if (!odd) return element;
  element.duration = dice.AnyOf(kOddLengths);
  element.extra = dice.AnyOf(kOddLengths);
  element.octave = dice.AnyOf(kOddOctaves);
  element.SetNote(dice.AnyOf(kOddNotes));
  if (dice.OneIn(3)) element.SetCommand(dice.AnyOf(kOddCommands));
  return element;
}

std::string OwnForm(Dice& dice) {
  Song song;
  for (int i = dice.Number(12); i > 0; --i) song.elements.push_back(AnyElement(dice));
  song.info.name = AnyText(dice).toStdString();
  song.info.bpm = dice.Number(1000) - 50;
  return WriteRecovery(song, static_cast<FormatMode>(dice.Number(kFormatModes)), {}, 0);
}

// `text` cut, with one byte changed, or with a part of it twice.
std::string Damaged(std::string text, Dice& dice) {
  const auto place = static_cast<size_t>(dice.Number(static_cast<int>(text.size())));
  switch (dice.Number(3)) {
    case 0: return text.substr(0, place);
    case 1: text[place] = static_cast<char>(dice.Number(256)); return text;
    default: return text + text.substr(place);
  }
}

QString AnyTune(Dice& dice) {
  const std::vector<std::string> tunes = FileContents();
  return QString::fromLatin1(QByteArray::fromStdString(dice.AnyOf(tunes)));
}

QUrl AnyPlace(Dice& dice, FileMischief& files, const TempFolder& folder) {
  constexpr const char* kElsewhere[] = {
      "http://localhost/a.imy", "file:///", "file:", "data:,c", "a.imy", ""};
  if (dice.OneIn(6)) return QUrl(dice.AnyOf(kElsewhere));
  return QUrl::fromLocalFile(FromUtf8Bytes(Utf8OfPath(folder / files.AnyName())));
}

// A MIDI file with `tracks` tracks.
std::string Midi(int tracks) {
  std::vector<std::string> bytes;
  for (int i = 0; i < tracks; ++i) {
    MidiTrackDraft track;
    for (int note = 0; note < 4; ++note) track.Note(note * 96, note * 96 + 96, 60 + note + i);
    bytes.push_back(track.Track());
  }
  return MidiBytes(1, 96, bytes);
}

}  // namespace

std::vector<std::string> FileContents() {
  const std::string tune = Tune("(ledonc2d3r4vibeon@2)&e5");
  return {tune,
          Tune("c2"),
          kRefusedTune,
          "tune:d=4,o=5,b=900:c,p,b,8d#,6,32e.",
          "c+dp(b)e",
          "BEGIN:EMELODY\r\nMELODY:cDe.p\r\nEND:EMELODY\r\n",
          Midi(1),
          Midi(3),
          Midi(2).substr(0, 60),
          tune.substr(0, 50),
          std::string("\0\xFF\x81", 3),
          ""};
}

QString AnyText(Dice& dice) { return QString::fromUtf8(dice.AnyOf(kTexts)); }

std::unique_ptr<QMimeData> AnyData(Dice& dice, FileMischief& files, const TempFolder& folder) {
  auto data = std::make_unique<QMimeData>();
  const QString own = QLatin1String(kElementsType);
  if (dice.OneIn(2)) {
    QList<QUrl> places{AnyPlace(dice, files, folder)};
    while (dice.OneIn(5)) places << AnyPlace(dice, files, folder);
    data->setUrls(places);
  }
  if (dice.OneIn(3)) data->setText(dice.OneIn(3) ? AnyTune(dice) : AnyText(dice));
  if (dice.OneIn(6)) data->setData(own, QByteArray::fromStdString(OwnForm(dice)));
  if (dice.OneIn(6)) data->setData(own, QByteArray::fromStdString(Damaged(OwnForm(dice), dice)));
  if (dice.OneIn(9)) data->setData(own, AnyText(dice).toUtf8());
  if (dice.OneIn(9)) data->setHtml(QStringLiteral("<b>c2</b>") + AnyText(dice));
  if (dice.OneIn(9)) data->setData(QStringLiteral("text/uri-list"), AnyText(dice).toUtf8());
  return data;
}

}  // namespace trillomat
