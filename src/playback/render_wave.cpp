#include "playback/render_wave.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "playback/play_trace.h"
#include "playback/played_length.h"
#include "playback/wave_synthesis.h"

namespace trillomat {
namespace {

constexpr int64_t kRampFrames = kSampleRate * 3 / 1000;
constexpr int64_t kMaxDataSize = std::numeric_limits<uint32_t>::max() - int64_t{kWaveHeaderSize};

// The sample at which a time begins. Times count from the start of the melody, so that rounding does not add
// up.
int64_t FramesAt(int64_t milliseconds) { return (milliseconds * kSampleRate + 500) / 1000; }

int64_t DataSizeAt(int64_t milliseconds) { return FramesAt(milliseconds) * 2; }

constexpr int64_t kFrameSize = 2;  // bytes
using Bytes = std::span<const uint8_t>;

// Writes one element after the other at its exact position.
class WaveWriter {
 public:
  explicit WaveWriter(std::ostream& out) : out_(out) {}

  bool Write(const PlayedElement& played) {
    const int64_t begin = FramesAt(time_);
    time_ += std::max(0, played.length);
    const int64_t length = FramesAt(time_) - begin;
    if (played.frequency > 0 && length > 0) {
      WriteTone(played.frequency, length);
    } else {
      WriteSilence(length);
    }
    return out_.good();
  }

 private:
  // The tone rises and falls in `ramp` frames; in between it is the image, again and again.
  void WriteTone(int32_t hertz, int64_t length) {
    const Bytes samples = ToneOf(hertz);
    const int64_t ramp = std::max<int64_t>(1, std::min(kRampFrames, length / 2));
    WriteRamp(samples, 0, std::min(ramp, length), length, ramp);
    WriteAgain(samples, ramp, length - ramp);
    WriteRamp(samples, std::max(ramp, length - ramp), length, length, ramp);
  }

  void WriteRamp(Bytes samples, int64_t begin, int64_t end, int64_t length, int64_t ramp) {
    for (int64_t k = begin; k < end; ++k) {
      const auto at = static_cast<size_t>(k * kFrameSize) % samples.size();
      const auto sample = static_cast<int16_t>(samples[at] | samples[at + 1] << 8);
      const auto damped = static_cast<int16_t>(sample * std::min({k, length - 1 - k, ramp}) / ramp);
      out_.put(static_cast<char>(damped & 0xFF));
      out_.put(static_cast<char>(damped >> 8));
    }
  }

  // The frames from `begin` up to `end` of `samples` repeated without end.
  void WriteAgain(Bytes samples, int64_t begin, int64_t end) {
    auto at = static_cast<size_t>(begin * kFrameSize) % samples.size();
    for (int64_t left = (end - begin) * kFrameSize; left > 0; at = 0) {
      const auto size = std::min<int64_t>(left, std::ssize(samples) - static_cast<int64_t>(at));
      const Bytes piece = samples.subspan(at, static_cast<size_t>(size));
      out_.write(reinterpret_cast<const char*>(piece.data()), size);
      left -= size;
    }
  }

  void WriteSilence(int64_t length) {
    static constexpr std::array<uint8_t, 4096> kSilence{};
    WriteAgain(kSilence, 0, length);
  }

  // Kept, because melodies have few tones and computing the sines of one takes longer than writing it many
  // times.
  Bytes ToneOf(int32_t hertz) {
    constexpr size_t kMostTones = 256;
    if (images_.size() > kMostTones) images_.clear();
    const auto [image, isNew] = images_.try_emplace(hertz);
    if (isNew) image->second = ToneImage(hertz);
    return Bytes(image->second).subspan(kWaveHeaderSize);
  }

  std::ostream& out_;
  std::map<int32_t, std::vector<uint8_t>> images_;
  int64_t time_ = 0;  // milliseconds
};

// Why the melody, as far as it was measured, is more than can or should be rendered; nothing when it is not.
std::optional<RenderFailure> TooMuch(const PlayedLength& length, bool anyLength) {
  if (const std::string_view tooMuch = length.WhyTooMuch(); !anyLength && !tooMuch.empty()) {
    return RenderFailure{std::string(tooMuch), true};
  }
  if (DataSizeAt(length.Milliseconds()) > kMaxDataSize) {
    return RenderFailure{"the melody is too long for a WAV file"};
  }
  return std::nullopt;
}

}  // namespace

std::optional<RenderFailure> RenderWave(const Document& document, const RenderOptions& options,
                                        const Services& services, std::ostream& out) {
  const RenderFailure interrupted{"interrupted"};
  // The header holds the size, and the stream may be one that cannot go back to it: so the walk is made
  // twice.
  SilentLog silent;
  PlayedLength length(document.Size());
  const auto add = [&](const TraceStep& step) {
    length.Add(step.played);
    return !TooMuch(length, options.anyLength);
  };
  if (!TraceMelody(document, options.endlessRounds, {silent, services.pump}, add)) {
    return TooMuch(length, options.anyLength).value_or(interrupted);
  }
  const auto size = static_cast<uint32_t>(DataSizeAt(length.Milliseconds()));
  const auto header = WaveHeader(WaveFormat{}, size);
  out.write(reinterpret_cast<const char*>(header.data()), header.size());
  WaveWriter writer(out);
  const auto write = [&writer](const TraceStep& step) { return writer.Write(step.played); };
  if (!TraceMelody(document, options.endlessRounds, services, write) || !out.flush()) {
    return out.good() ? interrupted : RenderFailure{"the WAV file could not be written"};
  }
  return std::nullopt;
}

}  // namespace trillomat
