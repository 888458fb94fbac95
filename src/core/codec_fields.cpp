// The codec's field helpers: durations, duration extras and octaves of the four notations.
#include <algorithm>
#include <array>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

using Codes = std::array<std::string_view, kDurations.size()>;

// Indexed like kDurations.
constexpr Codes kIMelodyCodes{"0", "1", "2", "3", "4", "5"};
constexpr Codes kEMelodyCodes{"0", "1", "2", "3", "3", "3"};
constexpr Codes kRtttlCodes{"1", "2", "4", "8", "16", "32"};
constexpr Codes kMelodyCodes{"2", "2", "2", "3", "3", "3"};

// Indexed like kDurationExtras.
constexpr std::array<std::string_view, kDurationExtras.size()> kExtraMarks{"", ".", ":", ";"};

const Codes& CodesOf(FormatMode mode) {
  switch (mode) {
    case FormatMode::IMelody: return kIMelodyCodes;
    case FormatMode::EMelody: return kEMelodyCodes;
    case FormatMode::Rtttl: return kRtttlCodes;
    case FormatMode::Melody: break;
  }
  return kMelodyCodes;
}

bool IsUpper(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return c >= 'a' && c <= 'z'; });
}

}  // namespace

float DecodeDuration(std::string_view text, FormatMode mode, Log& log) {
  if (mode == FormatMode::EMelody) {
    const float plain = IsUpper(text) ? 2.0F : 0.5F;
    return Contains(text, ".") ? 2 * plain : plain;
  }
  if (mode == FormatMode::Melody) return IsUpper(text) ? 1.0F : 0.5F;
  const Codes& codes = CodesOf(mode);
  for (size_t i = 0; i < codes.size(); ++i) {
    if (codes.at(i) == text) return kDurations.at(i);
  }
  log.WriteLog("Unknown duration-->" + std::string(text), 2);
  return 0;
}

float DecodeDurationExtra(std::string_view text, FormatMode mode) {
  const int lastExtra = LimitsOf(mode).lastExtra;
  for (size_t i = 1; i <= static_cast<size_t>(lastExtra); ++i) {
    if (kExtraMarks.at(i) == text) return kDurationExtras.at(i);
  }
  return 1.0F;
}

FieldText EncodeDuration(float duration, FormatMode mode, Log& log) {
  const int index = DurationIndex(duration);
  if (index >= 0) {
    return {std::string(CodesOf(mode).at(static_cast<size_t>(index))), LimitsOf(mode).HasDuration(index)};
  }
  log.WriteLog("Unknown duration-->" + FloatText(duration), 1);
  if (mode == FormatMode::IMelody) return {};
  return {std::string(CodesOf(mode).back()), false};
}

FieldText EncodeDurationExtra(float extra, FormatMode mode) {
  const int index = DurationExtraIndex(extra);
  const bool marked = mode == FormatMode::IMelody || mode == FormatMode::Rtttl;
  FieldText field;
  if (marked && index >= 0) field.text = kExtraMarks.at(static_cast<size_t>(index));
  field.supported = mode == FormatMode::IMelody || LimitsOf(mode).HasExtra(index);
  return field;
}

FieldText EncodeOctave(int16_t octave, FormatMode mode) {
  const ModeLimits& limits = LimitsOf(mode);
  const bool inside = limits.HasOctave(octave);
  FieldText field;
  field.supported = inside;
  switch (mode) {
    case FormatMode::IMelody: field.text = "*" + std::to_string(inside ? octave : 4); break;
    case FormatMode::Rtttl: field.text = std::to_string(inside ? octave + 2 : 4); break;
    case FormatMode::EMelody:
    case FormatMode::Melody:
      if (inside) field.text.assign(static_cast<size_t>(octave - limits.lowestOctave), '+');
      break;
  }
  return field;
}

}  // namespace trillomat
