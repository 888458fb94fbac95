#include "composer/strip_layout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/codec.h"

namespace trillomat {
namespace {

constexpr int64_t kTicksPerBar = int64_t{kBeatsPerBar} * kTicksPerBeat;

// Rows are low, so a tone is hit from a little above and below, too.
constexpr double kRowSlack = 0.5;

struct OnOffCommand {
  std::string_view on;
  std::string_view off;
  StripSign sign;
};
constexpr std::array<OnOffCommand, 3> kOnOff{{{"ledon", "ledoff", StripSign::Light},
                                              {"backon", "backoff", StripSign::Backlight},
                                              {"vibeon", "vibeoff", StripSign::Vibration}}};

bool IsRepeatEnd(const Element& element) { return element.Command().ends_with(')'); }

StripKind KindOf(const Element& element) {
  if (TicksOf(element) == 0) return StripKind::Mark;
  if (IsPause(element)) return StripKind::Pause;
  return RowOf(element) < 0 ? StripKind::UnknownTone : StripKind::Tone;
}

}  // namespace

StripSymbol SymbolOf(const Element& element) {
  const std::string_view command = element.Command();
  for (const OnOffCommand& known : kOnOff) {
    if (command == known.on || command == known.off) return {.sign = known.sign, .on = command == known.on};
  }
  if (command == "(") return {.sign = StripSign::RepeatStart};
  if (command.starts_with('V')) return {.sign = StripSign::Volume, .text = std::string(command.substr(1))};
  if (!IsRepeatEnd(element) || !command.starts_with('@')) return {};
  const std::string_view count = command.substr(1, command.size() - 2);
  return {.sign = StripSign::RepeatEnd, .text = std::string(count == "0" ? "" : count)};
}

bool IsBlackRow(int row) {
  constexpr std::array<bool, kRowsPerOctave> kBlack{false, true,  false, true,  false, false,
                                                    true,  false, true,  false, true,  false};
  return kBlack.at(static_cast<size_t>(row % kRowsPerOctave));
}

WrittenLength NearestLength(const ModeLimits& limits, double ticks) {
  WrittenLength nearest;
  for (int duration = limits.firstDuration; duration <= limits.lastDuration; ++duration) {
    for (int extra = 0; extra <= limits.lastExtra; ++extra) {
      const Element element =
          Pause(kDurations.at(static_cast<size_t>(duration)), kDurationExtras.at(static_cast<size_t>(extra)));
      const int32_t length = TicksOf(element);
      const bool nearer = std::abs(length - ticks) < std::abs(nearest.ticks - ticks);
      if (nearest.ticks == 0 || nearer) nearest = {duration, extra, length};
    }
  }
  return nearest;
}

int32_t StripLayout::IndexAt(double x) const {
  const int32_t index = times_.At(x, scale).index;
  return document_.HasElement(index) ? index : -1;
}

StripLayout::Shown StripLayout::Between(double from, double to) const {
  Shown shown;
  StripTimes::Place place = times_.At(from, scale);
  while (document_.HasElement(place.index)) {
    const StripItem item = ItemAt(place.index, place.before);
    if (item.left >= to) break;
    AddBars(place.index, place.before, shown.bars);
    shown.items.push_back(item);
    place.before.Add(SpanOf(document_.At(place.index++)));
  }
  return shown;
}

StripItem StripLayout::ItemAt(int32_t index, const StripSpan& before) const {
  const Element& element = document_.At(index);
  StripSpan behind = before;
  behind.Add(SpanOf(element));
  return {.index = index,
          .kind = KindOf(element),
          .left = scale.WidthOf(before),
          .right = scale.WidthOf(behind),
          .row = RowOf(element),
          .held = IsHeld(element, document_.Mode())};
}

// The bar lines at the start of the element and inside it.
void StripLayout::AddBars(int32_t index, const StripSpan& before, std::vector<double>& bars) const {
  const int64_t ticks = before.ticks;
  if (ticks > 0 && ticks % kTicksPerBar == 0 && BarMayStandBefore(index)) {
    bars.push_back(scale.WidthOf(before));
  }
  const int64_t end = ticks + TicksOf(document_.At(index));
  for (int64_t bar = (ticks / kTicksPerBar + 1) * kTicksPerBar; bar < end; bar += kTicksPerBar) {
    bars.push_back(scale.WidthOf({.ticks = bar, .marks = before.marks}));
  }
}

bool StripLayout::BarMayStandBefore(int32_t index) const {
  if (IsRepeatEnd(document_.At(index))) return false;
  const Element& left = document_.At(index - 1);
  return TicksOf(left) > 0 || IsRepeatEnd(left);
}

StripHit StripLayout::At(double x, double row, double endWidth) const {
  const StripTimes::Place place = times_.At(x, scale);
  if (!document_.HasElement(place.index)) return {};
  const StripItem item = ItemAt(place.index, place.before);
  const bool beside =
      item.kind == StripKind::Tone && (row < item.row - kRowSlack || row >= item.row + 1 + kRowSlack);
  if (beside) return {StripPart::Empty, place.index};
  const bool atEnd =
      item.kind != StripKind::Mark && item.right - x <= std::min(endWidth, (item.right - item.left) / 3);
  return {atEnd ? StripPart::End : StripPart::Body, place.index};
}

RowSpan RowsOf(const ModeLimits& limits) {
  return {limits.lowestOctave * kRowsPerOctave, (limits.highestOctave + 1) * kRowsPerOctave - 1};
}

RowSpan StripLayout::Rows() const {
  RowSpan rows = RowsOf(LimitsOf(document_.Mode()));
  const RowSpan pitches = Pitches();
  rows.Add({pitches.lowest - pitches.lowest % kRowsPerOctave,
            pitches.highest - pitches.highest % kRowsPerOctave + kRowsPerOctave - 1});
  return rows;
}

RowSpan StripLayout::Pitches() const {
  const RowSpan pitches = times_.Pitches();
  return pitches.IsEmpty() ? RowsOf(LimitsOf(document_.Mode())) : pitches;
}

}  // namespace trillomat
