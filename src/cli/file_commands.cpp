#include <iostream>
#include <utility>

#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "cli/midi_files.h"
#include "cli/output_check.h"
#include "composer/song_info.h"
#include "composer/transpose.h"
#include "core/code_page.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "files/path_text.h"

namespace trillomat {
namespace {

// A pasted text as the program's own: UTF-8, with or without its mark, or else Windows-1252.
std::string PastedText(std::string bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (auto text = FromUtf8(bytes.starts_with(kByteOrderMark) ? std::string_view(bytes).substr(3) : bytes)) {
    return *std::move(text);
  }
  return bytes;
}

}  // namespace

void ConvertCommand(const Invocation& call, const CommandServices& services) {
  if (IsMidiPath(call.in) || IsMidiPath(call.out)) return ConvertMidi(call, services);
  if (call.track) throw WrongUsage("--track is for MIDI files that are read");
  const FormatMode from = FormatOfPath(call.in, call.mode);
  const FormatMode to = FormatOfPath(call.out, call.mode);
  const RtttlSpelling spelling = SpellingOf(call, to == FormatMode::Rtttl);
  CheckOutput(call, from == to, services.store);
  SaveSong(LoadSong(call.in, from, services), call.out, to, services, spelling);
}

void ImportCommand(const Invocation& call, const CommandServices& services) {
  if (call.from == "midi") return ImportMidi(call, services);
  if (call.track) throw WrongUsage("--track is for MIDI files that are read");
  const FormatMode to = FormatOfPath(call.out, call.mode);
  CheckOutput(call, ModeOfName(call.from) == to, services.store);
  const std::string in = Utf8OfPath(call.in);
  const std::string text = PastedText(ReadInput(call.in, services.store));
  Imported imported = Import(PastedFormatOf(call.from).value(), text, call.adaptT68i, {}, services);
  ReadResult& read = imported.read;
  if (!read) throw Refused(in + ": " + ToUtf8(read.refusal->why));
  if (!imported.notAdapted.empty()) {
    std::cerr << "trillomat-cli: not adapted: " << ToUtf8(imported.notAdapted) << '\n';
  }
  NormaliseStyleAndVolume(read.record.info);
  SaveSong({std::move(read.elements), std::move(read.record.info)}, call.out, to, services);
}

void ExportCommand(const Invocation& call, const CommandServices& services) {
  const Phone phone = PhoneOfOption(call.to).value();
  const RtttlSpelling spelling = SpellingOf(call, phone == Phone::Rtttl);
  const Song song = LoadSong(call.in, FormatOfPath(call.in, call.mode), services);
  const std::string in = Utf8OfPath(call.in);
  if (song.elements.empty()) {
    services.log.WriteLog("Nothing to export", 2);
    throw Refused(in + ": the melody has no elements");
  }
  const auto text = Export(phone, song, services, spelling);
  if (!text) throw Refused(in + ": " + ToUtf8(text.Why().why));
  if (phone == Phone::Rtttl) WarnOfName(song.info, spelling);
  WriteOutput("-", services.store, *text);
}

void TransposeCommand(const Invocation& call, const CommandServices& services) {
  const FormatMode from = FormatOfPath(call.in, call.mode);
  const FormatMode to = FormatOfPath(call.out, call.mode);
  CheckOutput(call, from == to, services.store);
  Song song = LoadSong(call.in, from, services);
  auto moved = Transposed(song.elements, call.octaves, from, services.log);
  if (!moved && !song.elements.empty()) {
    throw Refused(Utf8OfPath(call.in) + ": not moved, and nothing written");
  }
  if (moved) song.elements = *std::move(moved);
  SaveSong(song, call.out, to, services);
}

}  // namespace trillomat
