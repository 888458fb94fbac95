#include "cli/shown_line.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>
#include <vector>

#include "core/code_page.h"
#include "core/terminal_text.h"

namespace trillomat {
namespace {

constexpr std::string_view kCut = "...";
constexpr std::string_view kIndent = "  ";

struct ShownCharacter {
  std::string text;
  size_t columns;
};
using ShownText = std::vector<ShownCharacter>;

struct CharacterRange {
  char32_t first;
  char32_t last;
};

template <size_t kSize>
bool IsIn(const std::array<CharacterRange, kSize>& ranges, char32_t character) {
  return std::any_of(ranges.begin(), ranges.end(), [character](const CharacterRange& range) {
    return range.first <= character && character <= range.last;
  });
}

// The blocks of Unicode that terminals show in two columns, and those that stand over the character before.
constexpr std::array<CharacterRange, 9> kWide{{{0x1100, 0x115F},
                                               {0x2E80, 0xA4CF},
                                               {0xAC00, 0xD7A3},
                                               {0xF900, 0xFAFF},
                                               {0xFE30, 0xFE6F},
                                               {0xFF00, 0xFF60},
                                               {0xFFE0, 0xFFE6},
                                               {0x1F300, 0x1FAFF},
                                               {0x20000, 0x3FFFD}}};
constexpr std::array<CharacterRange, 5> kWithoutWidth{
    {{0x0300, 0x036F}, {0x200B, 0x200D}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFEFF, 0xFEFF}}};

size_t WidthOf(char32_t character) {
  if (IsIn(kWithoutWidth, character)) return 0;
  return IsIn(kWide, character) ? 2 : 1;
}

ShownCharacter TakeShown(std::string_view& text) {
  const std::string_view before = text;
  const auto character = TakeCharacter(text);
  if (!character) text.remove_prefix(1);
  const std::string_view bytes = before.substr(0, before.size() - text.size());
  if (bytes == "\t" || bytes == "\n") return {" ", 1};
  if (!character || EscapedForTerminal(bytes) != bytes) return {"?", 1};
  return {std::string(bytes), WidthOf(*character)};
}

// The first `most` characters.
ShownText Shown(std::string_view text, size_t most) {
  ShownText shown;
  while (!text.empty() && shown.size() < most) shown.push_back(TakeShown(text));
  return shown;
}

size_t ColumnsIn(ShownText::const_iterator begin, ShownText::const_iterator end) {
  return std::accumulate(begin, end, size_t{0},
                         [](size_t sum, const ShownCharacter& each) { return sum + each.columns; });
}

std::string TextOf(ShownText::const_iterator begin, ShownText::const_iterator end) {
  std::string text;
  for (; begin != end; ++begin) text += begin->text;
  return text;
}

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

// Where the character of that number begins, or the end.
size_t OffsetOf(std::string_view text, size_t number) {
  size_t offset = 0;
  for (; number > 0 && offset < text.size(); --number) {
    while (++offset < text.size() && ContinuesCharacter(text[offset])) {
    }
  }
  return offset;
}

// What is shown of a line around the beginning of its mark. Of a long line no more is looked at than that.
class Surroundings {
 public:
  Surroundings(std::string_view line, size_t at, size_t columns) {
    const size_t before = at - std::min(at, columns);
    const std::string_view rest = line.substr(OffsetOf(line, before));
    // One more than can be shown tells whether there is more.
    text_ = Shown(rest, at - before + columns + 1);
    mark_ = first_ = last_ = std::min(at - before, text_.size());
    const bool isWhole = before == 0 && ColumnsIn(text_.begin(), text_.end()) <= columns;
    const auto isCutBefore = [&] { return before > 0 || first_ > 0; };
    const auto isCutBehind = [&] { return last_ < text_.size(); };
    Grow(isWhole ? columns : columns - std::min(columns, 2 * kCut.size()));
    if (isCutBefore() != isCutBehind()) Grow(columns - std::min(columns, kCut.size()));
    if (isCutBefore()) head_ = kCut;
    if (isCutBehind()) tail_ = kCut;
  }

  std::string Line() const { return head_ + TextOf(At(first_), At(last_)) + tail_; }

  std::string CaretLine(size_t size) const {
    const size_t end = mark_ + std::min(size, last_ - mark_);
    const size_t wide = std::max<size_t>(1, ColumnsIn(At(mark_), At(end)));
    return std::string(head_.size() + ColumnsIn(At(first_), At(mark_)), ' ') + '^' +
           std::string(wide - 1, '~');
  }

 private:
  ShownText::const_iterator At(size_t index) const {
    return std::next(text_.begin(), static_cast<ptrdiff_t>(index));
  }

  // Takes in one character after the other at both sides of the mark, up to so many columns in all.
  void Grow(size_t columns) {
    const auto take = [&](size_t index) {
      if (index >= text_.size() || taken_ + text_[index].columns > columns) return false;
      taken_ += text_[index].columns;
      return true;
    };
    for (bool grows = true; grows;) {
      grows = false;
      if (take(last_)) {
        ++last_;
        grows = true;
      }
      if (first_ > 0 && take(first_ - 1)) {
        --first_;
        grows = true;
      }
    }
  }

  ShownText text_;
  size_t mark_ = 0;
  size_t first_ = 0;
  size_t last_ = 0;
  size_t taken_ = 0;  ///< columns
  std::string head_;
  std::string tail_;
};

}  // namespace

std::string FittedTo(std::string_view text, size_t columns) {
  const ShownText shown = Shown(text, columns + 1);
  if (ColumnsIn(shown.begin(), shown.end()) <= columns) return TextOf(shown.begin(), shown.end());
  const size_t room = columns - std::min(columns, kCut.size());
  auto end = shown.begin();
  for (size_t taken = 0; end != shown.end() && taken + end->columns <= room; ++end) taken += end->columns;
  return TextOf(shown.begin(), end) + std::string(kCut.substr(0, columns));
}

size_t ColumnsOf(std::string_view text) {
  const ShownText shown = Shown(text, text.size());
  return ColumnsIn(shown.begin(), shown.end());
}

std::string MarkedLine(std::string_view line, Mark mark, size_t columns, std::string_view note) {
  // The caret can stand behind the line.
  const size_t room = columns - std::min(columns, kIndent.size() + 1);
  const Surroundings shown(line, mark.begin, room);
  std::string text = shown.Line();
  if (!text.empty()) text.insert(0, kIndent);
  text += '\n';
  text += kIndent;
  text += shown.CaretLine(mark.size);
  if (!note.empty()) text += ' ';
  text += note;
  return text + '\n';
}

}  // namespace trillomat
