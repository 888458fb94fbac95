// Tidying iMelody: the lines and their tags are put right, then the notes of the melody where the reader
// would not understand them (tidy_imelody_notes.h). Defaults are those of the iMelody 1.2 format.
#include <algorithm>
#include <array>
#include <optional>

#include "core/ascii.h"
#include "core/number_text.h"
#include "exchange/tidy_functions.h"
#include "exchange/tidy_imelody_notes.h"
#include "formats/reading.h"

namespace trillomat {
namespace {

struct Tag {
  std::string_view name;
  std::string_view missing;  ///< the line that stands for it where it is missing
};
constexpr std::array<Tag, 10> kTags{{{"BEGIN", "BEGIN:IMELODY"},
                                     {"VERSION", "VERSION:1.2"},
                                     {"FORMAT", "FORMAT:CLASS1.0"},
                                     {"NAME", "NAME:"},
                                     {"COMPOSER", "COMPOSER:"},
                                     {"BEAT", "BEAT:120"},
                                     {"STYLE", "STYLE:S0"},
                                     {"VOLUME", "VOLUME:V7"},
                                     {"MELODY", ""},
                                     {"END", ""}}};
constexpr std::string_view kEnd = "END:IMELODY";

/// A line, and what it holds.
struct Line {
  std::string_view text;
  std::string_view whole;  ///< with its end
  const Tag* tag = nullptr;
  bool colon = false;
};

const Tag* TagOf(std::string_view line) {
  const std::string name = Uppered(WithoutWhitespace(line.substr(0, line.find(':'))));
  const auto* const found =
      std::find_if(kTags.begin(), kTags.end(), [&name](const Tag& tag) { return tag.name == name; });
  return found == kTags.end() || !Contains(line, ":") ? nullptr : found;
}

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  for (const std::string_view line : SplitLines(text)) {
    const std::string_view rest = text.substr(static_cast<size_t>(line.data() + line.size() - text.data()));
    const size_t end = rest.starts_with("\r\n") ? 2 : std::min<size_t>(rest.size(), 1);
    lines.push_back({.text = line,
                     .whole = {line.data(), line.size() + end},
                     .tag = TagOf(line),
                     .colon = Contains(line, ":")});
  }
  return lines;
}

class IMelodyLines {
 public:
  explicit IMelodyLines(TidyText& text) : text_(text), lines_(LinesOf(text.Rest())) {}

  void Tidy() {
    if (std::none_of(lines_.begin(), lines_.end(), [](const Line& line) { return Is(line, "MELODY"); })) {
      return;
    }
    AddMissing();
    while (next_ < lines_.size()) TidyLine();
  }

 private:
  static bool Is(const Line& line, std::string_view tag) {
    return line.tag != nullptr && line.tag->name == tag;
  }

  // In front, where the reader takes them wherever they would stand.
  void AddMissing() {
    std::string missing;
    for (const Tag& tag : kTags) {
      const bool found =
          std::any_of(lines_.begin(), lines_.end(), [&tag](const Line& line) { return line.tag == &tag; });
      if (!found && !tag.missing.empty()) missing += std::string(tag.missing) + "\r\n";
    }
    if (!missing.empty()) text_.Insert(missing, "a file without them means that");
  }

  void TidyLine() {
    const Line& line = lines_[next_];
    if (Is(line, "MELODY")) return TidyMelody();
    ++next_;
    if (!line.colon) {
      const bool blank = WithoutWhitespace(line.text).empty();
      return text_.Replace(line.whole.size(), "", blank ? "a line is blank" : "a line has no tag");
    }
    if (line.tag != nullptr) TidyTag(line);
    text_.KeepTo(line.whole.substr(line.whole.size()));
  }

  void TidyTag(const Line& line) {
    const size_t colon = line.text.find(':');
    text_.Replace(colon, line.tag->name, "tags are written so");
    text_.Keep(1);
    const std::string_view beat = line.text.substr(colon + 1);
    if (line.tag->name == "BEAT" &&
        (beat.find_first_of("0123456789") == std::string_view::npos || !RoundToInt32(LeadingNumber(beat)))) {
      text_.Replace(beat.size(), "120", "that is no number of beats a minute");
    }
  }

  // The notes go on up to a line with a tag, before which an END belongs.
  void TidyMelody() {
    TidyTag(lines_[next_]);
    const Line* last = &lines_[next_];
    for (++next_; next_ < lines_.size() && lines_[next_].tag == nullptr; ++next_) last = &lines_[next_];
    const auto* const end = last->text.data() + last->text.size();
    TidyIMelodyNotes({text_.Rest().data(), static_cast<size_t>(end - text_.Rest().data())}, text_);
    if (next_ < lines_.size() && Is(lines_[next_], "END")) return text_.KeepTo(lines_[next_].whole);
    const bool ended = last->whole.size() > last->text.size();
    if (ended) text_.KeepTo(last->whole.substr(last->whole.size()));
    text_.Insert((ended ? "" : "\r\n") + std::string(kEnd) + "\r\n", "the melody ends with it");
  }

  TidyText& text_;
  std::vector<Line> lines_;
  size_t next_ = 0;
};

}  // namespace

void TidyIMelody(TidyText& text) { IMelodyLines(text).Tidy(); }

}  // namespace trillomat
