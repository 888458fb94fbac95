// The Melody file ("mel"): the bare note text of the phones' Melody editor on one line, ended by CR LF. It
// carries no song information.
//
//   +C(b)dpe
#include "formats/format_functions.h"
#include "formats/letter_notes.h"

namespace trillomat {

void ReadMelody(Reading& reading) {
  RequireCharacters(reading, 2);
  SetUnknownSong(reading.record.info);
  TakeLetterNotes(reading.bytes, reading.bytes, FormatMode::Melody, reading);
}

Result<std::string> WriteMelody(const Song& song, const Services& services) {
  TextWriter text(song.elements.size() * kTypicalLetterToken);
  ElementTexts tokens = TokensOf(song.elements, FormatMode::Melody, services.log);
  for (const Element& element : song.elements) {
    tokens.Write(element, text);
    if (!services.pump.PumpEvents()) return Refusal{.why = std::string(kProgramEnding)};
  }
  text.Add("\r\n");
  return text.Take();
}

}  // namespace trillomat
