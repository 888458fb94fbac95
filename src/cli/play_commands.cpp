#include <iostream>

#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "cli/output_check.h"
#include "cli/signals.h"
#include "document/document.h"
#include "files/path_text.h"
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

// While the melody plays, Ctrl-C ends the playing; before, it ends the program at once.
void Play(Document& document, OutputType output, Log& log) {
  const std::unique_ptr<EventPump> pump = MakeInterruptiblePump();
  const Services services{log, *pump};
  const std::unique_ptr<Clock> clock = SystemClock();
  const std::unique_ptr<SoundDevice> sound = SystemSound(log);
  NullPlayerView view;
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
  if (call.trace) {
    PrintTrace(document, call.endless, services);
  } else {
    Play(document, OutputOf(call.output), services.log);
  }
}

void RenderCommand(const Invocation& call, const CommandServices& services) {
  FormatOfPath(call.in, call.mode);
  CheckOutput(call, false, services.store);
  LoadedSong loaded = LoadSong(call, services);
  const Document document(std::move(loaded.song), loaded.mode);
  WriteOutput(call.out, services.store, [&](std::ostream& stream) {
    const RenderOptions options{.endlessRounds = call.endless, .anyLength = call.force};
    const auto failure = RenderWave(document, options, services, stream);
    // Of a stream that failed the output itself is to blame, and it knows why.
    if (!failure || !stream) return;
    throw Refused(Utf8OfPath(call.in) + ": " + failure->why +
                  (failure->tooMuch ? " --force renders it all the same." : ""));
  });
}

}  // namespace trillomat
