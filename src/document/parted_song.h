// The song of a document. Its elements stand in two lists, parted where they were changed last, so that
// changes close to each other take the same time however many elements there are.
//
//   front: 0 1 2 3 |   back, from its end on: 4 5 6 7
#pragma once

#include "core/song.h"

namespace trillomat {

class PartedSong {
 public:
  PartedSong() = default;
  explicit PartedSong(Song song) : front_(std::move(song)) {}

  SongInfo& Info() { return front_.info; }
  const SongInfo& Info() const { return front_.info; }

  size_t Size() const { return front_.elements.size() + back_.size(); }
  /// The element at `index`, which must exist.
  const Element& At(size_t index) const {
    return index < front_.elements.size() ? front_.elements[index] : back_[Size() - 1 - index];
  }
  /// The song in one piece, until the next splice. References to its elements end.
  const Song& Whole() const;

  /// Puts `inserted` in the place of the `removed` elements from `at` on, which must exist, and returns
  /// those. Takes time for what is put and removed and for the way from the last splice.
  ElementList Splice(size_t at, size_t removed, ElementList inserted);

 private:
  void PartAt(size_t at) const;

  // Where the song is parted can be told by nobody, so it changes behind a const.
  mutable Song front_;
  mutable ElementList back_;
};

}  // namespace trillomat
