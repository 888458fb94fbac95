// The conversions between the song information's style and volume and the texts that the
// song-information panel shows for them.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/song.h"

namespace trillomat {

/// The style texts offered, in the order of the codes "S0" to "S2".
inline constexpr std::array<std::string_view, 3> kStyleTexts{"S0: Natural Style", "S1: Continuous Style",
                                                             "S2: Staccato Style"};

/// The style text of a code: that of the first of "0", "1", "2" that it contains, else that of "S0".
std::string StyleText(std::string_view code);

/// The code of a style text, by the same rule: "S0", "S1" or "S2".
std::string StyleCode(std::string_view text);

/// A volume as the panel shows it: the first three characters of "V" and a number from 0 to
/// kHighestVolume, "V10" for any other text.
std::string VolumeText(std::string_view volume);

/// Makes style and volume what they are once the panel has shown them, as happens after every load and
/// import, in the window and on the command line alike.
void NormaliseStyleAndVolume(SongInfo& info);

}  // namespace trillomat
