#include "formats/letter_notes.h"

#include "core/ascii.h"
#include "core/byte_map.h"
#include "core/token_decoder.h"
#include "formats/token_ends.h"

namespace trillomat {
namespace {

constexpr std::string_view kAdvice = "Each note ends with its letter, a to h, or p for a pause";

constexpr char PauseAndGermanB(char c) {
  switch (c) {
    case 'p':
    case '-': return 'r';
    case 'P': return 'R';
    case 'h': return 'b';
    case 'H': return 'B';
    default: return c;
  }
}

// The characters with the codes 65 to 121 end a token: so "z" does not, but the signs between the upper- and
// lower-case letters do. "-" stands for the letter of a pause.
CharacterMask ToneLettersIn(CharacterBlock block) { return block.Between('A', 'y') | block.Equal('-'); }

// A token ends with its first letter, or with the dot behind that. A letter with a ")" behind it is part of
// the flat sign "(b)" and ends nothing.
struct ToneEnds {
  CharacterMask operator()(CharacterBlock block) const {
    const CharacterBlock behind = block.Shifted(1);
    return (ToneLettersIn(block) & ~(behind.Equal(')') | behind.Equal('.'))) |
           (block.Equal('.') & ToneLettersIn(block.Shifted(-1)));
  }
};

}  // namespace

void SetUnknownSong(SongInfo& info) {
  info = {.name = "Unknown",
          .composer = "",
          .bpm = 200,
          .style = "",
          .volume = "",
          .version = "",
          .format = "",
          .loop = info.loop};
}

MarkedNotes FindMarkedNotes(std::string_view text) {
  const size_t start = text.find(kNotesStart);
  if (start == std::string_view::npos) return {};
  MarkedNotes marked{.start = text.substr(start, kNotesStart.size()), .notes = {}};
  text.remove_prefix(start + kNotesStart.size());
  const size_t end = text.find(kNotesEnd);
  if (end != std::string_view::npos) marked.notes = text.substr(0, end);
  return marked;
}

ElementTexts TokensOf(const ElementList& elements, FormatMode mode, Log& log) {
  const auto make = [mode](const Element& element, Log& heard) {
    return SupportedText(element, mode, {}, heard);
  };
  return {elements.size(), make, log};
}

void TakeLetterNotes(std::string_view notes, std::string_view text, FormatMode mode, Reading& reading) {
  static constexpr ByteMap kSpelling(PauseAndGermanB, [](char /*c*/) { return true; });
  notes = Trimmed(notes);
  const CompactText compact(notes);
  const std::string_view tokens = compact.View();
  if (tokens.empty()) {
    throw ReadFault(ReadFault::Kind::Logged, "the text holds no notes", OriginOf(notes, text, reading.bytes),
                    kAdvice);
  }
  const auto origin = [&](std::string_view part) {
    return OriginOf(part, tokens, OriginOf(notes, text, reading.bytes));
  };
  // Each token has one letter, and perhaps that of a flat sign, "(b)".
  const size_t flats = CountCharacters(tokens, [](CharacterBlock block) { return block.Equal(')'); });
  const size_t most = std::max(CountCharacters(tokens, ToneLettersIn), flats) - flats;
  reading.elements.reserve(most);
  TokenDecoder decode(mode, {}, kSpelling, most, reading.services);
  TokenEnds<ToneEnds> ends(tokens);
  for (size_t begin = 0; begin < tokens.size();) {
    const size_t last = ends.Next();
    if (last == ends.kNone) {
      reading.services.log.WriteLog("Critical error when converting!!!!", 1);
      throw ReadFault(ReadFault::Kind::Quiet, "the notes end without a tone letter",
                      origin(tokens.substr(begin)), kAdvice);
    }
    const CutToken token(tokens, begin, last + 1);
    begin = last + 1;
    const DecodedToken& decoded = decode(token);
    reading.Count(decoded.understood, [&] { return origin(token.Text()); });
    reading.Append(decoded.element);
  }
}

}  // namespace trillomat
