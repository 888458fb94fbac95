#include "platform/sound_sdl.h"

#include <algorithm>
#include <thread>
#include <utility>
#include <vector>

#include "playback/volume.h"
#include "playback/wave_synthesis.h"

namespace trillomat {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kLongestDrain{500};
constexpr milliseconds kLongestClosing{500};

}  // namespace

SdlSound::~SdlSound() {
  if (state_ == State::Opening) Close();
  if (state_ != State::Open) return;
  SdlSound::StopWave();
  Drain();
  Close();
  if (!device_->HasStalled()) calls_.IsIdle(steady_clock::now() + kLongestClosing);
}

bool SdlSound::StartWave(std::span<const uint8_t> image) {
  return IsOpen(SdlDevice::Time::max()) && StartAt(image, device_->Now());
}

bool SdlSound::StartAt(std::span<const uint8_t> image, int64_t at) {
  auto samples = SamplesOfImage(image);
  if (!samples) return false;
  device_->Start(std::move(*samples), at);
  return true;
}

void SdlSound::StopWave() {
  if (state_ == State::Open) device_->Stop(device_->Now());
}

void SdlSound::Beep(int32_t hertz, int32_t milliseconds) {
  if (milliseconds <= 0) return;
  const auto begin = steady_clock::now();
  const auto end = begin + std::chrono::milliseconds(milliseconds);
  if (IsOpen(end)) {
    // The time that the opening took counts as part of the tone, as far as the mixer can lag behind.
    const int64_t at = std::max(device_->SampleAt(begin), device_->Now() - ToneMixer::kMaxLag);
    if (StartAt(ToneImage(hertz), at)) device_->Stop(device_->SampleAt(end));
  }
  std::this_thread::sleep_until(end);
}

void SdlSound::SetVolume(int percent) { device_->SetVolume(VolumeGain(percent)); }

void SdlSound::BeginToOpen() {
  state_ = State::Opening;
  openBy_ = steady_clock::now() + kLongestOpening;
  if (!calls_.Post([device = device_] { device->Open(); })) Fail("No sound device: no thread for it");
}

// Opens the device at the first call. Waits for that until `deadline`, but no longer than it may take.
bool SdlSound::IsOpen(SdlDevice::Time deadline) {
  if (state_ == State::Unused) BeginToOpen();
  if (state_ != State::Opening) return state_ == State::Open;
  if (calls_.IsIdle(std::min(deadline, openBy_))) {
    state_ = State::Open;
    if (!device_->IsOpen()) Fail(device_->Error());
  } else if (steady_clock::now() >= openBy_) {
    Fail("No sound device: it does not answer");
    Close();
  }
  return state_ == State::Open;
}

void SdlSound::Fail(const std::string& why) {
  log_.WriteLog(why, 1);
  state_ = State::Failed;
}

// Waits until everything has been heard: a tone that was stopped just now sounds for one more latency.
void SdlSound::Drain() {
  const auto limit = steady_clock::now() + kLongestDrain;
  while (!device_->IsDrained() && !device_->HasStalled() && steady_clock::now() < limit) {
    std::this_thread::sleep_for(milliseconds(5));
  }
}

// Closes the device as soon as it has opened, if it ever does.
void SdlSound::Close() {
  calls_.Post([device = device_] { device->Close(); });
}

}  // namespace trillomat
