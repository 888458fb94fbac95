#include "platform/tone_mixer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace trillomat {
namespace {

// Tones wait in the queue only as long as the latency. So many mean that the device no longer asks for
// samples.
constexpr size_t kMaxTones = 256;

}  // namespace

void ToneMixer::Start(std::vector<int16_t> loop, int64_t at) {
  Stop(at);
  if (loop.empty() || tones_.size() >= kMaxTones) return;
  tones_.push_back({std::move(loop), at, std::nullopt});
}

void ToneMixer::Stop(int64_t at) {
  if (tones_.empty() || tones_.back().end) return;
  Tone& last = tones_.back();
  last.end = std::max(at, last.begin);
  const bool begun = sounding_ && tones_.size() == 1;
  if (*last.end == last.begin && !begun) tones_.pop_back();
}

void ToneMixer::Render(std::span<int16_t> out, int64_t now) {
  Align(now);
  while (!out.empty()) {
    out = out.subspan(sounding_ ? RenderTone(out) : RenderSilence(out, now));
  }
}

// Puts the distance to `now` right, where nobody hears it: in a silence.
void ToneMixer::Align(int64_t now) {
  const int64_t target = now - latency_;
  if (!position_) silentSince_ = *(position_ = target);
  if (sounding_) return;
  const bool idle = tones_.empty() && *position_ - silentSince_ > kIdle;
  const bool late = now - *position_ > kMaxLag;
  if (!idle && !late) return;
  position_ = tones_.empty() ? target : std::min(target, std::max(*position_, tones_.front().begin));
}

// Writes silence up to the next tone. Without one, silence that lies in the future is written but not
// counted, so that a tone that starts now is not late.
size_t ToneMixer::RenderSilence(std::span<int16_t> out, int64_t now) {
  if (!tones_.empty() && tones_.front().begin <= *position_) {
    position_ = tones_.front().begin;
    sounding_ = true;
    volume_ = volumeWanted_;
    return 0;
  }
  const int64_t limit = tones_.empty() ? std::max(now, *position_) : tones_.front().begin;
  const int64_t counted = std::min(static_cast<int64_t>(out.size()), limit - *position_);
  const size_t count = counted > 0 ? static_cast<size_t>(counted) : out.size();
  std::fill_n(out.begin(), count, int16_t{0});
  *position_ += std::max<int64_t>(0, counted);
  return count;
}

size_t ToneMixer::RenderTone(std::span<int16_t> out) {
  LearnLength();
  if (length_ == rendered_) {
    FinishTone();
    return 0;
  }
  const std::vector<int16_t>& loop = tones_.front().loop;
  const size_t count = length_ ? std::min(out.size(), static_cast<size_t>(*length_ - rendered_)) : out.size();
  for (int16_t& sample : out.first(count)) {
    const double gain = NextGain();
    const auto at = static_cast<size_t>(rendered_++) % loop.size();
    sample = static_cast<int16_t>(std::lround(loop[at] * gain));
  }
  *position_ += static_cast<int64_t>(count);
  return count;
}

double ToneMixer::NextGain() {
  constexpr double kStep = 1.0 / kRamp;
  gain_ = std::min(1.0, gain_ + kStep);
  if (length_) gain_ = std::min(gain_, static_cast<double>(*length_ - rendered_) * kStep);
  volume_ = std::clamp(volumeWanted_, volume_ - kStep, volume_ + kStep);
  return gain_ * volume_;
}

// Where the stop becomes known too late, the tone is lengthened by the ramp that ends it.
void ToneMixer::LearnLength() {
  const Tone& tone = tones_.front();
  if (length_ || !tone.end) return;
  const auto ramp = static_cast<int64_t>(std::ceil(gain_ * kRamp));
  length_ = std::max(*tone.end - tone.begin, rendered_ + ramp);
}

void ToneMixer::FinishTone() {
  position_ = silentSince_ = *tones_.front().end;
  tones_.pop_front();
  sounding_ = false;
  rendered_ = 0;
  length_.reset();
  gain_ = 0;
}

}  // namespace trillomat
