// SDL's sound device and the mixer that feeds it, shared by the threads that use them.
#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/tone_mixer.h"

namespace trillomat {

/// The samples of a wave file in memory; nothing when it is not of the one format that the device plays:
/// mono, 16 bits, 44,100 samples a second.
std::optional<std::vector<int16_t>> SamplesOfImage(std::span<const uint8_t> image);

/// Open and Close are to be called on one thread, and may have to wait for the system. The device has to live
/// until Close has returned. All other functions return at once. Times are in samples.
class SdlDevice {
 public:
  using Time = std::chrono::steady_clock::time_point;

  SdlDevice();

  /// Opens the device, which from then on asks for samples.
  void Open();
  void Close();
  /// Once Open has returned: whether the device is open, and if not, why.
  bool IsOpen() const { return id_ != 0; }
  const std::string& Error() const { return error_; }

  /// The sample that belongs to a time, counted from the making of this object.
  int64_t SampleAt(Time time) const;
  int64_t Now() const { return SampleAt(std::chrono::steady_clock::now()); }
  // As in ToneMixer.
  void Start(std::vector<int16_t> loop, int64_t at);
  void Stop(int64_t at);
  void SetVolume(double gain);
  bool IsDrained() const;
  /// The device asks for no more samples, though it should.
  bool HasStalled() const;

 private:
  static void FillBuffer(void* self, uint8_t* bytes, int size);

  const Time begin_ = std::chrono::steady_clock::now();
  uint32_t id_ = 0;
  std::string error_;
  mutable std::mutex mutex_;  ///< for what follows
  ToneMixer mixer_;
  Time lastAsked_ = begin_;
};

}  // namespace trillomat
