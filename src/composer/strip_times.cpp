#include "composer/strip_times.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

#include "core/tone.h"

namespace trillomat {
namespace {

constexpr size_t kBlock = 256;  // elements of a block
constexpr size_t kLongestBlock = 2 * kBlock;

// Above it no tone can be written or read.
constexpr int kHighestOctave = 9;

// A length that no file holds is drawn too, but no wider than a screen.
constexpr double kMostBeats = 64;

std::ptrdiff_t Signed(size_t value) { return static_cast<std::ptrdiff_t>(value); }

ElementRange RangeOf(size_t first, size_t count) {
  return {static_cast<int32_t>(first), static_cast<int32_t>(first + count)};
}

// The rows of the same tones some octaves higher. Nothing where that cannot be told from the rows alone:
// beyond octaves 0 to kHighestOctave a tone has the row of the nearest of them.
std::optional<RowSpan> MovedRows(const RowSpan& span, int octaves) {
  if (span.IsEmpty()) return span;
  const RowSpan moved{span.lowest + octaves * kRowsPerOctave, span.highest + octaves * kRowsPerOctave};
  const bool exact = span.lowest >= kRowsPerOctave && span.highest < kHighestOctave * kRowsPerOctave;
  if (!exact || moved.lowest < 0 || moved.highest >= (kHighestOctave + 1) * kRowsPerOctave)
    return std::nullopt;
  return moved;
}

}  // namespace

int32_t TicksOf(const Element& element) {
  if (element.Note().empty()) return 0;
  const double beats = double{element.duration} * double{element.extra};
  if (!(beats > 0)) return 0;
  return static_cast<int32_t>(std::lround(std::min(beats, kMostBeats) * kTicksPerBeat));
}

StripSpan SpanOf(const Element& element) {
  const int32_t ticks = TicksOf(element);
  return {.ticks = ticks, .marks = ticks == 0 ? 1 : 0};
}

void RowSpan::Add(const RowSpan& other) {
  if (other.IsEmpty()) return;
  *this = IsEmpty() ? other : RowSpan{std::min(lowest, other.lowest), std::max(highest, other.highest)};
}

int RowOf(const Element& element) {
  const int semitone = SemitoneOf(element.Note());
  if (semitone < 0) return -1;
  return std::clamp<int>(element.octave, 0, kHighestOctave) * kRowsPerOctave + semitone;
}

StripTimes::StripTimes(const Document& document) : document_(document) { Replace(0, 0, 0, document_.Size()); }

// The blocks that hold what the change removed; one at least, if there is any.
StripTimes::BlockRange StripTimes::BlocksOf(const ChangedRange& range) const {
  BlockRange blocks;
  while (blocks.begin + 1 < blocks_.size() && blocks.firstElement + blocks_[blocks.begin].count <= range.at) {
    blocks.firstElement += blocks_[blocks.begin++].count;
  }
  blocks.end = blocks.begin;
  size_t end = blocks.firstElement;
  while (blocks.end < blocks_.size() && (blocks.end == blocks.begin || end < range.at + range.removed)) {
    end += blocks_[blocks.end++].count;
  }
  blocks.elements = end - blocks.firstElement;
  return blocks;
}

void StripTimes::Follow(const ChangedRange& range) {
  if (!range.ElementsChanged()) return;
  BlockRange blocks = BlocksOf(range);
  if (range.octaves) return MovePitches(blocks, range);
  size_t count = blocks.elements - range.removed + range.inserted;
  if (count < kBlock / 2 && blocks.end < blocks_.size()) count += blocks_[blocks.end++].count;
  Replace(blocks.begin, blocks.end, blocks.firstElement, count);
}

// A block whose tones all moved alike need not be looked through.
void StripTimes::MovePitches(const BlockRange& blocks, const ChangedRange& range) {
  size_t first = blocks.firstElement;
  for (size_t i = blocks.begin; i < blocks.end; ++i) {
    Block& block = blocks_[i];
    const bool whole = first >= range.at && first + block.count <= range.at + range.removed;
    const auto moved = whole && range.tonesUp ? MovedRows(block.pitches, *range.tonesUp) : std::nullopt;
    block.pitches = moved ? *moved : PitchesOf(first, block.count);
    first += block.count;
  }
}

// Puts blocks of the `count` elements from `first` on in the place of the blocks from `begin` up to `end`.
void StripTimes::Replace(size_t begin, size_t end, size_t first, size_t count) {
  std::vector<Block> blocks;
  while (count > 0) {
    const size_t part = count <= kLongestBlock ? count : kBlock;
    blocks.push_back(Sum(first, part));
    first += part;
    count -= part;
  }
  const auto at = blocks_.erase(blocks_.begin() + Signed(begin), blocks_.begin() + Signed(end));
  blocks_.insert(at, blocks.begin(), blocks.end());
}

StripTimes::Block StripTimes::Sum(size_t first, size_t count) const {
  Block block{.count = count, .span = {}, .pitches = PitchesOf(first, count)};
  document_.ForEach(RangeOf(first, count),
                    [&block](const Element& element) { block.span.Add(SpanOf(element)); });
  return block;
}

RowSpan StripTimes::PitchesOf(size_t first, size_t count) const {
  int lowest = std::numeric_limits<int>::max();
  int highest = -1;
  document_.ForEach(RangeOf(first, count), [&](const Element& element) {
    const int pitch = RowOf(element);
    lowest = std::min(lowest, pitch < 0 ? lowest : pitch);
    highest = std::max(highest, pitch);
  });
  return highest < 0 ? RowSpan{} : RowSpan{lowest, highest};
}

StripSpan StripTimes::Before(int32_t index) const {
  StripSpan span;
  size_t left = static_cast<size_t>(std::clamp(index, 0, document_.LastIndex() + 1));
  size_t first = 0;
  for (const Block& block : blocks_) {
    if (block.count > left) break;
    span.Add(block.span);
    first += block.count;
    left -= block.count;
  }
  for (size_t i = first; i < first + left; ++i) span.Add(SpanOf(document_.At(static_cast<int32_t>(i))));
  return span;
}

StripTimes::Place StripTimes::At(double x, const StripScale& scale) const {
  Place place;
  const auto passes = [&](const StripSpan& span, size_t count) {
    StripSpan behind = place.before;
    behind.Add(span);
    if (x < scale.WidthOf(behind)) return false;
    place = {place.index + static_cast<int32_t>(count), behind};
    return true;
  };
  for (const Block& block : blocks_) {
    if (!passes(block.span, block.count)) break;
  }
  while (document_.HasElement(place.index) && passes(SpanOf(document_.At(place.index)), 1)) {
  }
  return place;
}

StripSpan StripTimes::Total() const {
  StripSpan span;
  for (const Block& block : blocks_) span.Add(block.span);
  return span;
}

RowSpan StripTimes::Pitches() const {
  RowSpan pitches;
  for (const Block& block : blocks_) pitches.Add(block.pitches);
  return pitches;
}

}  // namespace trillomat
