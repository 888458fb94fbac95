// The seam to the sound device. Abstract so that tests and programs without sound can replace it.
#pragma once

#include <cstdint>
#include <span>

namespace trillomat {

class SoundDevice {
 public:
  SoundDevice() = default;
  SoundDevice(const SoundDevice&) = delete;
  SoundDevice& operator=(const SoundDevice&) = delete;
  virtual ~SoundDevice() = default;

  /// Starts to loop `image`, a complete RIFF/WAVE file, and returns at once; the image may change
  /// afterwards. False when nothing can be sounded.
  virtual bool StartWave(std::span<const uint8_t> image) = 0;
  /// Ends the looping sound, if there is one.
  virtual void StopWave() = 0;
  /// Sounds `hertz` for `milliseconds` and returns afterwards; without a device it keeps the time in
  /// silence. A length of 0 or less returns at once.
  virtual void Beep(int32_t hertz, int32_t milliseconds) = 0;
  /// How loud everything sounds from now on, in percent: see playback/volume.h. 100 unless set.
  virtual void SetVolume(int percent) = 0;
};

/// Sounds nothing and takes no time.
class NullSoundDevice : public SoundDevice {
 public:
  bool StartWave(std::span<const uint8_t> /*image*/) override { return true; }
  void StopWave() override {}
  void Beep(int32_t /*hertz*/, int32_t /*milliseconds*/) override {}
  void SetVolume(int /*percent*/) override {}
};

}  // namespace trillomat
