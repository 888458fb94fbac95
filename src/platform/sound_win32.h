// The sound device over Windows' own two: PlaySound for wave images and Beep.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "playback/sound_device.h"

namespace trillomat {

/// While it lives, the system's waits are exact to about a millisecond instead of its usual 16, so that
/// tones keep their length.
class Win32Sound : public SoundDevice {
 public:
  Win32Sound();
  Win32Sound(const Win32Sound&) = delete;
  Win32Sound& operator=(const Win32Sound&) = delete;
  ~Win32Sound() override;

  bool StartWave(std::span<const uint8_t> image) override;
  void StopWave() override;
  /// The system refuses tones below 37 Hz; they are silent and take their time all the same.
  void Beep(int32_t hertz, int32_t milliseconds) override;

 private:
  std::vector<uint8_t> sounding_;  ///< has to stay as it is until the sound has ended
};

}  // namespace trillomat
