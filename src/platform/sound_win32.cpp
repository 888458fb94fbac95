#include "platform/sound_win32.h"

#include <chrono>

#include "platform/pump_sleep.h"
#include "platform/win32.h"
#include "playback/volume.h"
#include "playback/wave_synthesis.h"
// after windows.h
#include <mmsystem.h>

namespace trillomat {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr UINT kTimerPeriod = 1;  // milliseconds
constexpr milliseconds kLongestStart{2000};
constexpr milliseconds kLongestEnd{500};
// 128 has no meaning for an image in memory, and is passed all the same.
constexpr DWORD kStartFlags = SND_MEMORY | SND_ASYNC | SND_LOOP | SND_NODEFAULT | 128;
constexpr DWORD kStopFlags = SND_PURGE | SND_NODEFAULT;
static_assert(kStartFlags == 143 && kStopFlags == 66);

}  // namespace

/// The image that loops. Used on the thread of the calls only; `started` may be read while no call is being
/// made.
struct Win32Sound::Wave {
  void Stop() const { PlaySoundA(nullptr, nullptr, kStopFlags); }
  void Start(const std::vector<uint8_t>& image) {
    Stop();
    sounding = image;
    started = PlaySoundA(reinterpret_cast<LPCSTR>(sounding.data()), nullptr, kStartFlags) != FALSE;
  }

  std::vector<uint8_t> sounding;  ///< has to stay as it is until the sound has ended
  bool started = false;
};

Win32Sound::Win32Sound() : wave_(std::make_shared<Wave>()) { timeBeginPeriod(kTimerPeriod); }

Win32Sound::~Win32Sound() {
  Win32Sound::StopWave();
  calls_.IsIdle(steady_clock::now() + kLongestEnd);
  timeEndPeriod(kTimerPeriod);
}

// Whether all calls have returned. Waits for that, unless the last wait for them was in vain.
bool Win32Sound::IsFree() {
  const auto now = steady_clock::now();
  hangs_ = !calls_.IsIdle(hangs_ ? now : now + kLongestStart);
  return !hangs_;
}

bool Win32Sound::StartWave(std::span<const uint8_t> image) {
  StopWave();
  if (image.empty() || !IsFree()) return false;
  std::vector<uint8_t> copy(image.begin(), image.end());
  ScaleImage(copy, gain_);
  if (!calls_.Post([wave = wave_, copy] { wave->Start(copy); })) return false;
  if (IsFree()) return wave_->started;
  calls_.Post([wave = wave_] { wave->Stop(); });  // when it starts after all
  return false;
}

void Win32Sound::StopWave() {
  if (!hangs_) calls_.Post([wave = wave_] { wave->Stop(); });
}

void Win32Sound::Beep(int32_t hertz, int32_t milliseconds) {
  if (milliseconds <= 0) return;
  const auto end = steady_clock::now() + std::chrono::milliseconds(milliseconds);
  if (gain_ == 1) {
    SystemBeep(hertz, end);
    return SleepUntil(end);
  }
  StartWave(ToneImage(hertz));
  SleepUntil(end);
  StopWave();
}

// Waits for the beep before, which may end a little late.
void Win32Sound::SystemBeep(int32_t hertz, steady_clock::time_point end) {
  if (!calls_.IsIdle(end)) return;
  const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now()).count();
  calls_.Post([hertz, left] {
    if (left > 0) ::Beep(static_cast<DWORD>(hertz), static_cast<DWORD>(left));
  });
}

void Win32Sound::SetVolume(int percent) { gain_ = VolumeGain(percent); }

}  // namespace trillomat
