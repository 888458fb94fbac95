#include "platform/sdl_device.h"

#include <cstring>
#include <ratio>
#include <utility>

#include "platform/sdl_library.h"
#include "playback/wave_synthesis.h"

namespace trillomat {
namespace {

using Frames = std::chrono::duration<int64_t, std::ratio<1, kSampleRate>>;

constexpr uint16_t kBufferFrames = 1024;
// The time of about eight buffers: a busy machine is never that late.
constexpr std::chrono::milliseconds kStall{200};

SDL_AudioSpec WantedSpec() {
  SDL_AudioSpec spec{};
  spec.freq = kSampleRate;
  spec.format = AUDIO_S16SYS;
  spec.channels = 1;
  spec.samples = kBufferFrames;
  return spec;
}

// SDL keeps its errors for each thread, and frees them only for its own threads. This frees those of the
// calling thread.
class ThreadErrors {
 public:
  ThreadErrors() = default;
  ThreadErrors(const ThreadErrors&) = delete;
  ThreadErrors& operator=(const ThreadErrors&) = delete;
  ~ThreadErrors() { Sdl()->cleanUpThread(); }
};

}  // namespace

std::optional<std::vector<int16_t>> SamplesOfImage(std::span<const uint8_t> image) {
  SDL_AudioSpec spec{};
  Uint8* bytes = nullptr;
  Uint32 size = 0;
  const SdlLibrary* const sdl = Sdl();
  if (sdl == nullptr) return std::nullopt;
  SDL_RWops* file = sdl->fileInMemory(image.data(), static_cast<int>(image.size()));
  if (sdl->loadWav(file, 1, &spec, &bytes, &size) == nullptr) return std::nullopt;
  std::vector<int16_t> samples(size / sizeof(int16_t));
  std::memcpy(samples.data(), bytes, samples.size() * sizeof(int16_t));
  sdl->freeWav(bytes);
  const SDL_AudioSpec wanted = WantedSpec();
  const bool plays =
      spec.freq == wanted.freq && spec.format == wanted.format && spec.channels == wanted.channels;
  if (!plays) return std::nullopt;
  return samples;
}

SdlDevice::SdlDevice() : mixer_(kBufferFrames * 3 / 2) {}

void SdlDevice::Open() {
  const SdlLibrary* const sdl = Sdl();
  if (sdl == nullptr) {
    error_ = "No sound system: SDL is not there";
    return;
  }
  const ThreadErrors errors;
  // The program's own handling of signals must stay.
  sdl->setHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  if (sdl->initSubSystem(SDL_INIT_AUDIO) != 0) {
    error_ = "No sound system: " + std::string(sdl->getError());
    return;
  }
  SDL_AudioSpec wanted = WantedSpec();
  wanted.callback = FillBuffer;
  wanted.userdata = this;
  id_ = sdl->openAudioDevice(nullptr, 0, &wanted, nullptr, 0);
  if (id_ == 0) {
    error_ = "No sound device: " + std::string(sdl->getError());
    sdl->quitSubSystem(SDL_INIT_AUDIO);
    return;
  }
  {
    const std::scoped_lock lock(mutex_);
    lastAsked_ = std::chrono::steady_clock::now();
  }
  sdl->pauseAudioDevice(id_, 0);
}

void SdlDevice::Close() {
  if (!IsOpen()) return;
  const ThreadErrors errors;
  Sdl()->closeAudioDevice(id_);
  Sdl()->quitSubSystem(SDL_INIT_AUDIO);
}

int64_t SdlDevice::SampleAt(Time time) const {
  return std::chrono::duration_cast<Frames>(time - begin_).count();
}

void SdlDevice::Start(std::vector<int16_t> loop, int64_t at) {
  const std::scoped_lock lock(mutex_);
  mixer_.Start(std::move(loop), at);
}

void SdlDevice::Stop(int64_t at) {
  const std::scoped_lock lock(mutex_);
  mixer_.Stop(at);
}

void SdlDevice::SetVolume(double gain) {
  const std::scoped_lock lock(mutex_);
  mixer_.SetVolume(gain);
}

bool SdlDevice::IsDrained() const {
  const std::scoped_lock lock(mutex_);
  return mixer_.IsDrained();
}

bool SdlDevice::HasStalled() const {
  const std::scoped_lock lock(mutex_);
  return std::chrono::steady_clock::now() - lastAsked_ > kStall;
}

// Called on SDL's own thread; that waits for the device elsewhere, so the lock is held for a short time only.
void SdlDevice::FillBuffer(void* self, uint8_t* bytes, int size) {
  auto& device = *static_cast<SdlDevice*>(self);
  const std::span out(reinterpret_cast<int16_t*>(bytes), static_cast<size_t>(size) / sizeof(int16_t));
  const std::scoped_lock lock(device.mutex_);
  device.lastAsked_ = std::chrono::steady_clock::now();
  device.mixer_.Render(out, device.Now());
}

}  // namespace trillomat
