// The iMelody file ("imy"), the exchange format of the iMelody 1.2 specification:
//
//   BEGIN:IMELODY              every line ends with CR LF
//   VERSION:1.2
//   FORMAT:CLASS1.0
//   NAME:...
//   COMPOSER:...
//   BEAT:120                   quarter notes per minute
//   STYLE:S0
//   VOLUME:V10
//   MELODY:c2*5#d3.r2ledon(... tokens without a separator; a continued line starts with a blank
//   END:IMELODY
//
// Lines are read in any order; the melody goes on up to a line that holds "END".
#include <algorithm>
#include <array>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/element_texts.h"
#include "core/number_text.h"
#include "core/token_decoder.h"
#include "formats/format_functions.h"
#include "formats/imelody_tokens.h"

namespace trillomat {
namespace {

using Kind = ReadFault::Kind;

struct TextTag {
  std::string_view tag;
  std::string SongInfo::*field;
};
constexpr std::array<TextTag, 6> kTextTags{{{"VERSION", &SongInfo::version},
                                            {"FORMAT", &SongInfo::format},
                                            {"NAME", &SongInfo::name},
                                            {"COMPOSER", &SongInfo::composer},
                                            {"STYLE", &SongInfo::style},
                                            {"VOLUME", &SongInfo::volume}}};

void TakeMelody(std::string_view original, Reading& reading) {
  reading.elements.clear();
  reading.notUnderstood = {};
  IMelodyTokens rest(original);
  const size_t most = rest.MostTokens();
  reading.elements.reserve(most);
  static constexpr ByteMap kSpelling([](char c) { return c; }, [](char /*c*/) { return true; });
  TokenDecoder decode(FormatMode::IMelody, {}, kSpelling, most, reading.services);
  // Whether there is more is asked behind each token, so a melody without any token fails.
  do {
    const CutToken token = rest.TakeToken();
    const DecodedToken& decoded = decode(token);
    reading.Count(decoded.understood, [&] { return rest.Origin(token.Text()); });
    reading.Append(decoded.element);
  } while (!rest.IsEmpty());
}

// Reads the melody that begins with `value`, the rest of its first line, and goes on in the lines of `rest`
// up to the one that holds "END". Takes those lines, but not that one, from `rest`.
void TakeMelodyLines(std::string_view value, std::string_view& rest, Reading& reading) {
  std::string_view last = value;
  std::string_view following = rest;
  while (!following.empty()) {
    const std::string_view line = TakeLine(following);
    if (Contains(line, "END")) {
      TakeMelody({value.data(), static_cast<size_t>(last.data() + last.size() - value.data())}, reading);
      return;
    }
    last = line;
    rest = following;
  }
  throw ReadFault(Kind::Logged, "no END line follows the MELODY line", value,
                  "A melody ends with the line \"END:IMELODY\"");
}

void TakeField(std::string_view tag, std::string_view value, Reading& reading) {
  const auto* const known = std::find_if(kTextTags.begin(), kTextTags.end(),
                                         [tag](const TextTag& each) { return each.tag == tag; });
  if (known != kTextTags.end()) {
    reading.record.info.*known->field = value;
  } else if (tag == "BEAT") {
    const auto bpm = RoundToInt32(LeadingNumber(value));
    if (!bpm) {
      throw ReadFault(Kind::Logged, "the beat is out of range", value,
                      "Beats per minute are expected, like \"BEAT:120\"");
    }
    reading.record.info.bpm = *bpm;
  } else if (tag != "END") {
    reading.services.log.WriteLog("Found an other tag - unknown-->" + std::string(tag), 1);
  }
}

// The element as a file has it: octave 4 is the default of the format and is left out.
std::string FileToken(const Element& element, Log& log) {
  if (!element.Command().empty()) return std::string(element.Command());
  std::string token = Encode(element, FormatMode::IMelody, {}, log).text;
  if (element.octave == 4 && !Contains(token, "r")) token.erase(0, 2);
  return token;
}

}  // namespace

void ReadIMelody(Reading& reading) {
  if (reading.bytes.empty()) throw ReadFault(Kind::Logged, "the file is empty");
  for (std::string_view rest = reading.bytes; !rest.empty();) {
    const std::string_view line = TakeLine(rest);
    const size_t colon = line.find(':');
    if (colon == std::string_view::npos) {
      throw ReadFault(Kind::Quiet, "the line has no \":\"", line,
                      "Each line begins with a tag and \":\", like \"NAME:Tune\"");
    }
    const std::string_view tag = line.substr(0, colon);
    const std::string_view value = line.substr(colon + 1);
    if (tag == "MELODY") {
      TakeMelodyLines(value, rest, reading);
    } else {
      TakeField(tag, value, reading);
    }
  }
}

Result<std::string> WriteIMelody(const Song& song, const Services& services) {
  constexpr size_t kWrapBehind = 60;
  constexpr size_t kTypicalToken = 6;  // with its share of the line ends
  const SongInfo& info = song.info;
  TextWriter text(song.elements.size() * kTypicalToken);
  text.Add("BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:" + info.name +
           "\r\nCOMPOSER:" + info.composer + "\r\nBEAT:" + DecimalText(info.bpm) + "\r\nSTYLE:" + info.style +
           "\r\nVOLUME:" + info.volume + "\r\nMELODY:");
  ElementTexts tokens(song.elements.size(), FileToken, services.log);
  size_t length = 0;  // of the line in the file; "MELODY:" does not count, the blank of a continued line does
  for (const Element& element : song.elements) {
    length += tokens.Write(element, text);
    if (length > kWrapBehind) {
      text.Add("\r\n ");
      length = 1;
    }
    if (!services.pump.PumpEvents()) return Refusal{.why = std::string(kProgramEnding)};
  }
  text.Add("\r\nEND:IMELODY\r\n");
  return text.Take();
}

}  // namespace trillomat
