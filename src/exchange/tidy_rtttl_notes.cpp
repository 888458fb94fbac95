#include "exchange/tidy_rtttl_notes.h"

#include <algorithm>
#include <vector>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/format_mode.h"
#include "core/number_text.h"
#include "core/tone.h"
#include "formats/rtttl_notes.h"

namespace trillomat {
namespace {

constexpr std::string_view kToneLetters = "abcdefgh";
constexpr std::string_view kNoteLetters = "abcdefghpr";
constexpr int kOctaveOffset = 2;  // of RTTTL's numbers
constexpr int kHighestDigit = 9;  // a note has one, "o=" takes 10 too

bool IsNoteLetter(char c) { return Contains(kNoteLetters, c); }

bool IsTokenUnderstood(std::string_view token, const TokenDefaults& defaults) {
  SilentLog silent;
  return IsUnderstood(Decode(RtttlNoteText(token), FormatMode::Rtttl, defaults, silent));
}

/// One note as somebody wrote it. What it lacks is zero or empty.
struct LooseNote {
  std::string length;  ///< digits
  char letter = 0;
  int accidental = 0;  ///< semitones
  char octave = 0;     ///< a digit
  bool dot = false;
};

/// The notes of one token, usually one.
class LooseToken {
 public:
  /// `token` in lower case.
  explicit LooseToken(std::string_view token) : token_(token), lastLetter_(token.find_last_of(kNoteLetters)) {
    for (size_t i = 0; i < token_.size(); i += std::max<size_t>(Take(i), 1)) {
    }
    Finish();
  }

  const std::vector<LooseNote>& Notes() const { return notes_; }
  /// What is wrong with it.
  std::string_view Why() const { return why_; }

 private:
  // Takes what begins at `i`; gives its length.
  size_t Take(size_t i) {
    const char c = token_[i];
    if (IsDigit(c)) return TakeDigits(i);
    if (IsNoteLetter(c)) {
      TakeLetter(c, i > 0 && i == letterEnd_);
      letterEnd_ = i + 1;
    } else if (c == '#' || c == '_') {
      if (c == '_') Blame("\"_\" stands for a sharp");
      note_.accidental = 1;
    } else if (c == '&') {
      note_.accidental = -1;
    } else if (c == '.') {
      note_.dot = true;
    } else if (IsWhitespace(c)) {
      blank_ = i + 1;
    } else {
      Blame("that stands in no note");
    }
    return 1;
  }

  // Before the letter they are a length, behind it an octave, and between two notes without a "," both.
  size_t TakeDigits(size_t i) {
    const auto* const end = std::find_if_not(token_.begin() + i, token_.end(), IsDigit);
    const std::string_view digits = token_.substr(i, static_cast<size_t>(end - token_.begin()) - i);
    const bool more = lastLetter_ != std::string_view::npos && lastLetter_ > i;
    if (note_.letter == 0) {
      note_.length = digits;
    } else if (!more) {
      if (note_.octave == 0) note_.octave = digits.front();
    } else {
      const size_t octave = blank_ == i ? 0 : OctaveDigits(digits);
      if (octave > 0 && digits.substr(0, 1) == NearestRtttlOctave(digits.substr(0, 1))) {
        note_.octave = digits.front();
      }
      Blame(kMissingComma);
      Finish();
      note_.length = digits.substr(octave);
    }
    return digits.size();
  }

  // How many of the digits between two notes are the octave of the first.
  static size_t OctaveDigits(std::string_view digits) {
    const bool isLength = NearestRtttlLength(digits) == digits;
    return isLength ? 0 : 1;
  }

  void TakeLetter(char c, bool behindLetter) {
    if (note_.letter != 0 && behindLetter && c == 'b' && Contains(kToneLetters, note_.letter)) {
      note_.accidental = -1;
      return Blame("tones are written with sharps");
    }
    if (note_.letter != 0) {
      Blame(kMissingComma);
      Finish();
    }
    note_.letter = c == 'h' ? 'b' : c;
  }

  void Finish() {
    if (note_.letter != 0) notes_.push_back(note_);
    note_ = {};
  }

  void Blame(std::string_view why) {
    if (why_.empty()) why_ = why;
  }

  static constexpr std::string_view kMissingComma = "a \",\" was missing";

