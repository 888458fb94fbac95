// The song of a document. Its elements stand in two lists, parted where they were changed last (a gap
// buffer), so that changes close to each other take the same time however many elements there are.
//
//   front: 0 1 2 3 |   back, from its end on: 4 5 6 7
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <span>

#include "core/song.h"

namespace trillomat {

class PartedSong {
 public:
  PartedSong() = default;
  explicit PartedSong(Song song) : front_(std::make_shared<Song>(std::move(song))) {}

  SongInfo& Info() { return Own().info; }
  const SongInfo& Info() const { return front_->info; }

  size_t Size() const { return front_->elements.size() + back_.size(); }
  /// The element at `index`, which must exist.
  const Element& At(size_t index) const {
    return index < front_->elements.size() ? front_->elements[index] : back_[Size() - 1 - index];
  }
  /// Calls `visit` with each element from `begin` up to `end`, which must exist, in their order: quicker than
  /// asking for each with At.
  template <typename Visit>
  void ForEach(size_t begin, size_t end, Visit visit) const {
    const ElementList& front = front_->elements;
    const size_t parted = std::clamp(front.size(), begin, end);
    for (size_t i = begin; i < parted; ++i) visit(front[i]);
    const size_t last = Size() - 1;
    for (size_t i = parted; i < end; ++i) visit(back_[last - i]);
  }

  /// The song in one piece, until the next splice. References to its elements become invalid.
  const Song& Whole() const;
  /// The song as it is now. It stays so: this one is copied when it changes while somebody holds that.
  std::shared_ptr<const Song> Shared() const;

  /// Puts `inserted` in the place of the `removed` elements from `at` on, which must exist, and returns those
  /// that were removed. Takes time in proportion to both, and to the distance from the last splice.
  ElementList Splice(size_t at, size_t removed, ElementList inserted);

  /// Exchanges `octaves` with those of the elements from `at` on, which must exist. Returns by how many
  /// octaves all tones among them moved; nothing where they moved differently, or there are none.
  std::optional<int> SwapOctaves(size_t at, std::span<int16_t> octaves);

 private:
  void PartAt(size_t at) const;
  Song& Own() const;

  // Where the song is parted cannot be seen from outside, so it may change in a const object.
  mutable std::shared_ptr<Song> front_ = std::make_shared<Song>();
  mutable ElementList back_;
};

}  // namespace trillomat
