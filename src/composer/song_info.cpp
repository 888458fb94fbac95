#include "composer/song_info.h"

#include "core/ascii.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

size_t StyleNumber(std::string_view text) {
  const std::array<std::string_view, kStyleTexts.size()> digits{"0", "1", "2"};
  for (size_t i = 0; i < digits.size(); ++i) {
    if (Contains(text, digits.at(i))) return i;
  }
  return 0;
}

}  // namespace

std::string StyleText(std::string_view code) { return std::string(kStyleTexts.at(StyleNumber(code))); }

std::string StyleCode(std::string_view text) { return "S" + std::to_string(StyleNumber(text)); }

std::string VolumeText(std::string_view volume) {
  if (!volume.starts_with('V')) return std::string(kDefaultVolume);
  const auto number = RoundToInt16(LeadingNumber(volume.substr(1)));
  if (!number || *number < 0 || *number > 15) return std::string(kDefaultVolume);
  return std::string(volume.substr(0, 3));
}

void PassThroughPanel(SongHeader& header) {
  header.Style = StyleCode(StyleText(header.Style));
  header.Volume = VolumeText(header.Volume);
}

}  // namespace trillomat
