// The composer: entering elements, editing those at the cursor or the selected ones, the duration, extra and
// octave of what is entered next, the format mode and the song information. Each command makes at most one
// change of the document; one that changes the song is a step of the history. The window calls the commands
// and shows the state.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "composer/edit_sound.h"
#include "composer/melody_text.h"
#include "composer/song_info_panel.h"
#include "document/history.h"
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

/// The buttons of the "Insert" frame, and the indexes of the three that do more than insert their command.
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

/// A song that takes the place of the composed one.
struct IncomingSong {
  ElementList elements;
  ReadRecord record;  ///< holds its song information; the next read starts from it
  FormatMode mode;
  std::filesystem::path file = {};  ///< that holds it; empty for none
  std::string_view step;            ///< name of the step in the history: "opening", as in "Undo opening"
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
  /// Whether the "Insert" frame is enabled: the mode has commands, and MayEdit.
  bool CanInsertCommands() const { return MayEdit() && CanSetVolume(); }
  /// Whether the mode has commands, of which the volume is one.
  bool CanSetVolume() const;
  /// Whether the mode has the duration, or the extra, of that index in kDurations or kDurationExtras.
  bool HasDuration(int index) const;
  bool HasDurationExtra(int index) const;
  /// True while a command is being heard, or about to be: a key that is held down waits for it.
  bool Sounds() const { return sound_.Runs() || player_.NoteIsSounding(); }

  // Entering. `tone` is 0 for c to 11 for b.
  /// A button of the piano was pressed: does nothing while an entered tone sounds.
  void EnterTone(int tone);
  /// A letter key was typed: enters the tone in any case, `octavesUp` above the octave of the slider.
  /// Refused, with a log line, where the mode has no such octave.
  void TypeTone(int tone, int octavesUp = 0);
  void EnterPause();
  /// `button` of the "Insert" frame; `repeatCount` and `volume` are the texts of txtRepeat and cboVolume,
  /// taken as they are typed.
  void EnterCommand(int button, std::string_view repeatCount, std::string_view volume);
  void SelectDuration(int index);
  void SelectDurationExtra(int index);
  /// Put to the nearest octave that the mode has.
  void SetOctave(int octave);

  // Editing at the cursor.
  /// To the next shorter duration that the mode has; behind the shortest comes the longest.
  void StepDuration();
  /// From natural to sharp to flat and back, as far as the letter has them.
  void StepAccidental();
  void MoveLeft();
  void MoveRight();
  /// Puts the cursor onto the element, -1 before the first, and sounds it as the arrows do.
  void MoveTo(int32_t cursor);
  /// Both erase what is selected, if anything is.
  void EraseLeft();
  void EraseRight();
  void Clear();
  /// Move what is selected, else all, by octaves or semitones. Refused, with a level-2 message, where a tone
  /// would leave the mode's octaves.
  void MoveScale(int16_t octaves);
  void MoveSemitones(int semitones);

  // Selecting. The cursor is at one end of the selection. After entering or pasting nothing is selected.
  /// Moves the cursor, and the selection reaches from where it began to there.
  void SelectTo(int32_t cursor);
  void SelectElements(ElementRange range);
  void SelectAll() { SelectElements({0, document_.LastIndex() + 1}); }
  /// Copies of the selected elements.
  ElementList Selected() const;
  /// `step` as in IncomingSong: "erasing" or "cutting".
  void EraseSelected(std::string_view step);
  /// Behind the cursor or in the place of what is selected; the cursor is on the last of them afterwards.
  void Paste(ElementList elements);
  /// Puts a copy of what is selected, else of the element at the cursor, behind that. The copy of a selection
  /// is selected.
  void Duplicate();

  // One element, where it is. MoveTone and SetLength of one element are one step until EndDrag, and sound it.
  /// Takes the element's duration, extra and octave for what is entered next, as far as the mode has them.
  void TakeLengthAndOctave(int32_t index);
  /// Moves the tone by semitones; does nothing where that leaves the mode's octaves.
  void MoveTone(int32_t index, int semitones);
  /// Indexes of kDurations and kDurationExtras; does nothing with those that the mode lacks.
  void SetLength(int32_t index, int duration, int extra);
  void EndDrag() { history_.Seal(); }

  // The steps that can be taken back.
  const History& Steps() const { return history_; }
  void Undo() { TakeStep(&History::Undo); }
  void Redo() { TakeStep(&History::Redo); }
  /// Forgets all steps; the song counts as unchanged and belongs to no file.
  void StartAfresh();
  /// What is typed from here on is another step.
  void EndTyping() { history_.Seal(); }

  // Format mode and song information.
  /// Enters a mode, which brings the record's song information into the document. The elements stay.
  void SetMode(FormatMode mode);
  /// Row `row` of the panel, a text box or a list, now reads `text`.
  void EditSongText(int row, std::string_view text);
  bool AcceptsKey(int row, char key) const { return panel_.AcceptsKey(row, key); }
  /// "Use Default in Composer". The text view shows it when it is rebuilt the next time.
  void ToggleUseDefaults() { useDefaults_ = !useDefaults_; }
  bool UseDefaults() const { return useDefaults_; }

  /// Puts the song in the place of the composed one, and enters its mode. The cursor is before the first
  /// element, the phone at rest, and a play loop that runs has ended.
  void TakeIn(IncomingSong song);

  // PlayHost
  void PlayStateChanged() override;
  void RefreshMelodyView() override;

 private:
  void Insert(Element element, std::string_view step);
  void Replace(int32_t index, Element element, std::string_view step, std::string_view merge = {});
  ElementRange SelectionOrAll() const;
  void MoveCursor(int32_t cursor);
  void TakeStep(bool (History::*step)());
  void ShowMode();
  SongInfo RecordedInfo();

  Document& document_;
  ReadRecord& record_;
  Player& player_;
  PlayControls& play_;
  const PlaySettings& settings_;
  ComposerView& view_;
  Services services_;
  History history_;
  SongInfoPanel panel_;
  EditSound sound_;
  ComposerState state_;
  bool useDefaults_ = false;
};

}  // namespace trillomat
