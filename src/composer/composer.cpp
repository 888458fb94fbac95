#include "composer/composer.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "composer/song_info.h"

namespace trillomat {

Composer::Composer(Document& document, ReadRecord& record, Player& player, PlayControls& play,
                   const PlaySettings& settings, ComposerView& view, const Services& services)
    : document_(document),
      record_(record),
      player_(player),
      play_(play),
      settings_(settings),
      view_(view),
      services_(services),
      history_(document),
      panel_(document, history_, record),
      sound_(document, player, services.pump) {}

bool Composer::CanSetVolume() const { return LimitsOf(document_.Mode()).commands; }

bool Composer::HasDuration(int index) const { return LimitsOf(document_.Mode()).HasDuration(index); }

// A mode that can write no extra offers none, not even "Nothing".
bool Composer::HasDurationExtra(int index) const {
  const ModeLimits& limits = LimitsOf(document_.Mode());
  return limits.lastExtra > 0 && limits.HasExtra(index);
}

void Composer::SelectDuration(int index) {
  state_.duration = index;
  view_.ShowComposer();
}

void Composer::SelectDurationExtra(int index) {
  if (index < 0 || index >= static_cast<int>(kDurationExtras.size())) return;
  state_.durationExtra = index;
  view_.ShowComposer();
}

void Composer::SetOctave(int octave) {
  const ModeLimits& limits = LimitsOf(document_.Mode());
  state_.octave = std::clamp<int>(octave, limits.lowestOctave, limits.highestOctave);
  view_.ShowComposer();
}

void Composer::SetMode(FormatMode mode) {
  if (const auto tempo = LimitsOf(mode).forcedTempo) record_.info.bpm = *tempo;
  history_.Do("change of format", {.info = RecordedInfo(), .mode = mode});
  ShowMode();
  if (!document_.IsEmpty()) RefreshMelodyView();
}

// Shows that the document is in another mode, and selects what that mode wants selected.
void Composer::ShowMode() {
  const ModeLimits& limits = LimitsOf(document_.Mode());
  if (limits.selectedExtra >= 0) SelectDurationExtra(limits.selectedExtra);
  if (limits.selectedDuration >= 0) SelectDuration(limits.selectedDuration);
  panel_.ShowMode();
  panel_.Load();
  view_.ShowFilesOfMode();
  SetOctave(state_.octave);
}

void Composer::EditSongText(int row, std::string_view text) {
  panel_.Edit(row, text);
  view_.ShowComposer();
}

void Composer::TakeIn(IncomingSong song) {
  record_ = std::move(song.record);
  const bool otherMode = song.mode != document_.Mode();
  const bool held = !song.file.empty() || song.elements.empty();
  history_.Do(song.step,
              {.removed = document_.Size(),
               .inserted = std::move(song.elements),
               .info = RecordedInfo(),
               .cursor = -1,
               .mode = song.mode,
               .file = SongFile{std::move(song.file), held ? SongFile::kThisSong : SongFile::kNothing}});
  if (otherMode) ShowMode();
  panel_.Load();
  view_.ShowComposer();
  RefreshMelodyView();
  sound_.Forget();
  player_.ResetPhone();
  play_.SongReplaced();
}

// The next read starts from the song information that the step brings back.
void Composer::TakeStep(bool (History::*step)()) {
  if (!MayEdit()) return;
  const FormatMode mode = document_.Mode();
  const SongInfo info = document_.Info();
  if (!std::invoke(step, history_)) return;
  if (document_.Info() != info) record_.info = document_.Info();
  if (document_.Mode() != mode) ShowMode();
  panel_.Load();
  view_.ShowComposer();
  RefreshMelodyView();
}

// The record's song information as a song has it: a tempo of 0 could be neither shown nor played.
SongInfo Composer::RecordedInfo() {
  NormaliseStyleAndVolume(record_.info);
  if (record_.info.bpm == 0) record_.info.bpm = kDefaultTempo;
  return record_.info;
}

void Composer::StartAfresh() {
  history_.Clear();
  document_.SetFile({});
}

void Composer::PlayStateChanged() {
  sound_.Forget();
  view_.ShowComposer();
}

void Composer::RefreshMelodyView() {
  const MelodyText text = TextOf(document_, useDefaults_, services_.log);
  if (text.defaults) {
    panel_.ShowDefaults(text.defaults->octave, text.defaults->duration);
    view_.ShowComposer();
  }
  view_.ShowMelody(text);
}

}  // namespace trillomat
