#include "exchange/recognise.h"

#include <algorithm>

#include "core/ascii.h"
#include "exchange/rtttl_shape.h"
#include "formats/reading.h"

namespace trillomat {
namespace {

bool StartsTune(std::string_view line) {
  const RtttlShape shape = RtttlShapeOf(line);
  return StartsWithRtttlKey(shape.keys);
}

// A line of a tune that goes on: notes and what stands between them.
bool GoesOn(std::string_view line) {
  constexpr std::string_view kNotes = "0123456789abcdefghpABCDEFGHP#_&.-,; \t\"";
  return Contains(line, ",") && line.find_first_not_of(kNotes) == std::string_view::npos;
}

std::string_view Joined(std::string_view first, std::string_view last) {
  return {first.data(), static_cast<size_t>(last.data() + last.size() - first.data())};
}

// Letters of tones, pauses, and the signs beside them: c d (b)e +f p.
bool IsLetterNotes(std::string_view text) {
  constexpr std::string_view kNotes = "abcdefghpABCDEFGHP#+().- \r\n\t";
  return text.find_first_not_of(kNotes) == std::string_view::npos && WithoutWhitespace(text).size() >= 2;
}

}  // namespace

std::vector<std::string_view> TunesIn(std::string_view text) {
  std::vector<std::string_view> tunes;
  bool goesOn = false;
  for (const std::string_view line : SplitLines(text)) {
    if (StartsTune(line)) {
      tunes.push_back(line);
      goesOn = true;
    } else if (goesOn && (GoesOn(line) || tunes.back().ends_with(','))) {
      tunes.back() = Joined(tunes.back(), line);
    } else if (!WithoutWhitespace(line).empty()) {
      goesOn = false;
    }
  }
  return tunes;
}

std::optional<FormatMode> RecognisedFormat(std::string_view text) {
  const std::string lowered = Lowered(text);
  if (Contains(lowered, "begin:imelody")) return FormatMode::IMelody;
  if (Contains(lowered, "begin:emelody") || Contains(lowered, "end:emelody")) return FormatMode::EMelody;
  if (!TunesIn(text).empty()) return FormatMode::Rtttl;
  const size_t melody = lowered.find("melody:");
  if (melody == std::string::npos) {
    return IsLetterNotes(text) ? std::optional(FormatMode::Melody) : std::nullopt;
  }
  // The lengths of iMelody are digits, those of E-Melody the case of letters.
  const bool digits =
      std::any_of(lowered.begin() + static_cast<std::ptrdiff_t>(melody), lowered.end(), IsDigit);
  return digits ? FormatMode::IMelody : FormatMode::EMelody;
}

}  // namespace trillomat
