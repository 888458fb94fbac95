#include "formats/reading.h"

#include <algorithm>

#include "core/ascii.h"
#include "core/character_block.h"

namespace trillomat {
namespace {

constexpr size_t kLongestShown = 60;

constexpr bool EndsLine(char c) { return c == '\r' || c == '\n'; }

CharacterMask LineEndsIn(CharacterBlock block) { return block.Equal('\r') | block.Equal('\n'); }

// As a message shows it: on one line, cut when it is long.
std::string Shown(std::string_view text) {
  std::string shown = OnOneLine(text.substr(0, kLongestShown), '?');
  if (text.size() > kLongestShown) shown += "...";
  return shown;
}

size_t CountVisible(std::string_view text) {
  return text.size() - static_cast<size_t>(std::count_if(text.begin(), text.end(), IsWhitespace));
}

// The length of the beginning of `text` that ends with its `count`th character that is no whitespace.
size_t LengthOfVisible(std::string_view text, size_t count) {
  size_t length = 0;
  for (size_t i = 0; i < text.size() && count > 0; ++i) {
    if (IsWhitespace(text[i])) continue;
    length = i + 1;
    --count;
  }
  return length;
}

// Fills in line, column and text of `where`, a part of `bytes`.
void SetPlace(Refusal& refusal, std::string_view bytes, std::string_view where) {
  const auto offset = static_cast<size_t>(where.data() - bytes.data());
  const std::string_view before = bytes.substr(0, offset);
  size_t lines = 0;
  std::string_view last;
  for (std::string_view rest = before; !rest.empty(); ++lines) last = TakeLine(rest);
  const bool startsLine = before.empty() || EndsLine(before.back());
  refusal.line = lines + (startsLine ? 1 : 0);
  refusal.column = startsLine ? 1 : last.size() + 1;
  refusal.text = Shown(where.substr(0, where.find_first_of("\r\n")));
}

}  // namespace

void Reading::FailAtEnd() { throw ReadFault(ReadFault::Kind::Quiet, std::string(kProgramEnding)); }

ReadResult RunReader(std::string_view routine, std::string_view bytes, const ReadRecord& before,
                     const Services& services, const std::function<void(Reading&)>& body) {
  const LogOperation operation(services.log);
  ReadResult result{.elements = {}, .record = before, .refusal = {}};
  Reading reading(bytes, services, result);
  Refusal refusal;
  const auto logFault = [&] { services.log.WriteLog("Error in " + std::string(routine), 1); };
  try {
    body(reading);
    NotUnderstood& lost = result.notUnderstood;
    if (lost.count > 0) SetPlace(lost.first, bytes, reading.firstNotUnderstood);
    return result;
  } catch (const ReadFault& fault) {
    if (fault.kind == ReadFault::Kind::Logged) logFault();
    refusal.why = fault.what();
    refusal.advice = fault.advice;
    if (fault.where) SetPlace(refusal, bytes, *fault.where);
  } catch (const std::exception& fault) {
    logFault();
    refusal.why = fault.what();
  }
  result.elements = {};
  result.notUnderstood = {};
  result.refusal = std::move(refusal);
  return result;
}

void RequireCharacters(const Reading& reading, size_t fewest) {
  const std::string_view bytes = reading.bytes;
  size_t count = 0;
  for (size_t i = 0; i < bytes.size() && count < fewest; ++i) count += EndsLine(bytes[i]) ? 0 : 1;
  if (count == fewest) return;
  throw ReadFault(ReadFault::Kind::Quiet,
                  "the file holds fewer than " + std::to_string(fewest) + " characters", bytes);
}

std::string_view OriginOf(std::string_view part, std::string_view text, std::string_view original) {
  const auto partStart = static_cast<size_t>(part.data() - text.data());
  original.remove_prefix(LengthOfVisible(original, CountVisible(text.substr(0, partStart))));
  const size_t visible = CountVisible(part);
  if (visible > 0) original.remove_prefix(LengthOfVisible(original, 1) - 1);
  return original.substr(0, LengthOfVisible(original, visible));
}

std::string Quoted(std::string_view text) { return "\"" + Shown(text) + "\""; }

std::string_view TakeLine(std::string_view& rest) {
  const std::string_view line = rest.substr(0, FindCharacter(rest, LineEndsIn));
  rest.remove_prefix(line.size());
  rest.remove_prefix(rest.starts_with("\r\n") ? 2 : std::min<size_t>(1, rest.size()));
  return line;
}

std::vector<std::string_view> SplitLines(std::string_view bytes) {
  std::vector<std::string_view> lines;
  while (!bytes.empty()) lines.push_back(TakeLine(bytes));
  return lines;
}

std::string JoinLines(std::string_view bytes) { return WithoutCharacters(bytes, LineEndsIn); }

}  // namespace trillomat
