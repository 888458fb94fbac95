// The composer: entering and editing elements at the cursor, the duration, extra and octave in force,
// the format mode and the song information. The window calls the event handlers and shows the state.
#pragma once

#include <string>
#include <string_view>

#include "composer/composer_view.h"
#include "composer/entry_tables.h"
#include "composer/melody_text_view.h"
#include "composer/song_info_panel.h"
#include "core/workspace.h"
#include "playback/play_host.h"
#include "playback/play_settings.h"
#include "playback/player.h"

namespace trillomat {

/// What the window shows of the composer beside the melody and the song information.
struct ComposerState {
  int octave = 4;          ///< the octave slider's place, and what its label reads
  int duration = 2;        ///< index of the selected duration option
  int durationExtra = 0;   ///< index of the selected duration-extra option
  bool repeatBox = false;  ///< "Repeat count" and its box are visible
  bool playing = false;    ///< editing, file and most play controls are locked
  std::string playCaption = "Play";
};

class Composer : public PlayHost {
 public:
  /// `settings` tells when an entered or passed element is sounded.
  Composer(Workspace& workspace, Player& player, const PlaySettings& settings, ComposerView& view);

  const ComposerState& State() const { return state_; }
  SongInfoPanel& SongInfo() { return songInfo_; }
  MelodyTextView& TextView() { return textView_; }

  // What is enabled now: what the mode allows, and nothing that edits while a melody plays.
  bool CanEdit() const { return !state_.playing; }
  bool CanInsertCommands() const;
  bool CanSetVolume() const;
  bool HasDuration(int index) const;
  bool HasDurationExtra(int index) const;

  // Entering and editing.
  void InsertElement(const MelodyNote& note, bool play);
  void cmdTone_Click(int index);
  void cmdPause_Click();
  /// `repeatCount` and `volume` are the texts of txtRepeat and cboVolume, taken as they are typed.
  void cmdInsert_Click(int index, std::string_view repeatCount, std::string_view volume);
  void optDuration_Click(int index);
  void optDurationExtra_Click(int index);
  void SliderOctave_Change(int value);
  void cmdDuration_Click();
  void cmdLowHigh_Click();
  void cmdLeft_Click();
  void cmdRight_Click();
  void cmdEraseLeft_Click();
  void cmdEraseRight_Click();
  void cmdScaleDown_Click() { MoveScale(-1); }
  void cmdScaleUP_Click() { MoveScale(1); }

  // Format mode and song information.
  void mnuSettingFormatType_Click(FormatMode mode);
  void SetFormatMode();
  bool txtSongInfo_KeyPress(int index, char key) const { return songInfo_.txtSongInfo_KeyPress(index, key); }
  void txtSongInfo_Change(int index, std::string_view text);
  void cboSongInfo_Change(int index, std::string_view text);
  void mnuRTTTLUseDefault_Click() { textView_.bRTTTLUseDefault = !textView_.bRTTTLUseDefault; }

  /// Fills the song information from the header that a reader or importer left.
  void ShowHeader();
  /// Replaces the melody by the imported one, empties that, and shows it from before its first element.
  void TakeImportMelody();

  // PlayHost
  void EnableComposer(bool enable) override;
  void SetPlayCaption(std::string_view caption) override;
  void RefreshMelodyView() override;
  void ClearMelodyView() override;
  int32_t lBeatDuration() override { return lBeatDuration_; }
  void UpdateBeatLength();

 private:
  bool HasElementAtCursor() const;
  void PlayAt(int32_t index);
  void MoveScale(int16_t octaves);

  Workspace& ws_;
  Player& player_;
  const PlaySettings& settings_;
  ComposerView& view_;
  SongInfoPanel songInfo_;
  MelodyTextView textView_;
  ComposerState state_;
  int32_t lBeatDuration_ = 0;
  bool bToneBusy_ = false;
  int sounding_ = 0;  ///< elements that PlayAt is playing, one inside the other
};

}  // namespace trillomat
