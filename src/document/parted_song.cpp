#include "document/parted_song.h"

#include <iterator>
#include <limits>
#include <utility>

#include "core/tone.h"

namespace trillomat {
namespace {

// Takes the last `count` elements of one list and appends them to the other in reverse order.
void MoveEnd(size_t count, ElementList& from, ElementList& to) {
  const auto end = from.rbegin() + static_cast<std::ptrdiff_t>(count);
  to.insert(to.end(), std::make_move_iterator(from.rbegin()), std::make_move_iterator(end));
  from.erase(end.base(), from.end());
}

}  // namespace

const Song& PartedSong::Whole() const {
  PartAt(Size());
  return *front_;
}

std::shared_ptr<const Song> PartedSong::Shared() const {
  PartAt(Size());
  return front_;
}

// The song, to be changed: copied before if somebody shares it, who must not see the change.
Song& PartedSong::Own() const {
  if (front_.use_count() > 1) front_ = std::make_shared<Song>(*front_);
  return *front_;
}

void PartedSong::PartAt(size_t at) const {
  const size_t front = front_->elements.size();
  if (at < front) MoveEnd(front - at, Own().elements, back_);
  if (at > front) MoveEnd(at - front, back_, Own().elements);
}

ElementList PartedSong::Splice(size_t at, size_t removed, ElementList inserted) {
  // Another song: the lists are exchanged, so that no element is moved by itself.
  if (removed == Size()) {
    PartAt(Size());
    return std::exchange(Own().elements, std::move(inserted));
  }
  PartAt(at);
  ElementList gone;
  MoveEnd(removed, back_, gone);
  ElementList& front = Own().elements;
  front.insert(front.end(), std::make_move_iterator(inserted.begin()),
               std::make_move_iterator(inserted.end()));
  return gone;
}

std::optional<int> PartedSong::SwapOctaves(size_t at, std::span<int16_t> octaves) {
  constexpr int kNotYet = std::numeric_limits<int>::max();
  int tonesUp = kNotYet;
  bool alike = true;
  const auto swap = [&](Element& element, int16_t& octave) {
    const int up = octave - element.octave;
    std::swap(element.octave, octave);
    if (up == tonesUp || SemitoneOf(element.Note()) < 0) return;
    alike = alike && tonesUp == kNotYet;
    tonesUp = up;
  };
  ElementList& front = Own().elements;
  const size_t last = Size() - 1;
  const size_t inFront = std::clamp(front.size(), at, at + octaves.size()) - at;
  for (size_t i = 0; i < inFront; ++i) swap(front[at + i], octaves[i]);
  for (size_t i = inFront; i < octaves.size(); ++i) swap(back_[last - at - i], octaves[i]);
  return alike && tonesUp != kNotYet ? std::optional(tonesUp) : std::nullopt;
}

}  // namespace trillomat
