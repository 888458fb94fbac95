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
#include <span>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/number_text.h"
#include "formats/format_functions.h"

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

// It stands behind the melody while tokens are cut, and a damaged last token may reach into it.
constexpr std::string_view kSentinel = "--END--";

// Commands that are known by their first three letters.
struct NamedCommand {
  std::string_view start;
  std::string_view whole;
  size_t otherLength;  // of the token that is not `whole`
};
constexpr std::array<NamedCommand, 3> kNamedCommands{
    {{"led", "ledon", 6}, {"bac", "backon", 7}, {"vib", "vibeon", 7}}};

// What is left of a melody while its tokens are cut, and where the melody came from.
class MelodyRest {
 public:
  /// `original` holds the melody as it stands in the file, over one or more lines.
  explicit MelodyRest(std::string_view original)
      : original_(original), text_(WithoutLayout(original) + std::string(kSentinel)), rest_(text_) {}

  bool IsEmpty() const { return rest_.size() == kSentinel.size(); }

  std::string_view TakeToken() {
    const std::string_view token = rest_.substr(0, TokenLength());
    rest_.remove_prefix(token.size());
    return token;
  }

  /// Where a token stands in the file.
  std::string_view Origin(std::string_view token) const { return OriginOf(token, text_, original_); }

 private:
  size_t TokenLength() const {
    for (const NamedCommand& command : kNamedCommands) {
      if (!rest_.starts_with(command.start)) continue;
      return rest_.starts_with(command.whole) ? command.whole.size() : command.otherLength;
    }
    switch (rest_.empty() ? '\0' : rest_.front()) {
      case 'V': return rest_.size() > 2 && IsDigit(rest_[2]) ? 3 : 2;
      case '(': return 1;
      case '@': return RepeatEndLength();
      default: return NoteLength();
    }
  }

  size_t RepeatEndLength() const {
    const size_t end = rest_.find(')');
    if (end == std::string_view::npos) Fail("a repeat end has no \")\"", "A repeat ends like \"@2)\"");
    return end + 1;
  }

  // Up to the duration digit, the first that is not the octave behind a "*", and the extra mark after it.
  size_t NoteLength() const {
    constexpr size_t kPositions = 32767;
    const std::string_view scanned = rest_.substr(0, kPositions);
    for (size_t i = 0; i < scanned.size(); ++i) {
      if (!IsDigit(rest_[i]) || (i > 0 && rest_[i - 1] == '*')) continue;
      const std::string_view mark = rest_.substr(i + 1, 1);
      return mark == "." || mark == ":" || mark == ";" ? i + 2 : i + 1;
    }
    Fail("no note with a length follows",
         "A note is a letter and a digit from 0 to 5, like \"c2\" or \"*5#f3\"");
  }

  [[noreturn]] void Fail(const std::string& why, std::string_view advice) const {
    const std::string_view melody = std::string_view(text_).substr(0, text_.size() - kSentinel.size());
    const std::string_view left = melody.substr(std::min(melody.size(), text_.size() - rest_.size()));
    throw ReadFault(Kind::Logged, why, OriginOf(left, melody, original_), advice);
  }

  std::string_view original_;
  std::string text_;
  std::string_view rest_;
};

void TakeMelody(std::string_view original, Reading& reading) {
  reading.elements.clear();
  reading.notUnderstood = {};
  MelodyRest rest(original);
  // The end is looked for behind a token, so a melody without one fails.
  do {
    const std::string_view token = rest.TakeToken();
    Element element = Decode(token, FormatMode::IMelody, {}, reading.services.log);
    reading.Count(element, [&] { return rest.Origin(token); });
    reading.Append(std::move(element));
  } while (!rest.IsEmpty());
}

// Reads the melody that starts with `value` and goes on in `following`; gives how many lines of those
// it took, up to the one that holds "END".
size_t TakeMelodyLines(std::string_view value, std::span<const std::string_view> following,
                       Reading& reading) {
  const auto end = std::find_if(following.begin(), following.end(),
                                [](std::string_view line) { return Contains(line, "END"); });
  if (end == following.end()) {
    throw ReadFault(Kind::Logged, "no END line follows the MELODY line", value,
                    "A melody ends with the line \"END:IMELODY\"");
  }
  const std::string_view last = end == following.begin() ? value : *(end - 1);
  TakeMelody({value.data(), static_cast<size_t>(last.data() + last.size() - value.data())}, reading);
  return static_cast<size_t>(end - following.begin());
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

// The element as the file has it: octave 4 is the format's default and is left out.
std::string FileToken(const Element& element, Log& log) {
  if (!element.Command().empty()) return std::string(element.Command());
  std::string token = Encode(element, FormatMode::IMelody, {}, log).text;
  if (element.octave == 4 && !Contains(token, "r")) token.erase(0, 2);
  return token;
}

}  // namespace

void ReadIMelody(Reading& reading) {
  const std::vector<std::string_view> lines = SplitLines(reading.bytes);
  if (lines.empty()) throw ReadFault(Kind::Logged, "the file is empty");
  for (size_t next = 0; next < lines.size();) {
    const std::string_view line = lines[next];
    ++next;
    const size_t colon = line.find(':');
    if (colon == std::string_view::npos) {
      throw ReadFault(Kind::Quiet, "the line has no \":\"", line,
                      "Each line begins with a tag and \":\", like \"NAME:Tune\"");
    }
    const std::string_view tag = line.substr(0, colon);
    const std::string_view value = line.substr(colon + 1);
    if (tag == "MELODY") {
      next += TakeMelodyLines(value, std::span(lines).subspan(next), reading);
    } else {
      TakeField(tag, value, reading);
    }
  }
}

Result<std::string> WriteIMelody(const Song& song, const Services& services) {
  constexpr size_t kWrapBehind = 60;
  const SongInfo& info = song.info;
  std::string text = "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:" + info.name +
                     "\r\nCOMPOSER:" + info.composer + "\r\nBEAT:" + DecimalText(info.bpm) +
                     "\r\nSTYLE:" + info.style + "\r\nVOLUME:" + info.volume + "\r\nMELODY:";
  size_t length = 0;  // of the physical line; "MELODY:" does not count, a continued line's blank does
  for (const Element& element : song.elements) {
    const std::string token = FileToken(element, services.log);
    text += token;
    length += token.size();
    if (length > kWrapBehind) {
      text += "\r\n ";
      length = 1;
    }
    if (!services.pump.PumpEvents()) return Refusal{.why = std::string(kProgramEnding)};
  }
  return text + "\r\nEND:IMELODY\r\n";
}

}  // namespace trillomat
