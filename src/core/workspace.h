// What the whole program shares: the composed melody and the two lists beside it, the song
// information, the mode and the codec. One object, owned by main() and handed on by reference.
#pragma once

#include <cstdint>
#include <string>

#include "core/event_pump.h"
#include "core/format_mode.h"
#include "core/log.h"
#include "core/melody.h"
#include "core/note_codec.h"
#include "core/song_header.h"

namespace trillomat {

struct Workspace {
  Workspace(Log& log_, EventPump& pump_) : log(log_), pump(pump_), codec(log_) {}

  Log& log;
  EventPump& pump;
  NoteCodec codec;

  Melody melody;            ///< what is being composed
  MelodyList ImportMelody;  ///< what readers and importers fill; taken over only on success
  MelodyList ExportMelody;  ///< the copy that writers and exports work on
  SongHeader header;
  RtttlDefaults rtttl;
  FormatMode iNoteMode = FormatMode::IMelody;
  int16_t ExportOctaveShift = 0;  ///< octaves that the last export was moved up
  std::string refusal;            ///< plain words on why the last read, import or export failed
};

}  // namespace trillomat
