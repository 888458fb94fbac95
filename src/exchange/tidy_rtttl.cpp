// Tidying RTTTL: the header is made whole, then the notes follow (tidy_rtttl_notes.h).
#include <algorithm>
#include <array>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/number_text.h"
#include "exchange/reads_whole.h"
#include "exchange/recognise.h"
#include "exchange/rtttl_shape.h"
#include "exchange/tidy_functions.h"
#include "exchange/tidy_rtttl_notes.h"

namespace trillomat {
namespace {

// With the values that the published format gives a header without them.
struct Key {
  char letter;
  std::string_view published;
};
constexpr std::array<Key, 3> kNeededKeys{{{'d', "4"}, {'o', "6"}, {'b', "63"}}};

std::string_view PublishedOf(char letter) {
  const auto* const key = std::find_if(kNeededKeys.begin(), kNeededKeys.end(),
                                       [letter](const Key& each) { return each.letter == letter; });
  return key == kNeededKeys.end() ? "" : key->published;
}

// The value to write for a key: `value`, the digits that stand there, where the reader takes it.
std::string TidyValue(char key, const std::string& value) {
  constexpr double kHighestCount = 32767;
  const double number = LeadingNumber(value);
  if (value.empty()) return std::string(PublishedOf(key));
  if (key == 'd') return NearestRtttlLength(value);
  if (key == 'o') return NearestRtttlOctave(value);
  if (key == 'l') return number > kHighestCount ? std::to_string(kHighestLoop) : value;
  return RoundToInt32(number) ? value : std::string(PublishedOf(key));
}

class Keys {
 public:
  /// `readsWhole`: the reader understands all of the text as it is. It knows no upper-case keys, so there
  /// putting such a key right would change the elements.
  Keys(TidyText& text, bool readsWhole) : text_(text), readsWhole_(readsWhole) {}

  void Tidy(std::string_view all) {
    std::string_view keys = all;
    while (!keys.empty()) {
      const size_t length = std::min(keys.find_first_of(",;"), keys.size());
      TidyItem(keys.substr(0, length));
      keys.remove_prefix(length);
      if (keys.empty()) break;
      text_.Keep(1);
      keys.remove_prefix(1);
    }
    AddMissing(!WithoutWhitespace(all).empty());
  }

  TokenDefaults Defaults() const {
    SilentLog silent;
    return {.octave = static_cast<int16_t>(LeadingNumber(octave_) - 2),
            .duration = DecodeDuration(duration_, FormatMode::Rtttl, silent)};
  }

 private:
  // The reader finds a lower-case key wherever it stands, and takes the digits behind it.
  void TidyItem(std::string_view item) {
    for (size_t sign = item.find('='); sign != std::string_view::npos; sign = item.find('=')) {
      const size_t place = item.substr(0, sign).find_last_not_of(" \r\n\t");
      const char written = place == std::string_view::npos ? '\0' : item[place];
      const char key = ToLower(written);
      const std::string_view behind = item.substr(sign + 1);
      const bool changesElements = readsWhole_ && key != 'b' && key != written;
      if (!Contains("dobl", key) || changesElements) {
        text_.Keep(sign + 1);
        item = behind;
        continue;
      }
      text_.Keep(place);
      text_.Replace(1, std::string(1, key), "keys are written so");
      text_.Keep(sign - place);
      item = TidyKey(key, behind);
    }
    text_.Keep(item.size());
  }

  // Gives what follows the value.
  std::string_view TidyKey(char key, std::string_view item) {
    const size_t end = std::min(item.find_first_not_of("0123456789 \r\n\t"), item.size());
    const std::string digits = WithoutWhitespace(item.substr(0, end));
    const size_t length = digits.empty() && !Contains(item, "=") ? item.size() : end;
    const std::string tidy = TidyValue(key, digits);
    found_ += key;
    if (key == 'd') duration_ = tidy;
    if (key == 'o') octave_ = tidy;
    if (tidy == digits) {
      text_.Keep(length);
    } else {
      text_.Replace(length, tidy, "that is no value of this key");
    }
    return item.substr(length);
  }

  void AddMissing(bool behindOthers) {
    std::string missing;
    for (const Key& key : kNeededKeys) {
      if (Contains(found_, key.letter)) continue;
      missing += (behindOthers || !missing.empty() ? "," : "") + std::string(1, key.letter) + "=" +
                 std::string(key.published);
    }
    if (!missing.empty()) text_.Insert(missing, "a header without it means that");
  }

  TidyText& text_;
  bool readsWhole_;
  std::string found_;
  std::string duration_{kNeededKeys[0].published};
  std::string octave_{kNeededKeys[1].published};
};

// A ":" would end the name; a name in quotes begins behind the quote.
void TidyName(std::string_view name, TidyText& text) {
  const size_t quote = name.rfind('"');
  if (quote != std::string_view::npos) {
    text.LeaveOut(quote + 1, "it is no part of the tune");
    name.remove_prefix(quote + 1);
  }
  const size_t length = name.find_last_not_of(": \t\r\n") + 1;
  const std::string_view kept = name.substr(0, length);
  if (!Contains(name, ":")) return text.Keep(name.size());
  text.Replace(name.size(), ReplaceAll(kept, ":", "-"), "a \":\" would end the name");
}

// The only tune, or the first of several.
std::string_view TuneIn(std::string_view text) {
  const std::vector<std::string_view> tunes = TunesIn(text);
  return tunes.empty() ? text : tunes.front();
}

}  // namespace

void TidyRtttl(TidyText& text) {
  // A text that the reader understands is cut into its parts as the reader does it.
  const bool whole = ReadsWhole(text.Rest(), FormatMode::Rtttl);
  const std::string_view tune = whole ? text.Rest() : TuneIn(text.Rest());
  const RtttlShape shape = whole ? ShapeByColons(tune) : RtttlShapeOf(tune);
  const bool bare = shape.keys.empty();
  if (bare ? !HoldsRtttlNotes(shape.notes) : WithoutWhitespace(shape.notes).empty()) return;
  text.LeaveOut(static_cast<size_t>(tune.data() - text.Rest().data()), "it is no part of the tune");
  if (shape.name.data() + shape.name.size() == shape.keys.data()) {
    text.Insert(":", "the name ends with it");
  } else {
    TidyName(shape.name, text);
    text.Keep(1);
  }
  Keys keys(text, whole);
  keys.Tidy(shape.keys);
  if (text.Rest().data() == shape.notes.data()) {
    text.Insert(":", "the keys end with it");
  } else {
    text.Replace(1, ":", "the keys end with it");
  }
  TidyRtttlNotes(shape.notes, keys.Defaults(), text);
  text.LeaveOut(text.Rest().size(), "it is no part of the tune");
}

}  // namespace trillomat
