#include "formats/rtttl_notes.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/byte_map.h"
#include "core/codec.h"
#include "core/number_text.h"
#include "core/token_decoder.h"
#include "formats/token_ends.h"

namespace trillomat {
namespace {

RtttlParts Split(std::string_view bytes) {
  const size_t first = bytes.find(':');
  const size_t second = first == std::string_view::npos ? first : bytes.find(':', first + 1);
  if (second == std::string_view::npos) {
    throw ReadFault(ReadFault::Kind::Logged, "the text holds fewer than two \":\"", bytes, kRtttlAdvice);
  }
  return {bytes.substr(0, second), bytes.substr(second + 1)};
}

// Reads the header of a text into `keys`.
class Header {
 public:
  Header(std::string_view original, RtttlKeys& keys, Log& log)
      : original_(original), compact_(original), text_(compact_.View()), keys_(keys), log_(log) {}

  void Read() {
    const size_t colon = text_.find(':');
    keys_.name = text_.substr(0, colon);
    for (size_t i = colon + 1; i < text_.size(); ++i) ReadKey(text_.substr(i));
  }

 private:
  // Reads the key and value that `text` begins with, if it begins with a key.
  void ReadKey(std::string_view text) {
    if (text.size() < 2 || text[1] != '=') return;
    const std::string_view key = text.substr(0, 2);
    if (key == "s=") {
      keys_.style = text.substr(2, 1);
    } else if (key == "b=") {
      keys_.bpm = Fitting(text, RoundToInt32(LeadingNumber(Digits(text))));
    } else if (key == "l=") {
      keys_.loop = Fitting(text, RoundToInt16(LeadingNumber(Digits(text))));
    } else if (key == "d=") {
      keys_.defaults.duration = DecodeDuration(Digits(text), FormatMode::Rtttl, log_);
    } else if (key == "o=") {
      keys_.defaults.octave = Fitting(text, RoundToInt16(LeadingNumber(Digits(text)) - 2));
    }
  }

  // The digits behind the key; a run that reaches the end of the header is logged, and used all the same.
  std::string_view Digits(std::string_view text) {
    const std::string_view digits = FrontDigits(text);
    if (digits.size() + 2 == text.size()) log_.WriteLog("Critical Error in GetDefault RTTTL", 1);
    return digits;
  }

  static std::string_view FrontDigits(std::string_view text) {
    text.remove_prefix(2);
    const auto* const end = std::find_if_not(text.begin(), text.end(), IsDigit);
    return text.substr(0, static_cast<size_t>(end - text.begin()));
  }

  template <typename Int>
  Int Fitting(std::string_view text, std::optional<Int> number) const {
    if (number) return *number;
    const std::string_view field = text.substr(0, 2 + FrontDigits(text).size());
    throw ReadFault(ReadFault::Kind::Logged, "a number of the header is out of range",
                    OriginOf(field, text_, original_), kRtttlAdvice);
  }

  std::string_view original_;
  CompactText compact_;
  std::string_view text_;
  RtttlKeys& keys_;
  Log& log_;
};

void TakeKeys(const RtttlKeys& keys, SongInfo& info) {
  info.bpm = keys.bpm;
  info.name = keys.name;
  info.style = keys.style;
  info.loop = keys.loop;
  info.version.clear();
  info.format.clear();
  info.composer.clear();
}

constexpr char NoteCharacter(char c) {
  const char lower = ToLower(c);
  if (lower == 'p' || lower == '-') return 'r';
  return lower == 'h' ? 'b' : lower;
}

constexpr ByteMap kNoteText(NoteCharacter, [](char c) { return !IsWhitespace(c); });

struct Commas {
  CharacterMask operator()(CharacterBlock block) const { return block.Equal(','); }
};

// Tokens that Decode refuses are dropped.
void TakeNotes(std::string_view notes, Reading& reading) {
  notes = notes.substr(0, static_cast<size_t>(Trimmed(notes).end() - notes.begin()));
  const size_t tokens = CountCharacters(notes, Commas()) + 1;
  reading.elements.reserve(tokens);
  const Services& services = reading.services;
  TokenDecoder decode(FormatMode::Rtttl, reading.record.rtttl.defaults, kNoteText, tokens, services);
  TokenEnds<Commas> ends(notes);
  for (size_t begin = 0; begin < notes.size();) {
    const size_t end = std::min(ends.Next(), notes.size());
    const CutToken token(notes, begin, end);
    begin = end + 1;
    if (end == notes.size()) {
      // Escaped, because "??-" was a trigraph once and compilers warn of it.
      services.log.WriteLog("Last Note?\?-->" + RtttlNoteText(token.Text()), 1);
    }
    const DecodedToken& decoded = decode(token);
    reading.Count(decoded.understood, [&] { return Trimmed(token.Text()); });
    if (decoded.refused) {
      reading.LetEventsRun();
    } else {
      reading.Append(decoded.element);
    }
  }
}

}  // namespace

std::string RtttlNoteText(std::string_view notes) { return kNoteText(notes); }

RtttlParts TakeRtttlText(Reading& reading) {
  const RtttlParts parts = Split(reading.bytes);
  Header(parts.header, reading.record.rtttl, reading.services.log).Read();
  TakeKeys(reading.record.rtttl, reading.record.info);
  TakeNotes(parts.notes, reading);
  return parts;
}

}  // namespace trillomat
