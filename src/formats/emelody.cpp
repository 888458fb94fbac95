// The EMelody file ("emy"), the note text of the phones' own E-Melody editor between two markers. It
// carries no song information.
//
//   BEGIN:EMELODY              every line ends with CR LF
//   VERSION:1.0
//   MELODY:+C.(b)dPe           tokens without a separator or wrapping
//   END:EMELODY
//
// What stands outside the markers is not read. Line ends may stand anywhere, even in the markers.
#include "formats/format_functions.h"
#include "formats/letter_notes.h"

namespace trillomat {

void ReadEMelody(Reading& reading) {
  using Kind = ReadFault::Kind;
  RequireCharacters(reading, 2);
  SetUnknownSong(reading.record.info);
  const std::string text = JoinLines(reading.bytes);
  const MarkedNotes marked = FindMarkedNotes(text);
  if (!marked.start) {
    throw ReadFault(Kind::Quiet, "the file holds no \"MELODY:\"", reading.bytes, kMarkersAdvice);
  }
  if (!marked.notes) {
    throw ReadFault(Kind::Quiet, "no \"END:EMELODY\" follows \"MELODY:\"",
                    OriginOf(*marked.start, text, reading.bytes), kMarkersAdvice);
  }
  TakeLetterNotes(*marked.notes, text, FormatMode::EMelody, reading);
}

Result<std::string> WriteEMelody(const Song& song, const Services& services) {
  TextWriter text(song.elements.size() * kTypicalLetterToken);
  text.Add("BEGIN:EMELODY\r\nVERSION:1.0\r\nMELODY:");
  ElementTexts tokens = TokensOf(song.elements, FormatMode::EMelody, services.log);
  for (const Element& element : song.elements) tokens.Write(element, text);
  text.Add("\r\nEND:EMELODY\r\n");
  return text.Take();
}

}  // namespace trillomat
