#include "document/parted_song.h"

#include <iterator>
#include <utility>

namespace trillomat {
namespace {

// The last elements of one list become the last of the other, the other way round.
void MoveEnd(size_t count, ElementList& from, ElementList& to) {
  const auto end = from.rbegin() + static_cast<std::ptrdiff_t>(count);
  to.insert(to.end(), std::make_move_iterator(from.rbegin()), std::make_move_iterator(end));
  from.erase(end.base(), from.end());
}

}  // namespace

const Song& PartedSong::Whole() const {
  PartAt(Size());
  return front_;
}

void PartedSong::PartAt(size_t at) const {
  const size_t front = front_.elements.size();
  if (at < front) MoveEnd(front - at, front_.elements, back_);
  if (at > front) MoveEnd(at - front, back_, front_.elements);
}

ElementList PartedSong::Splice(size_t at, size_t removed, ElementList inserted) {
  // A new song takes the place of the old one as a whole; what goes and what comes are not moved one by one.
  if (removed == Size()) {
    PartAt(Size());
    return std::exchange(front_.elements, std::move(inserted));
  }
  PartAt(at);
  ElementList gone;
  MoveEnd(removed, back_, gone);
  front_.elements.insert(front_.elements.end(), std::make_move_iterator(inserted.begin()),
                         std::make_move_iterator(inserted.end()));
  return gone;
}

}  // namespace trillomat
