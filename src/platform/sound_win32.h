// The sound device over Windows' own two: PlaySound for wave images and Beep. Both are called on a thread of
// their own, because a sound service that hangs holds up whoever asks it.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/call_thread.h"
#include "playback/sound_device.h"

namespace trillomat {

/// To be used on one thread. While it lives, the system's waits are exact to about a millisecond instead of
/// the usual 16, so that tones keep their length. As long as a call into the system hangs, nothing sounds.
class Win32Sound : public SoundDevice {
 public:
  Win32Sound();
  Win32Sound(const Win32Sound&) = delete;
  Win32Sound& operator=(const Win32Sound&) = delete;
  ~Win32Sound() override;

  /// Waits for a call that hangs for two seconds at most, and not again for the same call.
  bool StartWave(std::span<const uint8_t> image) override;
  void StopWave() override;
  /// The system refuses tones below 37 Hz; they are silent and take their time all the same.
  /// The system's own beep knows no volume; where that is not full, a wave image sounds in its place.
  void Beep(int32_t hertz, int32_t milliseconds) override;
  /// Heard from the next tone on.
  void SetVolume(int percent) override;

 private:
  struct Wave;

  bool IsFree();
  void SystemBeep(int32_t hertz, std::chrono::steady_clock::time_point end);

  std::shared_ptr<Wave> wave_;
  CallThread calls_;
  double gain_ = 1;
  bool hangs_ = false;  ///< a call has not returned in time
};

}  // namespace trillomat
