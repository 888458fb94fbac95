#include "composer/song_info.h"

#include "core/ascii.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

constexpr std::string_view kDefaultVolume = "V10";

size_t StyleNumber(std::string_view text) {
  for (size_t i = 0; i < kStyleTexts.size(); ++i) {
    if (Contains(text, kStyleTexts.at(i).substr(1, 1))) return i;
  }
  return 0;
}

}  // namespace

std::string StyleText(std::string_view code) { return std::string(kStyleTexts.at(StyleNumber(code))); }

std::string StyleCode(std::string_view text) { return "S" + std::to_string(StyleNumber(text)); }

std::string VolumeText(std::string_view volume) {
  if (!volume.starts_with('V')) return std::string(kDefaultVolume);
  const auto number = RoundToInt16(LeadingNumber(volume.substr(1)));
  if (!number || *number < 0 || *number > kHighestVolume) return std::string(kDefaultVolume);
  return std::string(volume.substr(0, 3));
}

void NormaliseStyleAndVolume(SongInfo& info) {
  info.style = StyleCode(info.style);
  info.volume = VolumeText(info.volume);
}

}  // namespace trillomat
