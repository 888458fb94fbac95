// Where each element of a melody begins in time. A table holds the sums of blocks of a few hundred elements
// each.
//
//   elements   0 ......... 255 | 256 ......... 511 | 512 ...
//   table      count, ticks,     count, ticks,       ...
//              marks, pitches    marks, pitches
//
// A question goes over the blocks and then over the elements of one block; a change sums up anew the blocks
// that it touches. So both cost about the same however long the melody is.
#pragma once

#include <cstdint>
#include <vector>

#include "document/document.h"

namespace trillomat {

/// Every length that a melody can have is a whole number of these: durations times extras.
inline constexpr int32_t kTicksPerBeat = 96;

/// The element's length as it is written, in ticks; an unusual one is rounded. 0 for what takes no time of
/// its own: commands, repeat marks, and elements without a length.
int32_t TicksOf(const Element& element);

/// A stretch of the melody: the time it takes, and how many elements in it take none.
struct StripSpan {
  int64_t ticks = 0;
  int64_t marks = 0;

  void Add(const StripSpan& other) {
    ticks += other.ticks;
    marks += other.marks;
  }
  bool operator==(const StripSpan&) const = default;
};

/// The stretch of one element.
StripSpan SpanOf(const Element& element);

/// How wide a stretch is drawn. What takes no time has a width all the same, so that it can be seen.
struct StripScale {
  double tick = 1;
  double mark = 0;

  double WidthOf(const StripSpan& span) const {
    return static_cast<double>(span.ticks) * tick + static_cast<double>(span.marks) * mark;
  }
};

/// Keys of a piano as rows of the strip: semitones from the c of octave 0 upwards. Both ends included; none
/// when the highest is below the lowest.
struct RowSpan {
  int lowest = 0;
  int highest = -1;

  bool IsEmpty() const { return highest < lowest; }
  int Size() const { return highest - lowest + 1; }
  void Add(const RowSpan& other);
  bool operator==(const RowSpan&) const = default;
};

inline constexpr int kRowsPerOctave = 12;

/// The row of a tone: flats and sharps where they sound. -1 for any other element.
int RowOf(const Element& element);

class StripTimes {
 public:
  /// An element, and what comes before it.
  struct Place {
    int32_t index = 0;
    StripSpan before;
  };

  explicit StripTimes(const Document& document);

  /// To be called after each change of the document, before anything is asked.
  void Follow(const ChangedRange& range);

  /// What comes before the element at `index`; all there is for an index at or behind the end.
  StripSpan Before(int32_t index) const;
  /// The element that covers `x` at that scale, the first one left of all, the number of elements right of
  /// all.
  Place At(double x, const StripScale& scale) const;
  /// All of the melody.
  StripSpan Total() const;
  /// From the lowest tone to the highest; empty without any.
  RowSpan Pitches() const;

 private:
  struct Block {
    size_t count = 0;
    StripSpan span;
    RowSpan pitches;
  };

  /// Blocks from `begin` up to, but without, `end`, and the elements they hold.
  struct BlockRange {
    size_t begin = 0;
    size_t end = 0;
    size_t firstElement = 0;
    size_t elements = 0;
  };

  BlockRange BlocksOf(const ChangedRange& range) const;
  Block Sum(size_t first, size_t count) const;
  RowSpan PitchesOf(size_t first, size_t count) const;
  void MovePitches(const BlockRange& blocks, const ChangedRange& range);
  void Replace(size_t begin, size_t end, size_t first, size_t count);

  const Document& document_;
  std::vector<Block> blocks_;
};

}  // namespace trillomat
