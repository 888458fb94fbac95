#include "cli/melody_source.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include "cli/byte_files.h"
#include "cli/extract.h"
#include "cli/failure.h"
#include "cli/tidying.h"
#include "composer/song_info.h"
#include "core/code_page.h"
#include "files/path_text.h"
#include "files/refusal_text.h"
#include "formats/formats.h"
#include "formats/rtttl_text.h"

namespace trillomat {
namespace {

// The log has the reader's line where the file itself cannot be read.
std::string BytesOf(const std::filesystem::path& file, FormatMode mode, const CommandServices& services) {
  try {
    return ReadInput(file, services.store);
  } catch (const Refused&) {
    if (!IsStandardStream(file)) LogReaderFault(mode, services.log);
    throw;
  }
}

}  // namespace

std::optional<FormatMode> ModeOfName(std::string_view name) {
  const auto* const found = std::find(kModeNames.begin(), kModeNames.end(), name);
  if (found == kModeNames.end()) return std::nullopt;
  return kModeLimits.at(static_cast<size_t>(found - kModeNames.begin())).mode;
}

std::optional<FormatMode> ModeOfPath(const std::filesystem::path& file, std::optional<FormatMode> told) {
  std::string extension = Utf8OfPath(file.extension());
  if (!extension.empty()) extension.erase(0, 1);
  const auto mode = ModeOfExtension(extension);
  return mode ? mode : told;
}

FormatMode FormatOfPath(const std::filesystem::path& file, std::optional<FormatMode> told) {
  if (const auto mode = ModeOfPath(file, told)) return *mode;
  if (IsStandardStream(file)) throw WrongUsage("\"-\" needs --mode imelody, emelody, rtttl or melody");
  throw WrongUsage(
      Utf8OfPath(file) +
      ": its name should end in .imy, .emy, .rtx or .mel; for another name, tell its format with "
      "--mode imelody, emelody, rtttl or melody");
}

LoadedSong LoadSong(const Invocation& call, const CommandServices& services, Losses losses) {
  FormatMode mode = FormatOfPath(call.in, call.mode);
  const std::string name = Utf8OfPath(call.in);
  services.Begin("reading", call.in);
  std::string text = BytesOf(call.in, mode, services);
  bool isTidied = false;
  if (call.tidy) {
    mode = LookOf(text, mode, name);
    services.Begin("tidying", call.in);
    std::string tidied = TidyAloud(text, mode, name);
    isTidied = tidied != text;
    text = std::move(tidied);
    services.Begin("reading", call.in);
  }
  ReadResult read = Read(text, mode, {}, services);
  if (!read) throw RefusedText(name, text, *read.refusal, isTidied);
  NormaliseStyleAndVolume(read.record.info);
  LoadedSong loaded{{std::move(read.elements), std::move(read.record.info)}, mode};
  const NotUnderstood& lost = read.notUnderstood;
  if (losses == Losses::Warned) WarnOfNotUnderstood(call.in, text, lost);
  if (losses == Losses::Reported && lost.count > 0) {
    const Refusal first = InCharacters(lost.first, text);
    loaded.notUnderstood = ExtractOf(
        text, lost.first, "line " + std::to_string(first.line) + ", column " + std::to_string(first.column));
  }
  return loaded;
}

void WarnOfNotUnderstood(const std::filesystem::path& file, std::string_view text, NotUnderstood lost) {
  if (lost.count == 0) return;
  const std::string extract = ExtractOf(text, lost.first);
  lost.first = InCharacters(std::move(lost.first), text);
  std::cerr << "trillomat-cli: " + Utf8OfPath(file) + ": warning: " + NotUnderstoodText(lost) + '\n' +
                   extract;
}

void SaveSong(const Song& song, const std::filesystem::path& file, FormatMode mode,
              const CommandServices& services, RtttlSpelling spelling) {
  services.Begin("writing", file, song.elements.size());
  if (mode == FormatMode::Rtttl) WarnOfName(file, song.info, spelling);
  const auto bytes = spelling == RtttlSpelling::Classic
                         ? Write(song, mode, services)
                         : Result<std::string>(RtttlFile(song, spelling, services.log));
  if (!bytes) throw Refused("cannot write " + Utf8OfPath(file) + ": " + ToUtf8(bytes.Why().why));
  WriteOutput(file, services.store, *bytes);
}

RtttlSpelling SpellingOf(const Invocation& call, bool isRtttl) {
  if (call.spelling && !isRtttl) throw WrongUsage("--spelling is for RTTTL alone");
  return call.spelling.value_or(RtttlSpelling::Classic);
}

void WarnOfName(const std::filesystem::path& file, const SongInfo& info, RtttlSpelling spelling) {
  const std::string warning = RtttlNameWarning(info, spelling);
  if (warning.empty()) return;
  std::cerr << "trillomat-cli: " << Utf8OfPath(file) << ": warning: " << ToUtf8(warning) << '\n';
}

}  // namespace trillomat
