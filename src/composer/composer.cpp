#include "composer/composer.h"

#include "playback/beat.h"

namespace trillomat {

Composer::Composer(Workspace& workspace, Player& player, const PlaySettings& settings, ComposerView& view)
    : ws_(workspace),
      player_(player),
      settings_(settings),
      view_(view),
      songInfo_(workspace),
      textView_(workspace) {
  UpdateBeatLength();
}

bool Composer::CanInsertCommands() const { return CanEdit() && CanSetVolume(); }

bool Composer::CanSetVolume() const { return LimitsOf(ws_.iNoteMode).commands; }

bool Composer::HasDuration(int index) const { return LimitsOf(ws_.iNoteMode).HasDuration(index); }

// A mode that can write no extra has none to choose from, "Nothing" included.
bool Composer::HasDurationExtra(int index) const {
  const ModeLimits& limits = LimitsOf(ws_.iNoteMode);
  return limits.lastExtra > 0 && limits.HasExtra(index);
}

void Composer::mnuSettingFormatType_Click(FormatMode mode) {
  ws_.iNoteMode = mode;
  SetFormatMode();
}

void Composer::SetFormatMode() {
  const ModeLimits& limits = LimitsOf(ws_.iNoteMode);
  if (limits.forcedTempo) ws_.header.BPM = *limits.forcedTempo;
  if (limits.selectedExtra >= 0) optDurationExtra_Click(limits.selectedExtra);
  if (limits.selectedDuration >= 0) optDuration_Click(limits.selectedDuration);
  songInfo_.SetMode();
  view_.UpdateListFiles();
  songInfo_.LoadHeader();
  UpdateBeatLength();
  SliderOctave_Change(state_.octave);
  if (!ws_.melody.IsEmpty()) RefreshMelodyView();
}

void Composer::txtSongInfo_Change(int index, std::string_view text) {
  if (songInfo_.txtSongInfo_Change(index, text)) UpdateBeatLength();
  view_.ShowComposer();
}

void Composer::cboSongInfo_Change(int index, std::string_view text) {
  songInfo_.cboSongInfo_Change(index, text);
}

// The beat length comes first: it replaces a tempo of 0, which the panel could only show as invalid.
void Composer::ShowHeader() {
  UpdateBeatLength();
  songInfo_.LoadHeader();
  view_.ShowComposer();
}

void Composer::TakeImportMelody() {
  ws_.melody.Assign(std::move(ws_.ImportMelody));
  ws_.ImportMelody.clear();
  ws_.melody.lCurrentIndex = -1;
  ws_.codec.defaults = ws_.melody.ComputeMelodyDefaults();
  ShowHeader();
  RefreshMelodyView();
}

void Composer::EnableComposer(bool enable) {
  state_.playing = !enable;
  view_.ShowComposer();
}

void Composer::SetPlayCaption(std::string_view caption) {
  state_.playCaption = caption;
  view_.ShowComposer();
}

void Composer::RefreshMelodyView() {
  const auto text = textView_.RefreshMelodyView();
  if (!text) return;
  if (text->defaults) {
    songInfo_.ShowDefaults(text->defaults->octave, text->defaults->duration);
    view_.ShowComposer();
  }
  view_.ShowMelody(*text);
}

void Composer::ClearMelodyView() {
  textView_.AbandonRefresh();
  view_.ShowMelody({});
}

void Composer::UpdateBeatLength() { lBeatDuration_ = trillomat::UpdateBeatLength(ws_.header); }

}  // namespace trillomat
