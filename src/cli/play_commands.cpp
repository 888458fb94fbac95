#include <iostream>

#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "core/code_page.h"
#include "platform/system_parts.h"
#include "playback/beat.h"
#include "playback/play_controls.h"
#include "playback/play_trace.h"
#include "playback/render_wave.h"

namespace trillomat {
namespace {

OutputType OutputOf(std::string_view name) {
  if (name == "beep") return OutputType::Beep;
  return name == "midi" ? OutputType::Midi : OutputType::Wave;
}

// Loads a melody and marks what its mode cannot express, as the text view of the window does before an
// element is played.
void LoadForPlaying(Workspace& ws, const Invocation& call) {
  LoadMelody(ws, call.in, FormatOfPath(call.in, call.mode));
  SilentLog silent;
  const NoteCodec codec(silent);
  for (int32_t i = 0; i <= ws.melody.UpperBound(); ++i) {
    MelodyNote note = ws.melody.At(i);
    codec.EncodeNote(note, ws.iNoteMode);
    ws.melody.MarkNotSupported(i, note.NotSupported);
  }
}

void Play(Workspace& ws, OutputType output) {
  const std::unique_ptr<Clock> clock = SystemClock();
  const std::unique_ptr<SoundDevice> sound = SystemSound(ws.log);
  NullPlayerView view;
  Player player(ws, *clock, *sound, view);
  player.outputType = output;
  NullPlayHost host(UpdateBeatLength(ws.header));
  const PlaySettings settings;
  PlayControls controls(ws, player, settings, host);
  controls.cmdControl_Click(static_cast<int>(Control::Play));
}

void PrintTrace(Workspace& ws, int32_t endlessRounds) {
  TraceMelody(ws, UpdateBeatLength(ws.header), endlessRounds, [](const TraceStep& step) {
    std::cout << step.index << '\t' << KindText(step.played.kind) << '\t' << step.played.length << '\t'
              << step.played.frequency << '\n';
    return std::cout.good();
  });
  WriteOutput("-", "");
}

}  // namespace

void PlayCommand(Workspace& ws, const Invocation& call) {
  LoadForPlaying(ws, call);
  if (call.trace) {
    PrintTrace(ws, call.endless);
  } else {
    Play(ws, OutputOf(call.output));
  }
}

void RenderCommand(Workspace& ws, const Invocation& call) {
  LoadForPlaying(ws, call);
  const int32_t beat = UpdateBeatLength(ws.header);
  WriteOutput(call.out, [&](std::ostream& stream) {
    if (!RenderWave(ws, beat, call.endless, stream)) {
      throw Refused(Utf8OfPath(call.in) + ": " + ToUtf8(ws.refusal));
    }
  });
}

}  // namespace trillomat
