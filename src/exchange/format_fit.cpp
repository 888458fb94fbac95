#include "exchange/format_fit.h"

#include <algorithm>

#include "core/codec.h"
#include "core/silent_services.h"
#include "core/tone.h"
#include "formats/formats.h"

namespace trillomat {
namespace {

bool IsSame(const Element& a, const Element& b) {
  if (!IsUnderstood(a) || a.Command() != b.Command()) return false;
  if (!a.Command().empty()) return true;
  if (a.duration != b.duration || a.extra != b.extra || IsPause(a) != IsPause(b)) return false;
  return IsPause(a) || (a.octave == b.octave && SemitoneOf(a.Note()) == SemitoneOf(b.Note()));
}

}  // namespace

bool FormatHolds(FormatMode mode, const Song& song) {
  SilentServices silent;
  const Result<std::string> file = Write(song, mode, silent.services);
  if (!file) return false;
  const ReadResult read = Read(*file, mode, {}, silent.services);
  return read && std::equal(song.elements.begin(), song.elements.end(), read.elements.begin(),
                            read.elements.end(), IsSame);
}

}  // namespace trillomat
