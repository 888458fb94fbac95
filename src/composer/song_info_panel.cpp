#include "composer/song_info_panel.h"

#include <algorithm>
#include <optional>

#include "composer/song_info.h"
#include "core/ascii.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

using Captions = std::array<std::string_view, 7>;

constexpr Captions kIMelodyCaptions{"Version", "Format", "Name", "Composer", "B P M", "Style", "Volume"};
constexpr Captions kRtttlCaptions{"Name",  "B P M", "Repeat", "Duration (Default)", "Octave (Default)",
                                  "Style", "Volume"};

constexpr int32_t kRepeatMax = 15;

// The value of a text of digits alone; nothing for any other text, which is never in range.
std::optional<int32_t> DigitsValue(std::string_view text) {
  if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit)) return std::nullopt;
  return RoundToInt32(LeadingNumber(text));
}

}  // namespace

SongInfoPanel::SongInfoPanel(Workspace& workspace) : ws_(workspace) {
  SetMode();
  LoadHeader();
}

void SongInfoPanel::SetMode() {
  const int shown = LimitsOf(ws_.iNoteMode).songInfoRows;
  const Captions& captions = ws_.iNoteMode == FormatMode::Rtttl ? kRtttlCaptions : kIMelodyCaptions;
  for (int i = 0; i < static_cast<int>(rows_.size()); ++i) {
    SongInfoRow& row = Row(i);
    row.visible = i < shown;
    row.enabled = ws_.iNoteMode != FormatMode::IMelody || i > 1;
    if (shown > 0) row.caption = captions.at(static_cast<size_t>(i));
  }
}

void SongInfoPanel::LoadHeader() {
  const SongHeader& header = ws_.header;
  if (ws_.iNoteMode == FormatMode::IMelody) {
    Row(0).text = header.Version;
    Row(1).text = header.Format;
    Row(2).text = header.Name;
    Row(3).text = header.Composer;
    Row(4).text = std::to_string(header.BPM);
  } else if (ws_.iNoteMode == FormatMode::Rtttl) {
    Row(0).text = header.Name;
    Row(1).text = std::to_string(header.BPM);
    Row(2).text = std::to_string(header.Loop);
  }
  for (int i = 0; i < kTextRows; ++i) {
    Row(i).invalid = false;
    if (Row(i).visible) txtSongInfo_Change(i, std::string(Row(i).text));
  }
  SetStyleText(header.Style);
  SetVolumeText(header.Volume);
  ws_.header.Style = GetStyleCode();
  ws_.header.Volume = GetVolumeText();
}

void SongInfoPanel::ShowDefaults(std::string_view octave, std::string_view duration) {
  Row(3).text = octave;
  Row(4).text = duration;
}

bool SongInfoPanel::IsTempoRow(int index) const {
  return (ws_.iNoteMode == FormatMode::IMelody && index == 4) ||
         (ws_.iNoteMode == FormatMode::Rtttl && index == 1);
}

bool SongInfoPanel::IsRepeatRow(int index) const { return ws_.iNoteMode == FormatMode::Rtttl && index == 2; }

bool SongInfoPanel::txtSongInfo_KeyPress(int index, char key) const {
  constexpr char kBackspace = 8;
  return (!IsTempoRow(index) && !IsRepeatRow(index)) || IsDigit(key) || key == kBackspace;
}

bool SongInfoPanel::txtSongInfo_Change(int index, std::string_view text) {
  SongInfoRow& row = Row(index);
  row.text = text;
  if (IsTempoRow(index)) return TakeTempo(row);
  if (IsRepeatRow(index)) TakeRepeat(row);
  const int nameRow = ws_.iNoteMode == FormatMode::IMelody ? 2 : 0;
  const bool named = ws_.iNoteMode == FormatMode::IMelody || ws_.iNoteMode == FormatMode::Rtttl;
  if (named && index == nameRow) ws_.header.Name = text;
  if (ws_.iNoteMode == FormatMode::IMelody && index == 3) ws_.header.Composer = text;
  return false;
}

bool SongInfoPanel::TakeTempo(SongInfoRow& row) {
  const ModeLimits& limits = LimitsOf(ws_.iNoteMode);
  const auto value = DigitsValue(row.text);
  row.invalid = !value || *value < limits.lTempoMin || *value > limits.lTempoMax;
  if (!row.invalid) ws_.header.BPM = *value;
  return !row.invalid;
}

void SongInfoPanel::TakeRepeat(SongInfoRow& row) {
  const auto value = DigitsValue(row.text);
  row.invalid = !value || *value > kRepeatMax;
  if (!row.invalid) ws_.header.Loop = static_cast<int16_t>(*value);
}

void SongInfoPanel::cboSongInfo_Change(int index, std::string_view text) {
  if (index == 0) {
    Row(kStyleRow).text = text;
    ws_.header.Style = GetStyleCode();
  } else if (index == 1) {
    Row(kVolumeRow).text = text;
    ws_.header.Volume = GetVolumeText();
  }
}

void SongInfoPanel::SetStyleText(std::string_view code) { Row(kStyleRow).text = StyleText(code); }

std::string SongInfoPanel::GetStyleCode() const { return StyleCode(rows_.at(kStyleRow).text); }

void SongInfoPanel::SetVolumeText(std::string_view volume) { Row(kVolumeRow).text = VolumeText(volume); }

std::string SongInfoPanel::GetVolumeText() const { return rows_.at(kVolumeRow).text; }

}  // namespace trillomat
