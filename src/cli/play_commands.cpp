#include <iostream>

#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "cli/output_check.h"
#include "cli/signals.h"
#include "core/silent_services.h"
#include "document/document.h"
#include "files/path_text.h"
#include "files/refusal_text.h"
#include "platform/system_parts.h"
#include "playback/play_controls.h"
#include "playback/play_trace.h"
#include "playback/render_wave.h"

namespace trillomat {
namespace {

OutputType OutputOf(std::string_view name) {
  if (name == "beep") return OutputType::Beep;
  return name == "midi" ? OutputType::Midi : OutputType::Wave;
}

// Tells the line of progress which element plays.
class ProgressView : public NullPlayerView {
 public:
  ProgressView(Progress* progress, const Document& document) : progress_(progress), document_(document) {}

  void ShowPlaying(const std::optional<NowPlaying>& now) override {
    if (progress_ == nullptr || !now) return;
    progress_->SayElement(static_cast<size_t>(now->index) + 1, document_.Size());
  }

 private:
  Progress* progress_;
  const Document& document_;
};

// How often events run while the melody is walked through; 0 where that is for very long.
size_t EventsOf(const Document& document, int32_t endlessRounds, Progress& progress) {
  SilentLog silent;
  constexpr size_t kMost = 10'000'000;
  const bool ended = TraceMelody(document, endlessRounds, {silent, progress},
                                 [&](const TraceStep& /*step*/) { return progress.Done() < kMost; });
  return ended ? progress.Done() : 0;
}

// While the melody plays, Ctrl-C ends the playing; before, it ends the program at once.
void Play(Document& document, OutputType output, const CommandServices& with) {
  const std::unique_ptr<EventPump> pump = MakeInterruptiblePump();
  Log& log = with.log;
  const Services services{log, *pump};
  const std::unique_ptr<Clock> clock = SystemClock();
  const std::unique_ptr<SoundDevice> sound = SystemSound(log);
  ProgressView view(with.progress, document);
  Player player(document, {services, *clock, *sound, view});
  player.outputType = output;
  NullPlayHost host;
  const PlaySettings settings;
  PlayControls(document, player, settings, host, services).Press(Control::Play);
}

void PrintTrace(const Document& document, int32_t endlessRounds, const Services& services) {
  TraceMelody(document, endlessRounds, services, [](const TraceStep& step) {
    std::cout << step.index << '\t' << KindText(step.played.kind) << '\t' << step.played.length << '\t'
              << step.played.frequency << '\n';
    return std::cout.good();
  });
  FlushStandardOutput();
}

}  // namespace

void PlayCommand(const Invocation& call, const CommandServices& services) {
  LoadedSong loaded = LoadSong(call, services);
  Document document(std::move(loaded.song), loaded.mode);
  services.Begin("playing", call.in);
  if (call.trace) {
    PrintTrace(document, call.endless, services);
  } else {
    Play(document, OutputOf(call.output), services);
  }
}

void RenderCommand(const Invocation& call, const CommandServices& services) {
  FormatOfPath(call.in, call.mode);
  CheckOutput(call, false, services.store);
  LoadedSong loaded = LoadSong(call, services);
  const Document document(std::move(loaded.song), loaded.mode);
  services.Begin("rendering", call.in);
  if (services.progress != nullptr) {
    // It is walked through twice, and measured quickly the first time.
    const size_t events = EventsOf(document, call.endless, *services.progress);
    services.Begin("rendering", call.in, events, events);
  }
  WriteOutput(call.out, services.store, [&](std::ostream& stream) {
    const RenderOptions options{.endlessRounds = call.endless, .anyLength = call.force};
    const auto failure = RenderWave(document, options, services, stream);
    // Of a stream that failed the output itself is to blame, and it knows why.
    if (!failure || !stream) return;
    throw Refused(Utf8OfPath(call.in) + ": " + SentenceText(failure->why) +
                  (failure->tooMuch ? " --force renders it all the same." : ""));
  });
}

}  // namespace trillomat
