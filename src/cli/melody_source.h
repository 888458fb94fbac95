// Songs from and to the paths of the command line.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "cli/commands.h"
#include "core/song.h"
#include "formats/formats.h"

namespace trillomat {

/// The modes as the command line calls them, in the order of FormatMode.
inline constexpr std::array<const char*, kFormatModes> kModeNames{"imelody", "emelody", "rtttl", "melody"};
static_assert(kModeNames.back() != nullptr, "a mode has no name");

/// What is none of them, and can be read and written all the same.
inline constexpr const char* kMidiName = "midi";

std::optional<FormatMode> ModeOfName(std::string_view name);

/// The format of `file` by its extension, `told` where that is none of the four.
std::optional<FormatMode> ModeOfPath(const std::filesystem::path& file, std::optional<FormatMode> told);

/// The format of `file` by its extension, or `told` (--mode) for "-" and for an extension that is none
/// of the four. Throws WrongUsage when neither tells.
FormatMode FormatOfPath(const std::filesystem::path& file, std::optional<FormatMode> told);

/// A song, and the format that it was read in.
struct LoadedSong {
  Song song;
  FormatMode mode;
  std::string notUnderstood =
      {};  ///< with Losses::Reported: the first element that is not, marked in the text
};

/// How the user learns of elements that were not understood: by a warning on standard error, by what the
/// command prints, or by its own report.
enum class Losses { Warned, Shown, Reported };

/// The song of `call.in` as the window program would open it: style and volume have passed through the panel;
/// with --tidy its text has been tidied. Throws Refused when it is refused, WrongUsage when nothing tells its
/// format.
LoadedSong LoadSong(const Invocation& call, const CommandServices& services, Losses losses = Losses::Warned);

/// Says on standard error that not all elements of `file` were understood, if they were not, and marks the
/// first in `text`, in which its place counts bytes.
void WarnOfNotUnderstood(const std::filesystem::path& file, std::string_view text, NotUnderstood lost);

/// Saves the song as `file` in the format `mode`, RTTTL in that spelling; a name that RTTTL cannot hold is
/// said before. Throws Refused when it cannot be written; an existing file is then as it was.
void SaveSong(const Song& song, const std::filesystem::path& file, FormatMode mode,
              const CommandServices& services, RtttlSpelling spelling = RtttlSpelling::Classic);

/// The spelling that the user asked for. Throws WrongUsage where that was asked for what is not RTTTL.
RtttlSpelling SpellingOf(const Invocation& call, bool isRtttl);

/// Says on standard error what comes of a name that RTTTL cannot hold, of a song that becomes `file` or
/// comes from it.
void WarnOfName(const std::filesystem::path& file, const SongInfo& info, RtttlSpelling spelling);

}  // namespace trillomat
