#include <bit>
#include <iostream>
#include <utility>

#include "cli/byte_files.h"
#include "cli/commands.h"
#include "cli/extract.h"
#include "cli/failure.h"
#include "cli/many_files.h"
#include "cli/melody_source.h"
#include "cli/midi_files.h"
#include "cli/output_check.h"
#include "cli/tidying.h"
#include "composer/song_info.h"
#include "composer/transpose.h"
#include "core/code_page.h"
#include "core/silent_services.h"
#include "exchange/export.h"
#include "exchange/import.h"
#include "exchange/phone_fit.h"
#include "files/path_text.h"
#include "files/refusal_text.h"

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

void ConvertOne(const Invocation& call, const CommandServices& services) {
  if (HasMidiName(call.in) || HasMidiName(call.out)) return ConvertMidi(call, services);
  if (call.track) throw WrongUsage("--track is for MIDI files that are read");
  const FormatMode from = FormatOfPath(call.in, call.mode);
  const FormatMode to = FormatOfPath(call.out, call.mode);
  const RtttlSpelling spelling = SpellingOf(call, to == FormatMode::Rtttl);
  CheckOutput(call, from == to, services.store);
  SaveSong(LoadSong(call, services).song, call.out, to, services, spelling);
}

// The extension of the files that many become.
std::string_view ExtensionOfTo(const Invocation& call) {
  if (call.to == kMidiName) return "mid";
  const std::optional<FormatMode> mode = call.to.empty() ? call.mode : ModeOfName(call.to);
  if (!mode) throw WrongUsage("--to-folder needs --to imelody, emelody, rtttl, melody or midi");
  return LimitsOf(*mode).extension;
}

// The first element that does not fit.
std::string MisfitExtract(const PhoneFit& fit, const LoadedSong& loaded) {
  if (!fit.first) return {};
  if (fit.first->loss == Loss::NotUnderstood && !loaded.notUnderstood.empty()) return loaded.notUnderstood;
  return ExtractOf(loaded.song.elements, fit.first->index, loaded.mode, MisfitText(*fit.first));
}

void TellLosses(const std::string& name, const PhoneFit& fit, const LoadedSong& loaded) {
  const std::string losses = LossText(fit);
  if (!losses.empty()) std::cerr << name + ": " + losses + '\n' + MisfitExtract(fit, loaded);
}

// The Result text of an export, after what there is to say of it.
std::string ExportOne(const Invocation& call, Phone phone, const CommandServices& services) {
  const RtttlSpelling spelling = SpellingOf(call, phone == Phone::Rtttl);
  const LoadedSong loaded = LoadSong(call, services, call.report ? Losses::Reported : Losses::Warned);
  const Song& song = loaded.song;
  const std::string in = Utf8OfPath(call.in);
  if (song.elements.empty()) {
    services.log.WriteLog("Nothing to export", 2);
    throw Refused(in + ": the melody has no elements");
  }
  services.Begin("exporting", call.in, song.elements.size());
  Result<std::string> text = Export(phone, song, services, spelling);
  if (!text) {
    const PhoneFit fit = FitOf(phone, song, spelling);
    throw Refused(in + ": " + ToUtf8(text.Why().why), fit.inRange ? "" : MisfitExtract(fit, loaded));
  }
  if (phone == Phone::Rtttl) WarnOfName(call.in, song.info, spelling);
  if (call.report) TellLosses(in, FitOf(phone, song, spelling), loaded);
  return std::move(*text);
}

// Finds the element that keeps the others from being moved: the last of the shortest beginning that is not.
Refused NotMoved(const Invocation& call, const ElementList& elements, FormatMode mode) {
  SilentLog silent;
  const auto isMoved = [&](size_t size) {
    ElementList beginning(elements.begin(), elements.begin() + static_cast<ptrdiff_t>(size));
    return Transposed(std::move(beginning), call.octaves, mode, silent).has_value();
  };
  size_t moved = 0;
  for (size_t step = std::bit_floor(elements.size()); step > 0; step /= 2) {
    if (moved + step < elements.size() && isMoved(moved + step)) moved += step;
  }
  return Refused(
      Utf8OfPath(call.in) + ": not moved, and nothing written",
      ExtractOf(elements, moved, mode,
                "element " + std::to_string(moved + 1) + " would leave the octaves of its format"));
}

}  // namespace

void ConvertCommand(const Invocation& call, const CommandServices& services) {
  if (call.toFolder.empty()) return ConvertOne(call, services);
  const std::string_view extension = ExtensionOfTo(call);
  SpellingOf(call, ModeOfExtension(extension) == FormatMode::Rtttl);
  ForEachInput(call, extension, services, [&](const Invocation& one) { ConvertOne(one, services); });
}

void ImportCommand(const Invocation& call, const CommandServices& services) {
  if (call.from == "midi") return ImportMidi(call, services);
  if (call.track) throw WrongUsage("--track is for MIDI files that are read");
  const FormatMode to = FormatOfPath(call.out, call.mode);
  CheckOutput(call, ModeOfName(call.from) == to, services.store);
  const std::string in = Utf8OfPath(call.in);
  services.Begin("reading", call.in);
  const std::string bytes = ReadInput(call.in, services.store);
  const std::string text =
      call.tidy ? TidyAloud(bytes, ModeOfName(call.from).value(), in) : PastedText(bytes);
  Imported imported = Import(PastedFormatOf(call.from).value(), text, call.adaptT68i, {}, services);
  ReadResult& read = imported.read;
  if (!read) throw RefusedText(in, text, *read.refusal, call.tidy && text != bytes);
  if (!imported.notAdapted.empty()) {
    std::cerr << "trillomat-cli: " << in << ": not adapted: " << ToUtf8(imported.notAdapted) << '\n';
  }
  WarnOfNotUnderstood(call.in, text, read.notUnderstood);
  NormaliseStyleAndVolume(read.record.info);
  SaveSong({std::move(read.elements), std::move(read.record.info)}, call.out, to, services);
}

void ExportCommand(const Invocation& call, const CommandServices& services) {
  const Phone phone = PhoneOfOption(call.to).value();
  if (call.toFolder.empty()) return WriteOutput("-", services.store, ExportOne(call, phone, services));
  const bool isRtttl = phone == Phone::Rtttl;
  SpellingOf(call, isRtttl);
  const std::string_view extension = isRtttl ? LimitsOf(FormatMode::Rtttl).extension : "txt";
  ForEachInput(call, extension, services, [&](const Invocation& one) {
    CheckOutput(one, false, services.store);
    WriteOutput(one.out, services.store, ExportOne(one, phone, services));
  });
}

void TransposeCommand(const Invocation& call, const CommandServices& services) {
  const FormatMode from = FormatOfPath(call.in, call.mode);
  const FormatMode to = FormatOfPath(call.out, call.mode);
  CheckOutput(call, from == to, services.store);
  Song song = LoadSong(call, services).song;
  auto moved = Transposed(song.elements, call.octaves, from, services.log);
  if (!moved && !song.elements.empty()) throw NotMoved(call, song.elements, from);
  if (moved) song.elements = *std::move(moved);
  SaveSong(song, call.out, to, services);
}

}  // namespace trillomat
