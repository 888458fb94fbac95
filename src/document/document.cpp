#include "document/document.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace trillomat {

Document::Document(Song song, FormatMode mode)
    : song_(std::move(song)), count_(song_.elements), cursor_(-1), mode_(mode) {}

Change Document::Apply(Change change) {
  const size_t at = std::min(change.at, song_.elements.size());
  const size_t removed = std::min(change.removed, song_.elements.size() - at);
  ChangedRange range{.at = at,
                     .removed = removed,
                     .inserted = change.inserted.size(),
                     .info = change.info && *change.info != song_.info,
                     .mode = change.mode.has_value(),
                     .file = change.file.has_value()};
  Change back{.at = at, .removed = range.inserted, .cursor = cursor_, .selection = selection_};
  back.inserted = Splice(at, removed, std::move(change.inserted));
  if (change.info) back.info = std::exchange(song_.info, *std::move(change.info));
  if (change.mode) back.mode = std::exchange(mode_, *change.mode);
  if (range.SongChanged()) back.song = std::exchange(number_, change.song ? *change.song : ++lastNumber_);
  if (change.file) {
    if (change.file->saved == SongFile::kThisSong) change.file->saved = number_;
    back.file = std::exchange(file_, *std::move(change.file));
  }
  Place(change, range);
  if (range.ElementsChanged()) ++revision_;
  Tell(range);
  return back;
}

// Cursor and selection.
void Document::Place(const Change& change, ChangedRange& range) {
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

// A new song takes the place of the old one as a whole; what goes and what comes are moved, not copied.
ElementList Document::Splice(size_t at, size_t removed, ElementList inserted) {
  ElementList& all = song_.elements;
  if (removed == all.size()) {
    count_ = DefaultsCount(inserted);
    return std::exchange(all, std::move(inserted));
  }
  for (const Element& element : inserted) count_.Add(element);
  const auto first = all.begin() + static_cast<std::ptrdiff_t>(at);
  const auto last = first + static_cast<std::ptrdiff_t>(removed);
  for (auto element = first; element != last; ++element) count_.Remove(*element);
  ElementList gone(std::make_move_iterator(first), std::make_move_iterator(last));
  const size_t both = std::min(removed, inserted.size());
  const auto middle =
      std::move(inserted.begin(), inserted.begin() + static_cast<std::ptrdiff_t>(both), first);
  all.erase(middle, last);
  all.insert(all.begin() + static_cast<std::ptrdiff_t>(at + both),
             std::make_move_iterator(inserted.begin() + static_cast<std::ptrdiff_t>(both)),
             std::make_move_iterator(inserted.end()));
  return gone;
}

// By index, because an observer may add another.
void Document::Tell(const ChangedRange& range) {
  for (size_t i = 0; i < observers_.size(); ++i) observers_[i]->DocumentChanged(range);
}

}  // namespace trillomat
