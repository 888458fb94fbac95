// Turns starts and stops of looping tones, each with the time at which it happened, into samples.
//
// A sound card asks for a buffer of samples at a time, tones start and stop in between. So the mixer
// renders the past: what it renders happened about one latency ago, and each tone begins and ends at
// its exact sample, however irregularly the card asks.
//
//   time      ----[=======tone=======]--[===tone===]-------> now
//   rendered  ................................^ position     |
//                                             |<- latency -->|
//
// Where the card asks for more than has happened yet, silence is stretched, and a tone that sounds goes
// on; its stop is then heeded at once and all that follows moves, so that later tones keep their length.
// Where the card asks too late, the lag is taken out of a silence. Every tone starts and ends in a
// ramp, so that nothing clicks and two equal tones in a row are heard as two.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace trillomat {

/// Times are in samples of the one channel. Not thread-safe: the owner has to lock.
class ToneMixer {
 public:
  /// `latency` should exceed the number of samples asked for at a time.
  explicit ToneMixer(int64_t latency) : latency_(latency) {}

  /// Length of a full ramp: just under 3 ms at 44.1 kHz.
  static constexpr int64_t kRamp = 132;
  /// The lag behind now from which a silence is shortened.
  static constexpr int64_t kMaxLag = 17640;
  /// After a silence as long as this the lag is put right, whatever it is.
  static constexpr int64_t kIdle = 88200;

  /// `loop` sounds from `at` on, until the next Start or Stop. Times never go back.
  void Start(std::vector<int16_t> loop, int64_t at);
  /// Ends the sounding tone at `at`, which may lie in the future.
  void Stop(int64_t at);
  /// The factor for all samples from the next Render on, 0 to 1. A tone that sounds reaches it in a ramp.
  void SetVolume(double gain) { volumeWanted_ = gain; }
  /// Fills `out`, which is asked for at the time `now`.
  void Render(std::span<int16_t> out, int64_t now);

  /// True when everything that was started has been stopped and rendered.
  bool IsDrained() const { return tones_.empty(); }

 private:
  struct Tone {
    std::vector<int16_t> loop;
    int64_t begin = 0;
    std::optional<int64_t> end;
  };

  void Align(int64_t now);
  size_t RenderSilence(std::span<int16_t> out, int64_t now);
  size_t RenderTone(std::span<int16_t> out);
  double NextGain();
  void LearnLength();
  void FinishTone();

  int64_t latency_;
  std::deque<Tone> tones_;           ///< the first sounds or comes next
  std::optional<int64_t> position_;  ///< the time that is rendered next
  int64_t silentSince_ = 0;          ///< where the last tone ended
  bool sounding_ = false;            ///< the first tone has begun
  int64_t rendered_ = 0;             ///< samples of the first tone so far
  std::optional<int64_t> length_;    ///< samples of the first tone in all, once known
  double gain_ = 0;                  ///< of the ramps of the first tone
  double volume_ = 1;
  double volumeWanted_ = 1;
};

}  // namespace trillomat
