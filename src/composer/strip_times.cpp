#include "composer/strip_times.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

#include "core/tone.h"

namespace trillomat {
namespace {

constexpr size_t kRow = 256;  // elements
constexpr size_t kLongestRow = 2 * kRow;

// Above it no tone can be written or read.
constexpr int kHighestOctave = 9;

// A length that no file holds is still drawn, but not farther than a screen.
constexpr double kMostBeats = 64;

std::ptrdiff_t Signed(size_t value) { return static_cast<std::ptrdiff_t>(value); }

ElementRange RangeOf(size_t first, size_t count) {
  return {static_cast<int32_t>(first), static_cast<int32_t>(first + count)};
}

// Nothing where a tone may be, or come, out of the octaves that are told apart: it has the row of the
// nearest.
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

// Those that held what the change took the place of; one at least, if there is any.
StripTimes::Rows StripTimes::RowsOf(const ChangedRange& range) const {
  Rows rows;
  while (rows.begin + 1 < rows_.size() && rows.firstElement + rows_[rows.begin].count <= range.at) {
    rows.firstElement += rows_[rows.begin++].count;
  }
  rows.end = rows.begin;
  size_t end = rows.firstElement;
  while (rows.end < rows_.size() && (rows.end == rows.begin || end < range.at + range.removed)) {
    end += rows_[rows.end++].count;
  }
  rows.elements = end - rows.firstElement;
  return rows;
}

void StripTimes::Follow(const ChangedRange& range) {
  if (!range.ElementsChanged()) return;
  Rows rows = RowsOf(range);
  if (range.octaves) return MovePitches(rows, range);
  size_t count = rows.elements - range.removed + range.inserted;
  if (count < kRow / 2 && rows.end < rows_.size()) count += rows_[rows.end++].count;
  Replace(rows.begin, rows.end, rows.firstElement, count);
}

// Only rows of which all tones moved alike need not be looked through.
void StripTimes::MovePitches(const Rows& rows, const ChangedRange& range) {
  size_t first = rows.firstElement;
  for (size_t i = rows.begin; i < rows.end; ++i) {
    Row& row = rows_[i];
    const bool whole = first >= range.at && first + row.count <= range.at + range.removed;
    const auto moved = whole && range.tonesUp ? MovedRows(row.pitches, *range.tonesUp) : std::nullopt;
    row.pitches = moved ? *moved : PitchesOf(first, row.count);
    first += row.count;
  }
}

// The rows from `row` up to `behind` are now those of `count` elements from `first` on.
void StripTimes::Replace(size_t row, size_t behind, size_t first, size_t count) {
  std::vector<Row> rows;
  while (count > 0) {
    const size_t part = count <= kLongestRow ? count : kRow;
    rows.push_back(Sum(first, part));
    first += part;
    count -= part;
  }
  const auto at = rows_.erase(rows_.begin() + Signed(row), rows_.begin() + Signed(behind));
  rows_.insert(at, rows.begin(), rows.end());
}

StripTimes::Row StripTimes::Sum(size_t first, size_t count) const {
  Row row{.count = count, .span = {}, .pitches = PitchesOf(first, count)};
  document_.ForEach(RangeOf(first, count), [&row](const Element& element) { row.span.Add(SpanOf(element)); });
  return row;
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
  for (const Row& row : rows_) {
    if (row.count > left) break;
    span.Add(row.span);
    first += row.count;
    left -= row.count;
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
  for (const Row& row : rows_) {
    if (!passes(row.span, row.count)) break;
  }
  while (document_.HasElement(place.index) && passes(SpanOf(document_.At(place.index)), 1)) {
  }
  return place;
}

StripSpan StripTimes::Total() const {
  StripSpan span;
  for (const Row& row : rows_) span.Add(row.span);
  return span;
}

RowSpan StripTimes::Pitches() const {
  RowSpan pitches;
  for (const Row& row : rows_) pitches.Add(row.pitches);
  return pitches;
}

}  // namespace trillomat
