#include "composer/song_info_panel.h"

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

// The value of a text of digits alone, -1 for any other text, which is never in range.
int32_t DigitsValue(std::string_view text) {
  if (!IsAllDigits(text)) return -1;
  return RoundToInt32(LeadingNumber(text)).value_or(-1);
}

}  // namespace

SongInfoPanel::SongInfoPanel(const Document& document, History& history, ReadRecord& record)
    : document_(document), history_(history), record_(record) {
  ShowMode();
  Load();
}

void SongInfoPanel::ShowMode() {
  const FormatMode mode = document_.Mode();
  const int shown = LimitsOf(mode).songInfoRows;
  const Captions& captions = mode == FormatMode::Rtttl ? kRtttlCaptions : kIMelodyCaptions;
  for (int i = 0; i < static_cast<int>(rows_.size()); ++i) {
    SongInfoRow& row = Row(i);
    row.visible = i < shown;
    row.enabled = mode != FormatMode::IMelody || i > 1;
    if (shown > 0) row.caption = captions.at(static_cast<size_t>(i));
  }
}

void SongInfoPanel::Load() {
  const SongInfo& info = document_.Info();
  if (document_.Mode() == FormatMode::IMelody) {
    Row(0).text = info.version;
    Row(1).text = info.format;
    Row(2).text = info.name;
    Row(3).text = info.composer;
    Row(4).text = std::to_string(info.bpm);
  } else if (document_.Mode() == FormatMode::Rtttl) {
    Row(0).text = info.name;
    Row(1).text = std::to_string(info.bpm);
    Row(2).text = std::to_string(info.loop);
  }
  for (int i = 0; i < kTextRows; ++i) Row(i).invalid = Row(i).visible && !IsValid(FieldOf(i), Row(i).text);
  Row(kStyleRow).text = StyleText(info.style);
  Row(kVolumeRow).text = VolumeText(info.volume);
}

void SongInfoPanel::ShowDefaults(std::string_view octave, std::string_view duration) {
  Row(3).text = octave;
  Row(4).text = duration;
}

bool SongInfoPanel::AcceptsKey(int row, char key) const {
  constexpr char kBackspace = 8;
  const Field field = FieldOf(row);
  return (field != Field::Tempo && field != Field::Repeat) || IsDigit(key) || key == kBackspace;
}

std::string SongInfoPanel::RefusalOf(int row) const {
  const SongInfo& info = document_.Info();
  const ModeLimits& limits = LimitsOf(document_.Mode());
  const auto text = [](int32_t lowest, int32_t highest, int32_t inForce) {
    return std::to_string(lowest) + "-" + std::to_string(highest) + "; " + std::to_string(inForce) +
           " is in force";
  };
  if (!rows_.at(static_cast<size_t>(row)).invalid) return {};
  if (FieldOf(row) == Field::Tempo) return text(limits.lowestTempo, limits.highestTempo, info.bpm);
  return text(0, kHighestLoop, info.loop);
}

void SongInfoPanel::Edit(int row, std::string_view text) {
  const Field field = FieldOf(row);
  Row(row).text = text;
  Row(row).invalid = !IsValid(field, text);
  if (field == Field::None || Row(row).invalid) return;
  SongInfo info = document_.Info();
  Take(field, text, info);
  Take(field, text, record_.info);
  history_.Do(StepName(field), {.info = std::move(info)}, StepName(field));
}

SongInfoPanel::Field SongInfoPanel::FieldOf(int row) const {
  if (row == kStyleRow) return Field::Style;
  if (row == kVolumeRow) return Field::Volume;
  if (document_.Mode() == FormatMode::IMelody) {
    constexpr std::array<Field, kTextRows> kFields{Field::None, Field::None, Field::Name, Field::Composer,
                                                   Field::Tempo};
    return kFields.at(static_cast<size_t>(row));
  }
  if (document_.Mode() == FormatMode::Rtttl) {
    constexpr std::array<Field, kTextRows> kFields{Field::Name, Field::Tempo, Field::Repeat, Field::None,
                                                   Field::None};
    return kFields.at(static_cast<size_t>(row));
  }
  return Field::None;
}

bool SongInfoPanel::IsValid(Field field, std::string_view text) const {
  const ModeLimits& limits = LimitsOf(document_.Mode());
  const int32_t value = DigitsValue(text);
  if (field == Field::Tempo) return value >= limits.lowestTempo && value <= limits.highestTempo;
  return field != Field::Repeat || (value >= 0 && value <= kHighestLoop);
}

std::string_view SongInfoPanel::StepName(Field field) {
  switch (field) {
    case Field::None: break;
    case Field::Name: return "change of the name";
    case Field::Composer: return "change of the composer";
    case Field::Tempo: return "change of tempo";
    case Field::Repeat: return "change of the repeat count";
    case Field::Style: return "change of style";
    case Field::Volume: return "change of volume";
  }
  return {};
}

void SongInfoPanel::Take(Field field, std::string_view text, SongInfo& info) {
  switch (field) {
    case Field::None: return;
    case Field::Name: info.name = text; return;
    case Field::Composer: info.composer = text; return;
    case Field::Tempo: info.bpm = DigitsValue(text); return;
    case Field::Repeat: info.loop = static_cast<int16_t>(DigitsValue(text)); return;
    case Field::Style: info.style = StyleCode(text); return;
    case Field::Volume: info.volume = text; return;
  }
}

}  // namespace trillomat
