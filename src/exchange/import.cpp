#include "exchange/import.h"

#include "core/ascii.h"
#include "exchange/export.h"
#include "formats/letter_notes.h"
#include "formats/rtttl_notes.h"

namespace trillomat {
namespace {

using Kind = ReadFault::Kind;

void TakePastedRtttl(Reading& reading) {
  const RtttlParts parts = TakeRtttlText(reading);
  if (!reading.elements.empty()) return;
  throw ReadFault(Kind::Logged, "there is no note behind the second \":\"", parts.notes, kRtttlAdvice);
}

void TakePastedEMelody(Reading& reading) {
  SetUnknownSong(reading.record.info);
  const CompactText compact(reading.bytes);
  const std::string_view text = compact.View();
  const MarkedNotes marked = FindMarkedNotes(text);
  if (marked.start && !marked.notes) {
    throw ReadFault(Kind::Logged, "there is no \"END:EMELODY\" behind \"MELODY:\"",
                    OriginOf(*marked.start, text, reading.bytes), kMarkersAdvice);
  }
  TakeLetterNotes(marked.notes.value_or(text), text, FormatMode::EMelody, reading);
}

void TakePastedMelody(Reading& reading) {
  SetUnknownSong(reading.record.info);
  TakeLetterNotes(reading.bytes, reading.bytes, FormatMode::Melody, reading);
}

struct Converter {
  PastedFormat format;
  FormatMode mode;
  std::string_view option;   ///< its name on the command line
  std::string_view routine;  ///< its name in the log
  void (*take)(Reading& reading);
};

// In the order of PastedFormat.
constexpr std::array<Converter, 3> kConverters{
    {{PastedFormat::Rtttl, FormatMode::Rtttl, "rtttl", "Convert_RTTTL", TakePastedRtttl},
     {PastedFormat::EMelody, FormatMode::EMelody, "emelody", "bConvert_EMelody", TakePastedEMelody},
     {PastedFormat::Melody, FormatMode::Melody, "melody", "bConvert_Melody", TakePastedMelody}}};

// Why the elements could not be moved; empty where they were.
std::string AdaptForT68i(ElementList& elements, Log& log) {
  const ExportTarget& phone = TargetOf(Phone::T68i);
  if (AdaptRange(elements, phone.range, log)) return {};
  log.WriteLog("Failed to make the adaption", 1);
  return RangeRefusal(elements, phone.range, phone.name);
}

}  // namespace

const std::array<ImportOption, 5> kImportOptions{{{"Nokia RTTL", PastedFormat::Rtttl},
                                                  {"E-Melody", PastedFormat::EMelody},
                                                  {"Melody", PastedFormat::Melody},
                                                  {"Option2", std::nullopt},
                                                  {"Option3", std::nullopt}}};

Imported Import(PastedFormat format, std::string_view text, bool adapt, const ReadRecord& before,
                const Services& services) {
  const LogOperation operation(services.log);
  const Converter& converter = kConverters.at(static_cast<size_t>(format));
  Imported imported{.read = RunReader(converter.routine, text, before, services, converter.take),
                    .notAdapted = {}};
  if (!imported.read) {
    services.log.WriteLog("Failed to make the import", 1);
  } else if (adapt) {
    imported.notAdapted = AdaptForT68i(imported.read.elements, services.log);
  }
  return imported;
}

std::optional<PastedFormat> PastedFormatOf(std::string_view option) {
  for (const Converter& converter : kConverters) {
    if (converter.option == option) return converter.format;
  }
  return std::nullopt;
}

std::optional<PastedFormat> PastedFormatOf(FormatMode mode) {
  for (const Converter& converter : kConverters) {
    if (converter.mode == mode) return converter.format;
  }
  return std::nullopt;
}

FormatMode ModeOf(PastedFormat format) { return kConverters.at(static_cast<size_t>(format)).mode; }

void ImportChoice::Update(Options options, std::string_view text) {
  const std::optional<PastedFormat> format = Selected(options).format;
  if (format == PastedFormat::Rtttl) canImport_ = Contains(text, ":") && Contains(text, ",");
  if (format == PastedFormat::EMelody) canImport_ = text.size() >= 2;
}

const ImportOption& ImportChoice::Selected(Options options) {
  size_t selected = 0;
  for (size_t i = 0; i < options.size(); ++i) {
    if (options[i]) selected = i;
  }
  return kImportOptions.at(selected);
}

}  // namespace trillomat
