// A sound device that fails at random, in the ways in which the systems' devices do.
#pragma once

#include "playback/sound_device.h"
#include "support/dice.h"
#include "support/fakes.h"

namespace trillomat {

/// Opens at its first sound, which can take a while and fail for good. Later it can fail for one sound, or
/// from then on. Failing shows as with the systems' devices: no wave starts, and a beep takes its time in
/// silence.
class FailingSound : public SoundDevice {
 public:
  FailingSound(Dice& dice, FakeClock& clock) : dice_(dice), clock_(clock) {}

  bool StartWave(std::span<const uint8_t> /*image*/) override {
    loops_ = Works();
    return loops_;
  }
  void StopWave() override { loops_ = false; }
  void Beep(int32_t /*hertz*/, int32_t milliseconds) override {
    if (milliseconds <= 0) return;
    Works();
    clock_.seconds += milliseconds / 1000.0;
  }
  void SetVolume(int percent) override { volume = percent; }

  /// Starts over, as at the start of a program.
  void Begin() { state_ = State::Unused; }
  /// Whether a wave sounds that was not stopped.
  bool Loops() const { return loops_; }

  int volume = 100;  ///< in percent
  int failures = 0;  ///< sounds that were asked for in vain

 private:
  enum class State { Unused, Open, Failed };

  bool Works() {
    constexpr int kSlowest = 3;  // seconds
    if (state_ == State::Unused) {
      clock_.seconds += dice_.OneIn(2) ? 0 : dice_.Number(kSlowest);
      state_ = dice_.OneIn(4) ? State::Failed : State::Open;
    }
    if (dice_.OneIn(200)) state_ = State::Failed;
    const bool works = state_ == State::Open && !dice_.OneIn(20);
    if (!works) ++failures;
    return works;
  }

  Dice& dice_;
  FakeClock& clock_;
  State state_ = State::Unused;
  bool loops_ = false;
};

}  // namespace trillomat
