#include "fuzz/bodies.h"

#include <algorithm>
#include <array>

#include "core/codec.h"
#include "core/silent_services.h"
#include "exchange/import.h"
#include "exchange/midi_read.h"
#include "exchange/midi_write.h"
#include "exchange/recognise.h"
#include "exchange/tidy.h"
#include "formats/formats.h"
#include "fuzz/checks.h"

namespace trillomat {
namespace {

template <FormatMode mode>
void FuzzReader(std::string_view input) {
  SilentServices fuzz;
  const ReadResult read = Read(input, mode, {}, fuzz.services);
  const ReadResult again = Read(input, mode, {}, fuzz.services);
  Require(again.elements == read.elements && again.record == read.record, "nothing is remembered");
  CheckResult(input, read, fuzz.services);
}

template <PastedFormat format>
void FuzzImport(std::string_view input) {
  SilentServices fuzz;
  Imported imported = Import(format, input, input.size() % 2 == 1, {}, fuzz.services);
  Require(!imported.read || !imported.read.elements.empty(), "an import gives elements");
  CheckExports({.elements = imported.read.elements, .info = imported.read.record.info}, fuzz.services);
  CheckResult(input, std::move(imported.read), fuzz.services);
}

// Through the one format that has commands.
void FuzzExports(std::string_view input) {
  SilentServices fuzz;
  ReadResult read = Read(input, FormatMode::IMelody, {}, fuzz.services);
  CheckExports({.elements = std::move(read.elements), .info = std::move(read.record.info)}, fuzz.services);
}

// Tidying tells all that it changes, leaves nothing to do, and keeps what was understood.
template <FormatMode mode>
void CheckTidying(std::string_view input, const Services& services) {
  const Tidied tidied = Tidy(input, mode);
  Require(tidied.changes.empty() == (tidied.text == input), "what changes is told");
  for (const TidyChange& change : tidied.changes) {
    Require(change.line > 0 && change.column > 0 && !change.why.empty(), "where and why");
  }
  const bool ascii = std::all_of(input.begin(), input.end(), [](char c) { return c > 0; });
  if (ascii) Require(Tidy(tidied.text, mode).changes.empty(), "nothing is left to do");
  const ReadResult read = Read(input, mode, {}, services);
  if (read.elements.empty() || read.notUnderstood.count > 0) return;
  Require(Read(tidied.text, mode, {}, services).elements == read.elements, "what was understood stays");
}

void FuzzTidying(std::string_view input) {
  SilentServices fuzz;
  CheckTidying<FormatMode::IMelody>(input, fuzz.services);
  CheckTidying<FormatMode::EMelody>(input, fuzz.services);
  CheckTidying<FormatMode::Rtttl>(input, fuzz.services);
  CheckTidying<FormatMode::Melody>(input, fuzz.services);
  for (const std::string_view tune : TunesIn(input)) {
    Require(tune.data() >= input.data() && tune.data() + tune.size() <= input.data() + input.size(),
            "tunes are parts of the text");
  }
  RecognisedFormat(input);
}

// What is read is a melody of the mode, and comes back when it is written and read again.
void CheckMidi(std::string_view bytes, FormatMode mode, const Services& services) {
  const MidiRead midi = ReadMidiFile(bytes, mode, {}, {}, services);
  if (midi.read.refusal) {
    Require(midi.read.elements.empty() && !midi.read.refusal->why.empty(), "a refused read says why");
    return;
  }
  const ElementList& elements = midi.read.elements;
  Require(!elements.empty() && std::all_of(elements.begin(), elements.end(),
                                           [mode](const Element& each) { return Supports(each, mode); }),
          "what is read is of the mode");
  const SongInfo& info = midi.read.record.info;
  const WrittenMidi written = WriteMidi({elements, info});
  const MidiRead again = ReadMidiFile(written.bytes, mode, {}, {}, services);
  Require(again.read.elements.size() == elements.size() && again.read.record.info.bpm == info.bpm,
          "what was read comes back");
  // A melody that was moved up for its lowest tones may have others that no key of MIDI sounds.
  if (!written.changes.empty()) return;
  Require(again.read.elements == elements && again.dropped.empty(), "what was read comes back as it was");
}

// As a file, and as the events of the one track of a file.
void FuzzMidi(std::string_view input) {
  constexpr std::string_view kHead{"MThd\0\0\0\6\0\0\0\1\0\x60MTrk", 18};
  SilentServices fuzz;
  std::string file(kHead);
  for (int shift = 24; shift >= 0; shift -= 8) file += static_cast<char>(input.size() >> shift);
  file += input;
  for (const ModeLimits& limits : kModeLimits) {
    CheckMidi(input, limits.mode, fuzz.services);
    CheckMidi(file, limits.mode, fuzz.services);
  }
}

// An input for the codec: six bytes of numbers, a note or command up to a line feed, and a token.
class CodecInput {
 public:
  explicit CodecInput(std::string_view bytes) : rest_(bytes) {}

  unsigned TakeByte() {
    const unsigned byte = rest_.empty() ? 0 : static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(std::min<size_t>(rest_.size(), 1));
    return byte;
  }
  int16_t TakeOctave() { return static_cast<signed char>(TakeByte()); }
  /// A known duration, or one that no format has.
  float TakeDuration() {
    const unsigned byte = TakeByte();
    return byte % 8 < kDurations.size() ? kDurations.at(byte % 8) : static_cast<float>(byte) / 100;
  }
  std::string_view TakeLine() {
    const std::string_view line = rest_.substr(0, rest_.find('\n'));
    rest_.remove_prefix(std::min(rest_.size(), line.size() + 1));
    return line;
  }
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

void FuzzCodec(std::string_view input) {
  SilentServices fuzz;
  CodecInput data(input);
  const unsigned kind = data.TakeByte();
  const FormatMode mode = kModeLimits.at(kind % kModeLimits.size()).mode;
  TokenDefaults defaults;
  defaults.octave = data.TakeOctave();
  defaults.duration = data.TakeDuration();
  Element element;
  element.octave = data.TakeOctave();
  element.duration = data.TakeDuration();
  element.extra = kDurationExtras.at(data.TakeByte() % kDurationExtras.size());
  if (kind / 4 % 2 == 0) {
    element.SetNote(data.TakeLine());
  } else {
    element.SetCommand(data.TakeLine());
  }
  const ElementList elements{element, Decode(data.Rest(), mode, defaults, fuzz.log)};
  CheckTokens(elements, defaults, fuzz.log);
  CheckWriting({.elements = elements, .info = {}}, fuzz.services);
}

constexpr auto kBodies = std::to_array<FuzzBody>({
    {"codec", FuzzCodec},
    {"imelody", FuzzReader<FormatMode::IMelody>},
    {"emelody", FuzzReader<FormatMode::EMelody>},
    {"rtttl", FuzzReader<FormatMode::Rtttl>},
    {"melody", FuzzReader<FormatMode::Melody>},
    {"import_rtttl", FuzzImport<PastedFormat::Rtttl>},
    {"import_emelody", FuzzImport<PastedFormat::EMelody>},
    {"import_melody", FuzzImport<PastedFormat::Melody>},
    {"export_keys", FuzzExports},
    {"tidy", FuzzTidying, 150},
    {"midi", FuzzMidi},
});

}  // namespace

constinit const std::span<const FuzzBody> kTextBodies{kBodies};

}  // namespace trillomat
