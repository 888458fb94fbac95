#include "formats/formats.h"

#include <array>

#include "formats/format_functions.h"

namespace trillomat {
namespace {

struct Format {
  FormatMode mode;
  std::string_view reader;  ///< its name in the log
  void (*read)(Reading& reading);
  std::string_view writer;  ///< its name in the log
  Result<std::string> (*write)(const Song& song, const Services& services);
};

constexpr std::array<Format, kFormatModes> kFormats{
    {{FormatMode::IMelody, "bReadFile_IMelody", ReadIMelody, "bSaveFile_IMelody", WriteIMelody},
     {FormatMode::EMelody, "bReadFile_EMelody", ReadEMelody, "bSaveFile_EMelody", WriteEMelody},
     {FormatMode::Rtttl, "bReadFile_RTTTL", ReadRtttl, "bSaveFile_RTTTL", WriteRtttl},
     {FormatMode::Melody, "bReadFile_Melody", ReadMelody, "bSaveFile_Melody", WriteMelody}}};
static_assert(!kFormats.back().writer.empty(), "a mode has no row");

const Format& FormatOf(FormatMode mode) { return kFormats.at(static_cast<size_t>(mode)); }

}  // namespace

ReadResult Read(std::string_view bytes, FormatMode mode, const ReadRecord& before, const Services& services) {
  const Format& format = FormatOf(mode);
  return RunReader(format.reader, bytes, before, services, format.read);
}

Result<std::string> Write(const Song& song, FormatMode mode, const Services& services) {
  try {
    return FormatOf(mode).write(song, services);
  } catch (const std::exception& fault) {
    LogWriterFault(mode, services.log);
    return Refusal{.why = fault.what()};
  }
}

void LogReaderFault(FormatMode mode, Log& log) {
  log.WriteLog("Error in " + std::string(FormatOf(mode).reader), 1);
}

void LogWriterFault(FormatMode mode, Log& log) {
  log.WriteLog("Error in " + std::string(FormatOf(mode).writer), 1);
}

}  // namespace trillomat
