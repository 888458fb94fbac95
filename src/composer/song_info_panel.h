// The song-information panel without its widgets: which rows the mode shows, what stands in them, and
// what typing into them does to the song information.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "document/history.h"

namespace trillomat {

/// One row: rows 0 to 4 hold a text box, row 5 the style list, row 6 the volume list.
struct SongInfoRow {
  std::string_view caption;
  bool visible = true;
  bool enabled = true;
  std::string text;      ///< Windows-1252
  bool invalid = false;  ///< shown in red: what was typed here did not go into the song
};

/// Shows the document's song information. What is typed goes to the document, as one step for each row, and
/// into the record that the next read starts from.
class SongInfoPanel {
 public:
  static constexpr int kTextRows = 5;
  static constexpr int kStyleRow = 5;
  static constexpr int kVolumeRow = 6;

  SongInfoPanel(const Document& document, History& history, ReadRecord& record);

  const std::array<SongInfoRow, 7>& Rows() const { return rows_; }

  /// Shows, enables and captions the rows for the document's mode; texts stay.
  void ShowMode();
  /// Fills the rows that the mode has from the document.
  void Load();
  /// Fills the boxes of the default octave and duration, which show in the RTTTL mode what the melody comes
  /// to.
  void ShowDefaults(std::string_view octave, std::string_view duration);

  /// Whether what is typed into the row goes anywhere: two boxes only show what the melody comes to.
  bool IsEditable(int row) const { return FieldOf(row) != Field::None; }
  /// Whether the box of row `row` accepts the key with character code `key`.
  bool AcceptsKey(int row, char key) const;
  /// Why the text of the row is not taken over, and what counts instead: "25-900; 100 is in force". Empty for
  /// a text that is.
  std::string RefusalOf(int row) const;
  /// Row `row` now reads `text`: it is taken over when it is valid there.
  void Edit(int row, std::string_view text);

 private:
  /// What the text of a row is, by the mode.
  enum class Field { None, Name, Composer, Tempo, Repeat, Style, Volume };

  SongInfoRow& Row(int row) { return rows_.at(static_cast<size_t>(row)); }
  Field FieldOf(int row) const;
  bool IsValid(Field field, std::string_view text) const;
  static std::string_view StepName(Field field);
  static void Take(Field field, std::string_view text, SongInfo& info);

  const Document& document_;
  History& history_;
  ReadRecord& record_;
  std::array<SongInfoRow, 7> rows_;
};

}  // namespace trillomat
