#include "formats/imelody_tokens.h"

#include <array>

#include "formats/reading.h"

namespace trillomat {
namespace {

// Commands that are told by their first three letters.
struct NamedCommand {
  std::string_view start;
  std::string_view whole;
  size_t otherLength;  // of a token that begins with `start`, but not with `whole`
};
constexpr std::array<NamedCommand, 3> kNamedCommands{
    {{"led", "ledon", 6}, {"bac", "backon", 7}, {"vib", "vibeon", 7}}};

constexpr bool IsMark(char c) { return c == '.' || c == ':' || c == ';'; }

}  // namespace

IMelodyTokens::IMelodyTokens(std::string_view original)
    : original_(original), text_(WithoutWhitespace(original) + std::string(kSentinel)), ends_(text_) {}

size_t IMelodyTokens::MostTokens() const {
  // Each token has a length, an "o" or a bracket; the digits behind a "*" are no lengths.
  const auto ends = [](CharacterBlock block) {
    return NoteEnds::DigitsIn(block) | block.Equal('o') | block.Equal('(');
  };
  const size_t octaves = CountCharacters(text_, [](CharacterBlock block) { return block.Equal('*'); });
  return std::max(CountCharacters(text_, ends), octaves) - octaves + 1;
}

std::string_view IMelodyTokens::Origin(std::string_view token) const {
  return OriginOf(token, text_, original_);
}

size_t IMelodyTokens::TokenLength(std::string_view rest) const {
  for (const NamedCommand& command : kNamedCommands) {
    if (!rest.starts_with(command.start)) continue;
    return rest.starts_with(command.whole) ? command.whole.size() : command.otherLength;
  }
  switch (rest.empty() ? '\0' : rest.front()) {
    case 'V': return rest.size() > 2 && IsDigit(rest[2]) ? 3 : 2;
    case '(': return 1;
    case '@': return RepeatEndLength(rest);
    default: return NoteLength(rest);
  }
}

size_t IMelodyTokens::RepeatEndLength(std::string_view rest) const {
  const size_t end = rest.find(')');
  if (end == std::string_view::npos) Fail("a repeat end has no \")\"", rest, "A repeat ends like \"@2)\"");
  return end + 1;
}

// As NoteEnds tells it, for a token that may begin in the middle of a note; it is looked for only so far.
size_t IMelodyTokens::NoteLength(std::string_view rest) const {
  constexpr size_t kPositions = 32767;
  const std::string_view scanned = rest.substr(0, kPositions);
  for (size_t i = 0; i < scanned.size(); ++i) {
    if (!IsDigit(rest[i]) || (i > 0 && rest[i - 1] == '*')) continue;
    return i + 1 < rest.size() && IsMark(rest[i + 1]) ? i + 2 : i + 1;
  }
  Fail("no note with a length follows", rest,
       "A note is a letter and a digit from 0 to 5, like \"c2\" or \"*5#f3\"");
}

void IMelodyTokens::Fail(const std::string& why, std::string_view rest, std::string_view advice) const {
  const std::string_view melody = std::string_view(text_).substr(0, text_.size() - kSentinel.size());
  const std::string_view left = melody.substr(std::min(melody.size(), text_.size() - rest.size()));
  throw ReadFault(ReadFault::Kind::Logged, why, OriginOf(left, melody, original_), advice);
}

}  // namespace trillomat
