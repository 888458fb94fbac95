#include "ui/exported_sound.h"

#include <sstream>
#include <utility>

#include "exchange/midi_write.h"
#include "playback/played_elements.h"
#include "playback/render_wave.h"

namespace trillomat {
namespace {

Result<SoundBytes> MidiOf(const Document& song, const Services& services) {
  auto played = PlayedElements(song, 1, services);
  if (!played) return played.Why();
  if (played->empty()) return Refusal{.why = "there is nothing to hear"};
  WrittenMidi written = WriteMidi({*std::move(played), song.Info()});
  return SoundBytes{std::move(written.bytes), std::move(written.changes)};
}

}  // namespace

Result<SoundBytes> ExportedSound(const Document& song, std::string_view extension, const Services& services) {
  if (extension == "mid") return MidiOf(song, services);
  std::ostringstream stream;
  if (const auto failure = RenderWave(song, {}, services, stream)) return Refusal{failure->why};
  return SoundBytes{std::move(stream).str()};
}

}  // namespace trillomat
