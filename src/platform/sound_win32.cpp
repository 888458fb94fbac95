#include "platform/sound_win32.h"

#include <chrono>

#include "platform/pump_sleep.h"
#include "platform/win32.h"
// after windows.h
#include <mmsystem.h>

namespace trillomat {
namespace {

constexpr UINT kTimerPeriod = 1;  // milliseconds
// The last of them has no meaning for an image in memory; it is passed for what it is worth.
constexpr DWORD kStartFlags = SND_MEMORY | SND_ASYNC | SND_LOOP | SND_NODEFAULT | 128;
constexpr DWORD kStopFlags = SND_PURGE | SND_NODEFAULT;
static_assert(kStartFlags == 143 && kStopFlags == 66);

}  // namespace

Win32Sound::Win32Sound() { timeBeginPeriod(kTimerPeriod); }

Win32Sound::~Win32Sound() {
  Win32Sound::StopWave();
  timeEndPeriod(kTimerPeriod);
}

bool Win32Sound::StartWave(std::span<const uint8_t> image) {
  StopWave();
  if (image.empty()) return false;
  sounding_.assign(image.begin(), image.end());
  return PlaySoundA(reinterpret_cast<LPCSTR>(sounding_.data()), nullptr, kStartFlags) != FALSE;
}

void Win32Sound::StopWave() { PlaySoundA(nullptr, nullptr, kStopFlags); }

void Win32Sound::Beep(int32_t hertz, int32_t milliseconds) {
  if (milliseconds <= 0) return;
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  ::Beep(static_cast<DWORD>(hertz), static_cast<DWORD>(milliseconds));
  SleepUntil(end);
}

}  // namespace trillomat
