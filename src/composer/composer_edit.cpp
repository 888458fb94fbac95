// The composer's editing: insertion, the cursor, erasing, re-timing and re-spelling.
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "composer/composer.h"
#include "core/ascii.h"
#include "core/tone.h"

namespace trillomat {
namespace {

/// What a button of the "Insert" frame inserts. A token that takes a count or a volume is completed by what
/// is typed.
struct InsertButton {
  std::string_view command;
  bool playedOnInsert;
};

constexpr std::array<InsertButton, kInsertButtons> kButtons{{{"ledon", true},
                                                             {"ledoff", true},
                                                             {"vibeon", true},
                                                             {"vibeoff", true},
                                                             {"backon", true},
                                                             {"backoff", true},
                                                             {"V+", true},
                                                             {"V-", true},
                                                             {"(", false},
                                                             {"@", false},
                                                             {"V", true}}};

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
std::string NextSpelling(std::string_view note, Accidentals allowed) {
  const std::string whole(note);
  std::string rest(note.substr(std::min<size_t>(1, note.size())));
  if (note.starts_with('#')) return allowed.flat ? "&" + rest : rest;
  if (note.starts_with('&')) return rest;
  if (allowed.sharp) return "#" + whole;
  return allowed.flat ? "&" + whole : whole;
}

}  // namespace

void Composer::EnterTone(int tone) {
  if (!sound_.EnteredToneSounds()) TypeTone(tone);
}

void Composer::TypeTone(int tone, int octavesUp) {
  if (!MayEdit()) return;
  const int octave = state_.octave + octavesUp;
  if (!LimitsOf(document_.Mode()).HasOctave(octave)) {
    services_.log.WriteLog("Can not enter this note -> octave not supported in this mode", 1);
    return;
  }
  Insert(Tone(kPianoTones.at(static_cast<size_t>(tone)), static_cast<int16_t>(octave),
              kDurations.at(static_cast<size_t>(state_.duration)),
              kDurationExtras.at(static_cast<size_t>(state_.durationExtra))),
         "entering a tone");
  if (settings_.playComposing) sound_.Play(document_.Cursor(), EditSound::Cause::EnteredTone);
}

void Composer::EnterPause() {
  if (!MayEdit()) return;
  Insert(Pause(kDurations.at(static_cast<size_t>(state_.duration)),
               kDurationExtras.at(static_cast<size_t>(state_.durationExtra))),
         "entering a pause");
}

void Composer::EnterCommand(int button, std::string_view repeatCount, std::string_view volume) {
  if (!MayEdit()) return;
  const bool known = button >= 0 && button < static_cast<int>(kButtons.size());
  const InsertButton made = known ? kButtons.at(static_cast<size_t>(button)) : InsertButton{"", true};
  std::string token(made.command);
  if (button == kRepeatStop) token += std::string(repeatCount) + ")";
  if (button == kSetVolume) token += volume;
  if (button == kRepeatStart || button == kRepeatStop) {
    state_.repeatBox = button == kRepeatStart;
    view_.ShowComposer();
  }
  Element element = Command(token);
  element.duration = 1.0F;
  element.extra = 1.0F;
  Insert(std::move(element), "entering a command");
  if (made.playedOnInsert && settings_.playComposing) {
    sound_.Play(document_.Cursor(), EditSound::Cause::Other);
  }
}

// Inserts right of the cursor, which moves onto the new element. The first element of all goes in wherever
// the cursor is.
void Composer::Insert(Element element, std::string_view step) {
  const int32_t at = std::min(document_.Cursor(), document_.LastIndex()) + 1;
  Change change{.at = static_cast<size_t>(at), .cursor = at};
  change.inserted.push_back(std::move(element));
  history_.Do(step, std::move(change));
  RefreshMelodyView();  // before the element sounds
}

void Composer::StepDuration() {
  if (!MayEdit() || !document_.HasElement(document_.Cursor())) return;
  constexpr int kCount = static_cast<int>(kDurations.size());
  Element element = document_.At(document_.Cursor());
  // A length that is none of kDurations counts as a whole note.
  int index = std::max(DurationIndex(element.duration), 0);
  do {
    index = (index + 1) % kCount;
  } while (!HasDuration(index));
  SelectDuration(index);
  element.duration = kDurations.at(static_cast<size_t>(index));
  Replace(document_.Cursor(), std::move(element), "change of duration");
  if (settings_.playComposing) sound_.Play(document_.Cursor(), EditSound::Cause::Other);
}

void Composer::StepAccidental() {
  if (!MayEdit() || !document_.HasElement(document_.Cursor())) return;
  Element element = document_.At(document_.Cursor());
  const std::string note(element.Note());
  if (ToLower(note.empty() ? '\0' : note.front()) == 'r') return;
  const std::string letter = ReplaceAll(ReplaceAll(note, "#", ""), "&", "");
  if (const auto allowed = AccidentalsOf(Lowered(letter))) {
    element.SetNote(NextSpelling(note, *allowed));
    Replace(document_.Cursor(), std::move(element), "low/high");
  } else {
    services_.log.WriteLog("Can not find the correct note-->" + letter, 1);
    RefreshMelodyView();
  }
  sound_.Play(document_.Cursor(), EditSound::Cause::Other);
}

void Composer::Replace(int32_t index, Element element, std::string_view step, std::string_view merge) {
  Change change{.at = static_cast<size_t>(index), .removed = 1, .cursor = index};
  change.inserted.push_back(std::move(element));
  history_.Do(step, std::move(change), merge);
  RefreshMelodyView();
}

void Composer::MoveCursor(int32_t cursor) {
  document_.Apply({.cursor = cursor});
  RefreshMelodyView();
}

void Composer::MoveLeft() {
  if (!MayEdit() || document_.IsEmpty()) return;
  MoveCursor(document_.Cursor() - 1);
  if (settings_.playMoving) sound_.Play(document_.Cursor() + 1, EditSound::Cause::Other);
}

// The element that is passed sounds before the cursor is shown behind it; but a tone that lets no events run
// comes last, because nothing could be painted during it.
void Composer::MoveRight() {
  if (!MayEdit() || document_.IsEmpty()) return;
  document_.Apply({.cursor = document_.Cursor() + 1});
  const bool showFirst = player_.TonesBlock();
  if (showFirst) RefreshMelodyView();
  if (settings_.playMoving) sound_.Play(document_.Cursor(), EditSound::Cause::Other);
  if (!showFirst) RefreshMelodyView();
}

void Composer::MoveTo(int32_t cursor) {
  if (!MayEdit() || document_.IsEmpty()) return;
  MoveCursor(cursor);
  if (settings_.playMoving && cursor >= 0) sound_.Play(document_.Cursor(), EditSound::Cause::Other);
}

void Composer::EraseLeft() {
  if (!document_.Selection().IsEmpty()) return EraseSelected("erasing");
  if (!MayEdit() || !document_.HasElement(document_.Cursor())) return;
  const int32_t at = document_.Cursor();
  history_.Do("erasing", {.at = static_cast<size_t>(at), .removed = 1, .cursor = at - 1});
  RefreshMelodyView();
}

void Composer::EraseRight() {
  if (!document_.Selection().IsEmpty()) return EraseSelected("erasing");
  const int32_t right = document_.Cursor() + 1;
  if (!MayEdit() || !document_.HasElement(right)) return;
  history_.Do("erasing", {.at = static_cast<size_t>(right), .removed = 1});
  RefreshMelodyView();
}

void Composer::Clear() {
  if (!MayEdit()) return;
  history_.Do("clearing", {.removed = document_.Size(), .cursor = -1});
  RefreshMelodyView();
  player_.ResetPhone();
}

}  // namespace trillomat
