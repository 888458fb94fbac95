#include "platform/sound_sdl.h"

#include <SDL.h>

#include <cstring>
#include <optional>
#include <ratio>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "playback/wave_synthesis.h"

namespace trillomat {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using Frames = std::chrono::duration<int64_t, std::ratio<1, kSampleRate>>;

constexpr uint16_t kBufferFrames = 1024;
constexpr milliseconds kLongestDrain{500};

SDL_AudioSpec WantedSpec() {
  SDL_AudioSpec spec{};
  spec.freq = kSampleRate;
  spec.format = AUDIO_S16SYS;
  spec.channels = 1;
  spec.samples = kBufferFrames;
  return spec;
}

// The samples of a wave file in memory, nothing when it is not one that the device plays as it is.
std::optional<std::vector<int16_t>> SamplesOf(std::span<const uint8_t> image) {
  SDL_AudioSpec spec{};
  Uint8* bytes = nullptr;
  Uint32 size = 0;
  SDL_RWops* file = SDL_RWFromConstMem(image.data(), static_cast<int>(image.size()));
  if (SDL_LoadWAV_RW(file, 1, &spec, &bytes, &size) == nullptr) return std::nullopt;
  std::vector<int16_t> samples(size / sizeof(int16_t));
  std::memcpy(samples.data(), bytes, samples.size() * sizeof(int16_t));
  SDL_FreeWAV(bytes);
  const SDL_AudioSpec wanted = WantedSpec();
  const bool plays =
      spec.freq == wanted.freq && spec.format == wanted.format && spec.channels == wanted.channels;
  if (!plays) return std::nullopt;
  return samples;
}

}  // namespace

/// The mixer, locked against the audio thread for as long as this lives.
class SdlSound::Locked {
 public:
  explicit Locked(SdlSound& sound) : sound_(sound) { SDL_LockAudioDevice(sound_.device_); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
  ~Locked() { SDL_UnlockAudioDevice(sound_.device_); }
  ToneMixer* operator->() const { return &sound_.mixer_; }

 private:
  SdlSound& sound_;
};

SdlSound::~SdlSound() {
  if (state_ != State::Open) return;
  SdlSound::StopWave();
  Drain();
  SDL_CloseAudioDevice(device_);
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool SdlSound::StartWave(std::span<const uint8_t> image) { return Open() && StartAt(image, Now()); }

bool SdlSound::StartAt(std::span<const uint8_t> image, int64_t at) {
  auto samples = SamplesOf(image);
  if (!samples) return false;
  Locked(*this)->Start(std::move(*samples), at);
  return true;
}

void SdlSound::StopWave() {
  if (state_ == State::Open) Locked(*this)->Stop(Now());
}

void SdlSound::Beep(int32_t hertz, int32_t milliseconds) {
  if (milliseconds <= 0) return;
  const std::vector<uint8_t> image = ToneImage(hertz);
  const bool open = Open();
  const int64_t begin = Now();
  const int64_t end = begin + int64_t{milliseconds} * kSampleRate / 1000;
  if (open && StartAt(image, begin)) Locked(*this)->Stop(end);
  std::this_thread::sleep_until(start_ + std::chrono::duration_cast<steady_clock::duration>(Frames(end)));
}

bool SdlSound::Open() {
  if (state_ != State::Unused) return state_ == State::Open;
  // The program's own handling of signals must stay.
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return Fail("No sound system: ");
  SDL_AudioSpec wanted = WantedSpec();
  wanted.callback = FillBuffer;
  wanted.userdata = this;
  device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
  if (device_ == 0) {
    Fail("No sound device: ");
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return false;
  }
  mixer_ = ToneMixer(kBufferFrames * 3 / 2);
  state_ = State::Open;
  SDL_PauseAudioDevice(device_, 0);
  return true;
}

bool SdlSound::Fail(const char* what) {
  log_.WriteLog(what + std::string(SDL_GetError()), 1);
  state_ = State::Failed;
  return false;
}

// What was stopped just now is heard one latency later.
void SdlSound::Drain() {
  const auto limit = steady_clock::now() + kLongestDrain;
  while (!Locked(*this)->IsDrained() && steady_clock::now() < limit) {
    std::this_thread::sleep_for(milliseconds(5));
  }
}

int64_t SdlSound::Now() const {
  return std::chrono::duration_cast<Frames>(steady_clock::now() - start_).count();
}

// Called by the audio thread, which holds the lock.
void SdlSound::FillBuffer(void* self, uint8_t* bytes, int size) {
  auto& sound = *static_cast<SdlSound*>(self);
  const std::span out(reinterpret_cast<int16_t*>(bytes), static_cast<size_t>(size) / sizeof(int16_t));
  sound.mixer_.Render(out, sound.Now());
}

}  // namespace trillomat
