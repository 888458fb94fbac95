// The composer: entering and editing elements at the cursor, the duration, extra and octave in force,
// the format mode and the song information. Each command is at most one change of the document; the window
// calls the commands and shows the state.
#pragma once

#include <string>
#include <string_view>

#include "composer/edit_sound.h"
#include "composer/melody_text.h"
#include "composer/song_info_panel.h"
#include "playback/play_controls.h"
#include "playback/player.h"

namespace trillomat {

/// What the composer needs of the window that shows it. Abstract so that the composer runs and is tested
/// without one.
class ComposerView {
 public:
  ComposerView() = default;
  ComposerView(const ComposerView&) = delete;
  ComposerView& operator=(const ComposerView&) = delete;
  virtual ~ComposerView() = default;

  /// Puts the two melody texts into their boxes and the carets where they belong.
  virtual void ShowMelody(const MelodyText& text) = 0;
  /// Something else changed that the window shows: what is enabled or selected, a caption, a row of
  /// the song information. The window reads all of it from the Composer again.
  virtual void ShowComposer() = 0;
  /// Another format mode: the file list shows other files now.
  virtual void ShowFilesOfMode() = 0;
};

/// The buttons of the "Insert" frame; three of them do more than insert their command.
inline constexpr size_t kInsertButtons = 11;
inline constexpr int kRepeatStart = 8;
inline constexpr int kRepeatStop = 9;
inline constexpr int kSetVolume = 10;

/// What the window shows of the composer beside the melody and the song information.
struct ComposerState {
  int octave = 4;          ///< the octave slider's place, and what its label reads
  int duration = 2;        ///< index of the selected duration option
  int durationExtra = 0;   ///< index of the selected duration-extra option
  bool repeatBox = false;  ///< "Repeat count" and its box are visible
};

class Composer : public PlayHost {
 public:
  /// `record` is what the next read starts from, `settings` tell when an entered or passed element is
  /// sounded. `play` may be constructed later, with this as its host.
  Composer(Document& document, ReadRecord& record, Player& player, PlayControls& play,
           const PlaySettings& settings, ComposerView& view, const Services& services);

  const ComposerState& State() const { return state_; }
  const SongInfoPanel& Panel() const { return panel_; }

  /// Whether the melody may be edited now: not while it plays. Buttons, keys, menus and drops ask this;
  /// the editing commands below ask it themselves and do nothing when it is false.
  bool MayEdit() const { return play_.State() == PlayState::Stopped; }
  /// What the mode allows of it.
  bool CanInsertCommands() const { return MayEdit() && CanSetVolume(); }
  bool CanSetVolume() const;
  bool HasDuration(int index) const;
  bool HasDurationExtra(int index) const;
  /// True while a command is being heard, or about to be: a key that is held down waits for it.
  bool Sounds() const { return sound_.Runs() || player_.NoteIsSounding(); }

  // Entering. `tone` is 0 for c to 11 for b.
  /// The piano's buttons: dropped while an entered tone sounds.
  void EnterTone(int tone);
  /// The letter keys: never dropped.
  void TypeTone(int tone);
  void EnterPause();
  /// `button` of the "Insert" frame; `repeatCount` and `volume` are the texts of txtRepeat and cboVolume,
  /// taken as they are typed.
  void EnterCommand(int button, std::string_view repeatCount, std::string_view volume);
  void SelectDuration(int index);
  void SelectDurationExtra(int index);
  /// Put to the nearest octave that the mode has.
  void SetOctave(int octave);

  // Editing at the cursor.
  /// To the next shorter duration that the mode has, from the shortest to the longest.
  void StepDuration();
  /// From natural to sharp to flat, as far as the letter has them.
  void StepAccidental();
  void MoveLeft();
  void MoveRight();
  void EraseLeft();
  void EraseRight();
  void MoveScale(int16_t octaves);

  // Format mode and song information.
  /// Enters a mode, which brings the record's song information into the document. The elements stay.
  void SetMode(FormatMode mode);
  /// Row `row` of the panel, a text box or a list, now reads `text`.
  void EditSongText(int row, std::string_view text);
  bool AcceptsKey(int row, char key) const { return panel_.AcceptsKey(row, key); }
  /// "Use Default in Composer": shows with the next rebuild of the text.
  void ToggleUseDefaults() { useDefaults_ = !useDefaults_; }
  bool UseDefaults() const { return useDefaults_; }

  /// What was read or imported takes the place of the song, with the song information of `record`, which is
  /// where the next read starts. The cursor is before the first element, the phone at rest, and a play loop
  /// that runs has ended.
  void TakeIn(ElementList elements, ReadRecord record);

  // PlayHost
  void PlayStateChanged() override;
  void RefreshMelodyView() override;

 private:
  void Insert(Element element);
  void ReplaceAtCursor(Element element);
  SongInfo RecordedInfo();

  Document& document_;
  ReadRecord& record_;
  Player& player_;
  PlayControls& play_;
  const PlaySettings& settings_;
  ComposerView& view_;
  Services services_;
  SongInfoPanel panel_;
  EditSound sound_;
  ComposerState state_;
  bool useDefaults_ = false;
};

}  // namespace trillomat
