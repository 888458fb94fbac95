#include "playback/play_trace.h"

#include <algorithm>

namespace trillomat {
namespace {

// A clock and a pump in one: waiting puts the clock forward and returns at once.
class SilentTime : public Clock, public EventPump {
 public:
  explicit SilentTime(EventPump& real) : real_(real) {}

  double SecondsSinceMidnight() const override { return seconds_; }
  std::string DateText() const override { return {}; }
  std::string TimeText() const override { return {}; }
  bool PumpEvents() override { return real_.PumpEvents(); }
  bool WaitForEvents(double milliseconds) override {
    seconds_ += milliseconds / 1000;
    return PumpEvents();
  }
  /// Puts the clock back to 0, so that its time stays small enough to be exact.
  void Reset() { seconds_ = 0; }

 private:
  EventPump& real_;
  double seconds_ = 0;
};

}  // namespace

std::string_view KindText(ElementKind kind) {
  switch (kind) {
    case ElementKind::Tone: return "tone";
    case ElementKind::Pause: return "pause";
    case ElementKind::Command: return "command";
    case ElementKind::Repeat: return "repeat";
  }
  return {};
}

bool TraceMelody(const Document& document, int32_t endlessRounds, const Services& services,
                 const TraceSink& sink) {
  SilentTime time(services.pump);
  NullSoundDevice sound;
  NullPlayerView view;
  Player player(document, {{services.log, time}, time, sound, view});
  player.outputType = OutputType::Midi;
  player.repeat.endlessRounds = std::max(1, endlessRounds);
  player.repeat.leaveCycles = true;
  const LogOperation operation(services.log);
  for (int32_t i = 0; i <= document.LastIndex(); ++i) {
    time.Reset();
    const int32_t back = player.PlayElement(document.At(i), i);
    if (!time.PumpEvents() || !sink({i, player.LastPlayed()})) return false;
    i -= back;
  }
  return true;
}

}  // namespace trillomat
