// What the note strip shows of a melody, and what is at a place of it; without a window. Horizontally the
// strip measures in the units of its scale, vertically in rows: semitones from the c of octave 0 upwards.
#pragma once

#include <string>
#include <vector>

#include "composer/strip_times.h"

namespace trillomat {

inline constexpr int kBeatsPerBar = 4;

enum class StripKind { Tone, UnknownTone, Pause, Mark };

/// One element as it is drawn. Places count in the units of the scale.
struct StripItem {
  int32_t index = 0;
  StripKind kind = StripKind::Mark;
  double left = 0;
  double right = 0;
  int row = 0;       ///< of a tone
  bool held = true;  ///< the mode can hold it
};

/// The sign of an element that takes no time.
enum class StripSign { Light, Backlight, Vibration, Volume, RepeatStart, RepeatEnd, Other };
/// What is drawn for it.
struct StripSymbol {
  StripSign sign = StripSign::Other;
  bool on = true;         ///< of a light or vibration
  std::string text = {};  ///< of a volume ("10", "+") or of a repeat end ("3", "" for one without end)
};
StripSymbol SymbolOf(const Element& element);

/// Whether a row is that of a black key.
bool IsBlackRow(int row);

/// A length that a mode can write.
struct WrittenLength {
  int duration = 0;  ///< index of kDurations
  int extra = 0;     ///< index of kDurationExtras
  int32_t ticks = 0;
};
/// Of all lengths that the mode has, the one that comes nearest to `ticks`.
WrittenLength NearestLength(const ModeLimits& limits, double ticks);

/// What is at a place of the strip.
enum class StripPart {
  Behind,  ///< right of all elements
  Empty,   ///< above or below a tone
  Body,    ///< a tone, or an element that takes all of the height
  End      ///< the right end of a tone or pause
};
/// The part of an element that is at a place.
struct StripHit {
  StripPart part = StripPart::Behind;
  int32_t index = -1;  ///< -1 behind the end
};

/// The rows that the mode has octaves for.
RowSpan RowsOf(const ModeLimits& limits);

class StripLayout {
 public:
  explicit StripLayout(const Document& document) : document_(document), times_(document) {}

  StripScale scale;

  /// To be called after each change of the document, before anything is asked.
  void Follow(const ChangedRange& range) { times_.Follow(range); }

  const StripTimes& Times() const { return times_; }
  double Width() const { return scale.WidthOf(times_.Total()); }
  /// Where the element at `index` begins; the right end of all where the index is the number of elements.
  double Left(int32_t index) const { return scale.WidthOf(times_.Before(index)); }
  /// Where the cursor is drawn: right of its element.
  double CursorPlace() const { return Left(document_.Cursor() + 1); }
  /// The element that covers `x`; the first one where `x` lies left of all, -1 where it lies right of all.
  int32_t IndexAt(double x) const;

  struct Shown {
    std::vector<StripItem> items;
    std::vector<double> bars;  ///< the bar lines
  };
  /// What can be seen between two places. A bar line may stand in the middle of an element. Where commands
  /// stand at its place, it comes before them, but behind the end of a repeat.
  Shown Between(double from, double to) const;

  /// What is at a place. `row` is a fraction (2.5 is the middle of row 2). Within `endWidth` of its right
  /// end, at most a third of its width, an element is hit at its end.
  StripHit At(double x, double row, double endWidth) const;

  /// The rows of all octaves that the mode has or that the melody uses.
  RowSpan Rows() const;
  /// From the lowest tone to the highest; the rows of the mode when there is none.
  RowSpan Pitches() const;

 private:
  StripItem ItemAt(int32_t index, const StripSpan& before) const;
  bool BarMayStandBefore(int32_t index) const;
  void AddBars(int32_t index, const StripSpan& before, std::vector<double>& bars) const;

  const Document& document_;
  StripTimes times_;
};

}  // namespace trillomat
