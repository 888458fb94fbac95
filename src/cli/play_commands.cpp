#include <iostream>

#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "core/code_page.h"
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

void Play(Document& document, OutputType output, const Services& services) {
  const std::unique_ptr<Clock> clock = SystemClock();
  const std::unique_ptr<SoundDevice> sound = SystemSound(services.log);
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
  WriteOutput("-", "");
}

}  // namespace

void PlayCommand(const Invocation& call, const Services& services) {
  const FormatMode mode = FormatOfPath(call.in, call.mode);
  Document document(LoadSong(call.in, mode, services), mode);
  if (call.trace) {
    PrintTrace(document, call.endless, services);
  } else {
    Play(document, OutputOf(call.output), services);
  }
}

void RenderCommand(const Invocation& call, const Services& services) {
  const FormatMode mode = FormatOfPath(call.in, call.mode);
  const Document document(LoadSong(call.in, mode, services), mode);
  WriteOutput(call.out, [&](std::ostream& stream) {
    const auto why = RenderWave(document, call.endless, services, stream);
    if (why) throw Refused(Utf8OfPath(call.in) + ": " + ToUtf8(*why));
  });
}

}  // namespace trillomat