  std::string_view token_;
  size_t lastLetter_;
  std::vector<LooseNote> notes_;
  LooseNote note_;
  size_t letterEnd_ = 0;
  size_t blank_ = 0;
  std::string_view why_;
};

/// Writes loose notes as the format has them, and notices what had to be changed.
class NoteWriter {
 public:
  explicit NoteWriter(const TokenDefaults& defaults) : defaults_(defaults) {}

  std::string Text(const std::vector<LooseNote>& notes) {
    std::string text;
    for (const LooseNote& note : notes) text += (text.empty() ? "" : ",") + Text(note);
    return text;
  }
  std::string_view Why() const { return why_; }

 private:
  std::string Text(const LooseNote& note) {
    const std::string length = LengthText(note.length);
    return length + (note.letter == 'p' || note.letter == 'r' ? "p" : ToneText(note)) + (note.dot ? "." : "");
  }

  std::string LengthText(const std::string& digits) {
    if (digits.find_first_not_of('0') == std::string::npos) return {};
    std::string length = NearestRtttlLength(digits);
    if (length != digits) why_ = "lengths are 1, 2, 4, 8, 16 and 32";
    return length;
  }

  // "e#" is f, "b#" the c above, and a flat the sharp below it.
  std::string ToneText(const LooseNote& note) {
    const auto [tone, up] = PianoToneOf(note.letter, note.accidental);
    std::string name = tone.back() + std::string(tone.substr(0, tone.size() - 1));
    if (why_.empty() && name.front() != note.letter) why_ = "that tone is written so";
    if (note.octave == 0 && up == 0) return name;
    const int octave = note.octave == 0 ? defaults_.octave + kOctaveOffset : note.octave - '0';
    const std::string digit = NearestRtttlOctave(std::to_string(std::min(octave + up, kHighestDigit)));
    if (note.octave != 0 && up == 0 && digit.front() != note.octave) why_ = "there is no such octave";
    return name + digit;
  }

  TokenDefaults defaults_;
  std::string_view why_;
};

// Replaces one token, with its comma where nothing is left of it.
void TidyToken(std::string_view token, bool comma, const TokenDefaults& defaults, TidyText& text) {
  if (IsTokenUnderstood(token, defaults)) return text.Keep(token.size() + (comma ? 1 : 0));
  std::string lowered = Lowered(token);
  if (WithoutWhitespace(lowered) == "-") lowered = "p";
  const LooseToken loose(lowered);
  NoteWriter writer(defaults);
  const std::string tidy = writer.Text(loose.Notes());
  const std::string_view why = !loose.Why().empty() ? loose.Why() : writer.Why();
  const size_t all = token.size() + (comma ? 1 : 0);
  if (tidy.empty()) return text.Replace(all, "", "that is no note");
  const size_t indent = std::min(token.find_first_not_of(" \r\n\t"), token.size());
  text.Keep(indent);
  text.Replace(token.size() - indent, tidy, why.empty() ? "that is no note as it stands" : why);
  text.Keep(comma ? 1 : 0);
}

}  // namespace

void TidyRtttlNotes(std::string_view notes, const TokenDefaults& defaults, TidyText& text) {
  while (!notes.empty()) {
    const std::string_view token = notes.substr(0, notes.find(','));
    const bool comma = token.size() < notes.size();
    if (!comma && WithoutWhitespace(token).empty()) return text.Keep(token.size());
    TidyToken(token, comma, defaults, text);
    notes.remove_prefix(token.size() + (comma ? 1 : 0));
  }
}

bool HoldsRtttlNotes(std::string_view notes) {
  while (!notes.empty()) {
    const std::string_view token = notes.substr(0, notes.find(','));
    if (IsTokenUnderstood(token, {})) return true;
    notes.remove_prefix(std::min(token.size() + 1, notes.size()));
  }
  return false;
}

std::string NearestRtttlLength(std::string_view digits) {
  const double number = LeadingNumber(digits);
  if (number == 0) return "4";
  int length = 1;
  // To the next power where the number is nearer to that, by ratio.
  while (length < 32 && number * number > 2.0 * length * length) length *= 2;
  return std::to_string(length);
}

std::string NearestRtttlOctave(std::string_view digits) {
  constexpr int kLowestPublished = 4;
  constexpr int kHighestPublished = 7;
  constexpr int kHighest = 8 + kOctaveOffset;
  const double number = LeadingNumber(digits);
  if (number >= kOctaveOffset && number <= kHighest) return std::to_string(static_cast<int>(number));
  return std::to_string(number < kOctaveOffset ? kLowestPublished : kHighestPublished);
}

}  // namespace trillomat
