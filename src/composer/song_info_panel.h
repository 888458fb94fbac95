// The song-information panel without its widgets: which rows the mode shows, what stands in them, and
// what typing into them does to the song header.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/workspace.h"

namespace trillomat {

/// One row: rows 0 to 4 hold a text box, row 5 the style list, row 6 the volume list.
struct SongInfoRow {
  std::string_view caption;
  bool visible = true;
  bool enabled = true;
  std::string text;      ///< Windows-1252
  bool invalid = false;  ///< shown in red; the header did not take the text over
};

class SongInfoPanel {
 public:
  static constexpr int kTextRows = 5;
  static constexpr int kStyleRow = 5;
  static constexpr int kVolumeRow = 6;

  explicit SongInfoPanel(Workspace& workspace);

  const std::array<SongInfoRow, 7>& Rows() const { return rows_; }

  /// Shows, enables and captions the rows for the current mode; texts stay.
  void SetMode();

  /// Fills the rows of the current mode from the song header; style and volume go through their
  /// conversions and back into the header.
  void LoadHeader();

  /// The two boxes that the melody text view fills in the RTTTL mode.
  void ShowDefaults(std::string_view octave, std::string_view duration);

  /// Whether the box of row `index` accepts the key with character code `key`.
  bool txtSongInfo_KeyPress(int index, char key) const;

  /// The text of row `index` was changed to `text`. True when the tempo changed, so that the beat
  /// length has to be computed anew.
  bool txtSongInfo_Change(int index, std::string_view text);

  /// The list of row 5 (index 0, style) or row 6 (index 1, volume) now shows `text`.
  void cboSongInfo_Change(int index, std::string_view text);

  void SetStyleText(std::string_view code);
  std::string GetStyleCode() const;
  void SetVolumeText(std::string_view volume);
  std::string GetVolumeText() const;

 private:
  SongInfoRow& Row(int index) { return rows_.at(static_cast<size_t>(index)); }
  bool IsTempoRow(int index) const;
  bool IsRepeatRow(int index) const;
  bool TakeTempo(SongInfoRow& row);
  void TakeRepeat(SongInfoRow& row);

  Workspace& ws_;
  std::array<SongInfoRow, 7> rows_;
};

}  // namespace trillomat
