// Songs as they can be composed, through every writer and back.
#include "core/silent_services.h"
#include "files/recovery_text.h"
#include "fuzz/bodies.h"
#include "fuzz/checks.h"
#include "support/read_back.h"

namespace trillomat {
namespace {

// A song of which nothing is left is refused, as is a Melody text of one character.
ElementList CheckReadBack(const Song& song, FormatMode mode, const Services& services) {
  const Result<std::string> bytes = Write(song, mode, services);
  Require(bool{bytes}, "every song can be written");
  ElementList expected = ReadBack(song, mode);
  if (mode == FormatMode::Melody && bytes->size() < 4) expected.clear();
  const ReadResult read = Read(*bytes, mode, {}, services);
  Require(read.elements == expected, "what the format can hold comes back");
  Require(read.notUnderstood.count == 0, "and is understood");
  return expected;
}

void FuzzSongs(std::string_view input) {
  SilentServices fuzz;
  const Song song = SongOfBytes(input);
  if (song.elements.empty()) return;
  for (const ModeLimits& limits : kModeLimits) {
    Song back{.elements = CheckReadBack(song, limits.mode, fuzz.services), .info = song.info};
    if (!back.elements.empty()) CheckReadBack(back, limits.mode, fuzz.services);
  }
  CheckTokens(song.elements, {}, fuzz.log);
  CheckExports(song, fuzz.services);
  const auto kept = ReadRecovery(WriteRecovery(song, FormatMode::IMelody, "a", 1));
  Require(kept && kept->song == song, "a song that is kept comes back as it was");
}

constexpr auto kBodies = std::to_array<FuzzBody>({{"songs", FuzzSongs}});

}  // namespace

constinit const std::span<const FuzzBody> kSongBodies{kBodies};

}  // namespace trillomat
