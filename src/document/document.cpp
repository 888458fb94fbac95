#include "document/document.h"

#include <algorithm>
#include <utility>

namespace trillomat {

Document::Document(Song song, FormatMode mode)
    : song_(std::move(song)), count_(Elements()), cursor_(-1), mode_(mode) {}

// What the change comes to: a splice or octaves beyond the end of the song are cut off there.
ChangedRange Document::RangeOf(const Change& change) const {
  const size_t at = std::min(change.at, Size());
  const bool octaves = !change.octaves.empty();
  const size_t removed = std::min(octaves ? change.octaves.size() : change.removed, Size() - at);
  return {.at = at,
          .removed = removed,
          .inserted = octaves ? removed : change.inserted.size(),
          .octaves = octaves,
          .info = change.info && *change.info != Info(),
          .mode = change.mode.has_value(),
          .file = change.file.has_value()};
}

// Makes the change of the elements, and puts into `back` what takes it back.
void Document::ChangeElements(Change& change, ChangedRange& range, Change& back) {
  back.at = range.at;
  if (range.octaves) {
    back.octaves = std::move(change.octaves);
    back.octaves.resize(range.removed);
    count_.AddOctaves(back.octaves);
    range.tonesUp = song_.SwapOctaves(range.at, back.octaves);
    count_.RemoveOctaves(back.octaves);
  } else {
    back.removed = range.inserted;
    back.inserted = Splice(range.at, range.removed, std::move(change.inserted));
  }
}

Change Document::Apply(Change change) {
  ChangedRange range = RangeOf(change);
  Change back{.cursor = cursor_, .selection = selection_};
  ChangeElements(change, range, back);
  if (change.info) back.info = std::exchange(song_.Info(), *std::move(change.info));
  if (change.mode) back.mode = std::exchange(mode_, *change.mode);
  if (range.SongChanged()) back.song = std::exchange(number_, change.song ? *change.song : ++lastNumber_);
  if (change.file) {
    if (change.file->saved == SongFile::kThisSong) change.file->saved = number_;
    back.file = std::exchange(file_, *std::move(change.file));
  }
  PlaceCursorAndSelection(change, range);
  if (range.ElementsChanged()) ++revision_;
  Tell(range);
  return back;
}

void Document::PlaceCursorAndSelection(const Change& change, ChangedRange& range) {
  const int32_t cursor = std::clamp(change.cursor.value_or(cursor_), -1, std::max(LastIndex(), -1));
  const bool keeps = !change.cursor && !range.ElementsChanged();
  const ElementRange selection = InSong(change.selection.value_or(keeps ? selection_ : ElementRange{}));
  range.cursor = std::exchange(cursor_, cursor) != cursor;
  range.selection = std::exchange(selection_, selection) != selection;
}

int32_t Document::Anchor() const {
  if (selection_.IsEmpty()) return cursor_;
  return cursor_ < selection_.begin ? selection_.end - 1 : selection_.begin - 1;
}

ElementRange Document::InSong(ElementRange range) const {
  const ElementRange cut{std::max(range.begin, 0), std::min(range.end, LastIndex() + 1)};
  return cut.IsEmpty() ? ElementRange{} : cut;
}

void Document::SetFile(std::filesystem::path file, bool changed) {
  file_ = {std::move(file), changed ? SongFile::kNothing : number_};
  Tell({.file = true});
}

ElementList Document::Elements(ElementRange range) const {
  ElementList elements;
  elements.reserve(static_cast<size_t>(range.Size()));
  ForEach(range, [&elements](const Element& element) { elements.push_back(element); });
  return elements;
}

// Keeps the counts up to date; a new song is counted afresh.
ElementList Document::Splice(size_t at, size_t removed, ElementList inserted) {
  if (removed == Size()) {
    count_ = DefaultsCount(inserted);
    return song_.Splice(at, removed, std::move(inserted));
  }
  for (const Element& element : inserted) count_.Add(element);
  ElementList gone = song_.Splice(at, removed, std::move(inserted));
  for (const Element& element : gone) count_.Remove(element);
  return gone;
}

// By index, because an observer may add another one meanwhile.
void Document::Tell(const ChangedRange& range) {
  for (size_t i = 0; i < observers_.size(); ++i) observers_[i]->DocumentChanged(range);
}

}  // namespace trillomat
