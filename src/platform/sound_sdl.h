// The sound device over SDL2: opened once, on first use, and fed with silence between the tones. When a sound
// server hangs, the program waits two seconds for it, once.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "core/log.h"
#include "platform/call_thread.h"
#include "platform/sdl_device.h"
#include "playback/sound_device.h"

namespace trillomat {

/// To be used on one thread. Plays wave images of the one format that the program makes.
class SdlSound : public SoundDevice {
 public:
  /// A device that has not opened after this time never sounds.
  static constexpr std::chrono::seconds kLongestOpening{2};

  /// `log` hears why there is no sound, once.
  explicit SdlSound(Log& log) : log_(log) {}
  SdlSound(const SdlSound&) = delete;
  SdlSound& operator=(const SdlSound&) = delete;
  /// Lets the last tone sound to its end, which takes no longer than the latency, and closes the device;
  /// waits for neither where the device takes no samples any more.
  ~SdlSound() override;

  /// The first call waits for the device to open, up to kLongestOpening.
  bool StartWave(std::span<const uint8_t> image) override;
  void StopWave() override;
  /// The opening of the device counts as part of the length.
  void Beep(int32_t hertz, int32_t milliseconds) override;
  /// Heard at once, also in the middle of a tone.
  void SetVolume(int percent) override;

 private:
  enum class State { Unused, Opening, Open, Failed };

  void BeginToOpen();
  bool IsOpen(SdlDevice::Time deadline);
  bool StartAt(std::span<const uint8_t> image, int64_t at);
  void Fail(const std::string& why);
  void Drain();
  void Close();

  Log& log_;
  State state_ = State::Unused;
  SdlDevice::Time openBy_;
  std::shared_ptr<SdlDevice> device_ = std::make_shared<SdlDevice>();
  CallThread calls_;  ///< opens the device and closes it
};

}  // namespace trillomat
