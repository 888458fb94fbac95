// Decode: one token into an element, a function for each notation.
#include <algorithm>
#include <array>

#include "core/ascii.h"
#include "core/codec.h"

namespace trillomat {
namespace {

// The character at `at`, or nothing behind the end.
std::string_view CharAt(std::string_view text, size_t at) {
  return at < text.size() ? text.substr(at, 1) : std::string_view();
}

bool IsCommandText(std::string_view text) {
  if (text.find_first_of("V()") != std::string_view::npos) return true;
  return Contains(text, "o") && (Contains(text, "on") || Contains(text, "off"));
}

// A token without its marks, and which of them it held.
template <char... kMarks>
class Unmarked {
 public:
  explicit Unmarked(std::string_view token) {
    for (const char c : token) {
      const auto* const mark = std::find(kAll.begin(), kAll.end(), c);
      if (mark == kAll.end()) {
        text_ += c;
      } else {
        found_.at(static_cast<size_t>(mark - kAll.begin())) = true;
      }
    }
  }

  std::string& Text() { return text_; }
  // The last of the marks from `begin` up to `end` that it held, as a text; empty for none.
  std::string_view Last(size_t begin, size_t end) const {
    while (end-- > begin) {
      if (found_.at(end)) return {&kAll.at(end), 1};
    }
    return {};
  }

 private:
  static constexpr std::array<char, sizeof...(kMarks)> kAll{kMarks...};

  std::string text_;
  std::array<bool, sizeof...(kMarks)> found_{};
};

// The accidental of E-Melody and Melody: a sharp in front, or the flat sign "(b)".
std::string TakeAccidental(std::string& text) {
  if (RemoveAll(text, "#")) return "#";
  return RemoveAll(text, "(b)") ? "&" : "";
}

int16_t OctaveWithoutMark(std::string_view text) {
  return text.find_first_of("pP") != std::string_view::npos ? kNoOctave : int16_t{3};
}

// The characters before "0" and the digits: what a duration number in front of a tone is made of.
size_t CountBelowColon(std::string_view text) {
  size_t count = 0;
  while (count < text.size() && static_cast<unsigned char>(text[count]) < ':') ++count;
  return count;
}

Element DecodeIMelody(std::string_view token, Log& log) {
  Unmarked<'#', '&', '.', ':', ';'> unmarked(token);
  const std::string& text = unmarked.Text();
  if (IsCommandText(text)) return Command(text);

  Element element;
  const bool marked = text.starts_with('*');
  const bool pause = !marked && Contains(text, "r");
  const std::string_view second = CharAt(text, 1);
  if (!marked && !pause && (second.empty() || !IsDigit(second.front()))) {
    log.WriteLog("Could not decode the note....-->" + text, 1);
    return element;
  }
  if (marked) {
    element.octave =
        second.empty() || !IsDigit(second.front()) ? int16_t{0} : static_cast<int16_t>(second.front() - '0');
  } else {
    element.octave = pause ? kNoOctave : int16_t{4};
  }
  element.duration = DecodeDuration(marked ? CharAt(text, 3) : second, FormatMode::IMelody, log);
  element.extra = DecodeDurationExtra(unmarked.Last(2, 5), FormatMode::IMelody);
  std::string note(pause ? std::string_view() : unmarked.Last(0, 2));
  element.SetNote(note += CharAt(text, marked ? 2 : 0));
  return element;
}

Element DecodeEMelody(std::string_view token, Log& log) {
  Unmarked<'.'> unmarked(token);
  std::string& text = unmarked.Text();
  Element element;
  if (RemoveAll(text, "++")) {
    element.octave = 5;
  } else {
    element.octave = RemoveAll(text, "+") ? int16_t{4} : OctaveWithoutMark(text);
  }
  const std::string accidental = TakeAccidental(text);
  element.duration = DecodeDuration(text + std::string(unmarked.Last(0, 1)), FormatMode::EMelody, log);
  element.extra = 1.0F;
  element.SetNote(accidental + Lowered(text));
  return element;
}

Element DecodeRtttl(std::string_view token, const TokenDefaults& defaults, Log& log) {
  Element element;
  Unmarked<'#', '.', 's', 'o'> unmarked(token);
  if (!unmarked.Last(2, 4).empty()) {
    element.SetCommand(kRefusedToken);
    return element;
  }
  std::string& text = unmarked.Text();
  element.extra = DecodeDurationExtra(unmarked.Last(1, 2), FormatMode::Rtttl);
  const size_t digits = CountBelowColon(text);
  element.duration = digits > 0
                         ? DecodeDuration(std::string_view(text).substr(0, digits), FormatMode::Rtttl, log)
                         : defaults.duration;
  text.erase(0, digits);
  if (!text.empty() && IsDigit(text.back())) {
    element.octave = static_cast<int16_t>(text.back() - '0' - 2);
    text.pop_back();
  } else {
    element.octave = Contains(text, "r") ? kNoOctave : defaults.octave;
  }
  element.SetNote(std::string(unmarked.Last(0, 1)) + text);
  return element;
}

Element DecodeMelody(std::string_view token, Log& log) {
  std::string text(token);
  Element element;
  element.octave = RemoveAll(text, "+") ? int16_t{4} : OctaveWithoutMark(text);
  const std::string accidental = TakeAccidental(text);
  element.duration = DecodeDuration(text, FormatMode::Melody, log);
  element.extra = 1.0F;
  element.SetNote(accidental + text);
  return element;
}

}  // namespace

Element Decode(std::string_view token, FormatMode mode, const TokenDefaults& defaults, Log& log) {
  switch (mode) {
    case FormatMode::IMelody: return DecodeIMelody(token, log);
    case FormatMode::EMelody: return DecodeEMelody(token, log);
    case FormatMode::Rtttl: return DecodeRtttl(token, defaults, log);
    case FormatMode::Melody: break;
  }
  return DecodeMelody(token, log);
}

}  // namespace trillomat
