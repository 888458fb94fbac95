// The sound device over SDL2: opened once, on first use, and fed with silence between the tones.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>

#include "core/log.h"
#include "platform/tone_mixer.h"
#include "playback/sound_device.h"

namespace trillomat {

/// To be used from one thread. Takes wave images of the one format that the program makes: mono, 16
/// bits, 44,100 samples a second.
class SdlSound : public SoundDevice {
 public:
  /// `log` hears why there is no sound, once.
  explicit SdlSound(Log& log) : log_(log) {}
  SdlSound(const SdlSound&) = delete;
  SdlSound& operator=(const SdlSound&) = delete;
  /// Lets the last tone sound to its end, which takes no longer than the latency.
  ~SdlSound() override;

  bool StartWave(std::span<const uint8_t> image) override;
  void StopWave() override;
  void Beep(int32_t hertz, int32_t milliseconds) override;

 private:
  class Locked;
  enum class State { Unused, Open, Failed };

  static void FillBuffer(void* self, uint8_t* bytes, int size);
  bool Open();
  bool StartAt(std::span<const uint8_t> image, int64_t at);
  bool Fail(const char* what);
  void Drain();
  int64_t Now() const;

  Log& log_;
  State state_ = State::Unused;
  uint32_t device_ = 0;
  ToneMixer mixer_{0};  ///< shared with the audio thread: use it under the lock alone
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace trillomat
