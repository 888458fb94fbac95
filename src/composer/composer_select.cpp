// The composer's selecting, and what is done to selected elements or to one that is pointed at.
#include <algorithm>
#include <string>
#include <utility>

#include "composer/composer.h"
#include "composer/transpose.h"

namespace trillomat {
namespace {

// What makes one step of all that is done to an element while it is dragged.
std::string DragOf(int32_t index) { return "drag " + std::to_string(index); }

}  // namespace

void Composer::SelectTo(int32_t cursor) {
  if (!MayEdit() || document_.IsEmpty()) return;
  const int32_t began = document_.Anchor();
  const int32_t to = std::clamp(cursor, -1, document_.LastIndex());
  document_.Apply(
      {.cursor = to, .selection = ElementRange{std::min(began, to) + 1, std::max(began, to) + 1}});
  RefreshMelodyView();
}

void Composer::SelectElements(ElementRange range) {
  if (!MayEdit() || document_.IsEmpty()) return;
  document_.Apply({.cursor = range.end - 1, .selection = range});
  RefreshMelodyView();
}

ElementRange Composer::SelectionOrAll() const {
  const ElementRange selected = document_.Selection();
  return selected.IsEmpty() ? ElementRange{0, document_.LastIndex() + 1} : selected;
}

ElementList Composer::Selected() const { return document_.Elements(document_.Selection()); }

void Composer::EraseSelected(std::string_view step) {
  const ElementRange selected = document_.Selection();
  if (!MayEdit() || selected.IsEmpty()) return;
  history_.Do(step, {.at = static_cast<size_t>(selected.begin),
                     .removed = static_cast<size_t>(selected.Size()),
                     .cursor = selected.begin - 1});
  RefreshMelodyView();
}

void Composer::Paste(ElementList elements) {
  if (!MayEdit() || elements.empty()) return;
  const ElementRange selected = document_.Selection();
  const int32_t behind = std::min(document_.Cursor(), document_.LastIndex()) + 1;
  const int32_t at = selected.IsEmpty() ? behind : selected.begin;
  const auto count = static_cast<int32_t>(elements.size());
  history_.Do("pasting", {.at = static_cast<size_t>(at),
                          .removed = static_cast<size_t>(selected.Size()),
                          .inserted = std::move(elements),
                          .cursor = at + count - 1});
  RefreshMelodyView();
}

void Composer::Duplicate() {
  const ElementRange selected = document_.Selection();
  const ElementRange copied =
      selected.IsEmpty() ? ElementRange{document_.Cursor(), document_.Cursor() + 1} : selected;
  if (!MayEdit() || !document_.HasElement(copied.begin)) return;
  const int32_t end = copied.end + copied.Size();
  const std::optional<ElementRange> copy(ElementRange{copied.end, end});
  history_.Do("duplicating", {.at = static_cast<size_t>(copied.end),
                              .inserted = document_.Elements(copied),
                              .cursor = end - 1,
                              .selection = selected.IsEmpty() ? std::nullopt : copy});
  RefreshMelodyView();
}

void Composer::MoveScale(int16_t octaves) {
  if (!MayEdit() || document_.IsEmpty()) return;
  const ElementRange range = SelectionOrAll();
  auto moved = MovedOctaves(document_, range, octaves, services_.log);
  if (moved) {
    history_.Do(octaves < 0 ? "scale down" : "scale up", {.at = static_cast<size_t>(range.begin),
                                                          .octaves = *std::move(moved),
                                                          .selection = document_.Selection()});
  }
  RefreshMelodyView();
}

void Composer::MoveSemitones(int semitones) {
  if (!MayEdit() || document_.IsEmpty()) return;
  const ElementRange range = SelectionOrAll();
  auto moved = TransposedBySemitones(document_.Elements(range), semitones, document_.Mode(), services_.log,
                                     int64_t{range.begin} + 1);
  if (moved) {
    history_.Do("transposing", {.at = static_cast<size_t>(range.begin),
                                .removed = moved->size(),
                                .inserted = *std::move(moved),
                                .selection = document_.Selection()});
  }
  RefreshMelodyView();
}

void Composer::TakeLengthAndOctave(int32_t index) {
  if (!document_.HasElement(index)) return;
  const Element element = document_.At(index);
  const int duration = DurationIndex(element.duration);
  const int extra = DurationExtraIndex(element.extra);
  if (duration >= 0 && HasDuration(duration)) SelectDuration(duration);
  if (extra >= 0 && HasDurationExtra(extra)) SelectDurationExtra(extra);
  if (element.octave != kNoOctave) SetOctave(element.octave);
}

void Composer::MoveTone(int32_t index, int semitones) {
  if (!MayEdit() || !document_.HasElement(index)) return;
  Element moved = Moved(document_.At(index), semitones);
  if (moved == document_.At(index) || !LimitsOf(document_.Mode()).HasOctave(moved.octave)) return;
  Replace(index, std::move(moved), "moving a tone", DragOf(index));
  if (settings_.playComposing) sound_.Play(index, EditSound::Cause::Other);
}

void Composer::SetLength(int32_t index, int duration, int extra) {
  if (!MayEdit() || !document_.HasElement(index) || !HasDuration(duration)) return;
  if (extra != 0 && !HasDurationExtra(extra)) return;
  Element element = document_.At(index);
  element.duration = kDurations.at(static_cast<size_t>(duration));
  element.extra = kDurationExtras.at(static_cast<size_t>(extra));
  if (element == document_.At(index) || !element.Command().empty()) return;
  Replace(index, std::move(element), "change of length", DragOf(index));
  if (settings_.playComposing) sound_.Play(index, EditSound::Cause::Other);
}

}  // namespace trillomat
