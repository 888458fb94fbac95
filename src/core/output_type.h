// What a tone sounds on: the entries of the menu "Output".
#pragma once

#include <cstdint>

namespace trillomat {

/// In the order of the menu, as the settings keep it. Midi sounds nothing and takes no time.
enum class OutputType : int16_t { Wave = 0, Beep = 1, Midi = 2 };

inline constexpr auto kLastOutputType = OutputType::Midi;

}  // namespace trillomat
