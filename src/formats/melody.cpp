// The Melody file ("mel"): the bare note text of the phones' Melody editor on one line, ended by CR LF. It
// carries no song information.
//
//   +C(b)dpe
#include "core/codec.h"
#include "formats/format_functions.h"
#include "formats/letter_notes.h"

namespace trillomat {

void ReadMelody(Reading& reading) {
  RequireCharacters(reading, 2);
  SetUnknownSong(reading.record.info);
  TakeLetterNotes(reading.bytes, reading.bytes, FormatMode::Melody, reading);
}

Result<std::string> WriteMelody(const Song& song, const Services& services) {
  std::string text;
  for (const Element& element : song.elements) {
    text += SupportedText(element, FormatMode::Melody, {}, services.log);
    if (!services.pump.PumpEvents()) return Refusal{.why = std::string(kProgramEnding)};
  }
  return text + "\r\n";
}

}  // namespace trillomat
