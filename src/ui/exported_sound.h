// What "Export sound..." writes.
#pragma once

#include "files/sound_export.h"

namespace trillomat {

/// The bytes of a WAV file, or with the extension "mid" of a MIDI file, of a song as it is played; endless
/// blocks come once. Refused when that is more than an hour of sound, or repeats itself without end.
Result<SoundBytes> ExportedSound(const Document& song, std::string_view extension, const Services& services);

}  // namespace trillomat
