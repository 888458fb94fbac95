// The composer's editing: insertion, the cursor, erasing, re-timing and re-spelling.
#include <algorithm>

#include "composer/change_scale.h"
#include "composer/composer.h"
#include "core/ascii.h"

namespace trillomat {
namespace {

struct Accidentals {
  bool sharp;
  bool flat;
};

// What a letter can be spelled with on a piano: e and b have no sharp, c and f no flat.
std::optional<Accidentals> AccidentalsOf(std::string_view letter) {
  if (letter == "e" || letter == "b") return Accidentals{.sharp = false, .flat = true};
  if (letter == "c" || letter == "f") return Accidentals{.sharp = true, .flat = false};
  if (letter == "d" || letter == "g" || letter == "a") return Accidentals{.sharp = true, .flat = true};
  return std::nullopt;
}

// Natural, sharp, flat, natural; what the letter cannot have is passed over.
std::string NextSpelling(const std::string& note, Accidentals allowed) {
  std::string rest = note.empty() ? "" : note.substr(1);
  if (note.starts_with('#')) return allowed.flat ? "&" + rest : rest;
  if (note.starts_with('&')) return rest;
  if (allowed.sharp) return "#" + note;
  return allowed.flat ? "&" + note : note;
}

}  // namespace

void Composer::InsertElement(const MelodyNote& note, bool play) {
  Melody& melody = ws_.melody;
  const bool append = melody.IsEmpty() || melody.lCurrentIndex >= melody.UpperBound();
  const int32_t at = append ? melody.UpperBound() + 1 : melody.lCurrentIndex + 1;
  melody.Insert(at, note);
  melody.lCurrentIndex = at;
  if (!play || !settings_.bPlayComposing) return;
  RefreshMelodyView();  // what sounds is to be seen while it sounds
  PlayAt(at);
}

void Composer::cmdTone_Click(int index) {
  if (bToneBusy_) return;
  bToneBusy_ = true;
  MelodyNote note;
  note.Octave = static_cast<int16_t>(state_.octave);
  note.Note = kToneKeys.at(static_cast<size_t>(index));
  note.Duration = kDurations.at(static_cast<size_t>(state_.duration));
  note.DurationExtra = kDurationExtras.at(static_cast<size_t>(state_.durationExtra));
  InsertElement(note, true);
  RefreshMelodyView();
  bToneBusy_ = false;
}

void Composer::cmdPause_Click() {
  MelodyNote note;
  note.Octave = kNoOctave;
  note.Note = "r";
  note.Duration = kDurations.at(static_cast<size_t>(state_.duration));
  note.DurationExtra = kDurationExtras.at(static_cast<size_t>(state_.durationExtra));
  InsertElement(note, false);
  RefreshMelodyView();
}

void Composer::cmdInsert_Click(int index, std::string_view repeatCount, std::string_view volume) {
  const bool known = index >= 0 && index < static_cast<int>(kInsertButtons.size());
  const InsertButton button = known ? kInsertButtons.at(static_cast<size_t>(index)) : InsertButton{"", true};
  std::string special(button.special);
  if (index == kRepeatStop) special += std::string(repeatCount) + ")";
  if (index == kSetVolume) special += volume;
  if (index == kRepeatStart || index == kRepeatStop) {
    state_.repeatBox = index == kRepeatStart;
    view_.ShowComposer();
  }
  MelodyNote note = CommandNote(special);
  note.Duration = 1.0F;
  note.DurationExtra = 1.0F;
  InsertElement(note, button.playedOnInsert);
  RefreshMelodyView();
}

void Composer::optDuration_Click(int index) {
  UpdateBeatLength();
  state_.duration = index;
  view_.ShowComposer();
}

void Composer::optDurationExtra_Click(int index) {
  if (index < 0 || index >= static_cast<int>(kDurationExtras.size())) return;
  state_.durationExtra = index;
  view_.ShowComposer();
}

void Composer::SliderOctave_Change(int value) {
  const ModeLimits& limits = LimitsOf(ws_.iNoteMode);
  state_.octave = std::clamp<int>(value, limits.iOctaveMin, limits.iOctaveMax);
  view_.ShowComposer();
}

void Composer::cmdDuration_Click() {
  if (!HasElementAtCursor()) return;
  constexpr int kCount = static_cast<int>(kDurations.size());
  // A length without a code reads as code 0, a full note.
  int code = std::max(DurationIndex(ws_.melody.At(ws_.melody.lCurrentIndex).Duration), 0);
  do {
    code = (code + 1) % kCount;
    if (!ws_.pump.PumpEvents()) return;
  } while (!HasDuration(code));
  optDuration_Click(code);
  if (!HasElementAtCursor()) return;  // an event that ran meanwhile erased it
  const int32_t at = ws_.melody.lCurrentIndex;
  MelodyNote note = ws_.melody.At(at);
  note.Duration = kDurations.at(static_cast<size_t>(state_.duration));
  ws_.melody.Replace(at, note);
  RefreshMelodyView();
  if (settings_.bPlayComposing) PlayAt(at);
}

void Composer::cmdLowHigh_Click() {
  if (!HasElementAtCursor()) return;
  const int32_t at = ws_.melody.lCurrentIndex;
  MelodyNote note = ws_.melody.At(at);
  if (ToLower(note.Note.empty() ? '\0' : note.Note.front()) == 'r') return;
  const std::string letter = ReplaceAll(ReplaceAll(note.Note, "#", ""), "&", "");
  if (const auto allowed = AccidentalsOf(Lowered(letter))) {
    note.Note = NextSpelling(note.Note, *allowed);
    ws_.melody.Replace(at, note);
  } else {
    ws_.log.WriteLog("Can not find the correct note-->" + letter, 1);
  }
  RefreshMelodyView();
  PlayAt(at);
}

void Composer::cmdLeft_Click() {
  Melody& melody = ws_.melody;
  if (melody.IsEmpty()) return;
  melody.lCurrentIndex = std::max(melody.lCurrentIndex - 1, -1);
  const int32_t passed = melody.lCurrentIndex + 1;
  RefreshMelodyView();
  if (settings_.bPlayMoving) PlayAt(passed);
}

void Composer::cmdRight_Click() {
  Melody& melody = ws_.melody;
  if (melody.IsEmpty()) return;
  melody.lCurrentIndex = std::min(melody.lCurrentIndex + 1, melody.UpperBound());
  if (settings_.bPlayMoving) PlayAt(melody.lCurrentIndex);
  RefreshMelodyView();
}

void Composer::cmdEraseLeft_Click() {
  if (!HasElementAtCursor()) return;
  ws_.melody.Remove(ws_.melody.lCurrentIndex);
  --ws_.melody.lCurrentIndex;
  RefreshMelodyView();
}

void Composer::cmdEraseRight_Click() {
  const int32_t right = ws_.melody.lCurrentIndex + 1;
  if (right > ws_.melody.UpperBound()) return;
  ws_.melody.Remove(right);
  RefreshMelodyView();
}

void Composer::MoveScale(int16_t octaves) {
  if (ws_.melody.IsEmpty()) return;
  MelodyList moved = ws_.melody.Elements();
  if (ChangeScale(moved, octaves, ws_.iNoteMode, ws_.log)) ws_.melody.Assign(std::move(moved));
  RefreshMelodyView();
}

bool Composer::HasElementAtCursor() const {
  return ws_.melody.lCurrentIndex >= 0 && ws_.melody.lCurrentIndex <= ws_.melody.UpperBound();
}

// A key pressed while an element sounds plays another inside its wait. Past a few of them the key only
// acts, so that fast fingers neither wait nor pile up waits.
void Composer::PlayAt(int32_t index) {
  constexpr int kMostAtOnce = 6;
  if (index < 0 || index > ws_.melody.UpperBound() || sounding_ >= kMostAtOnce) return;
  const MelodyNote note = ws_.melody.At(index);  // a copy: events that run meanwhile may change the melody
  ++sounding_;
  player_.PlayElement(note, lBeatDuration_, index);
  --sounding_;
}

}  // namespace trillomat
