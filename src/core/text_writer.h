// Writes a long text piece by piece, as quickly as its bytes can be copied.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace trillomat {

/// A short text that is written many times, of at most kRoom characters.
template <size_t kRoom>
struct ReadyText {
  static_assert(kRoom < 256);

  std::array<char, kRoom> characters{};
  uint8_t size = 0;

  static bool Holds(std::string_view text) { return text.size() <= kRoom; }

  ReadyText() = default;
  /// `text` is one that Holds takes.
  explicit ReadyText(std::string_view text) : size(static_cast<uint8_t>(text.size())) {
    text.copy(characters.data(), kRoom);
  }
};

class TextWriter {
 public:
  /// `expected`: about how many bytes will be written. Room for them is made at once.
  explicit TextWriter(size_t expected) { text_.reserve(expected); }

  size_t Size() const { return text_.size() - Left(); }

  template <size_t kRoom>
  void Add(const ReadyText<kRoom>& piece) {
    AddFront(piece, piece.size);
  }
  /// The first `size` characters of it.
  template <size_t kRoom>
  void AddFront(const ReadyText<kRoom>& piece, size_t size) {
    // All of its characters are copied, used or not: a copy of a fixed size is a move or two.
    if (Left() < kRoom) Grow(kRoom);
    std::memcpy(at_, piece.characters.data(), kRoom);
    at_ += size;
  }
  /// `piece` must not be a part of what was written.
  void Add(std::string_view piece);
  /// Writes once more the `size` characters that were written from `begin` on.
  void AddAgain(size_t begin, size_t size);

  /// Forgets what was written.
  void Clear() {
    at_ = text_.data();
    end_ = at_ + text_.size();
  }
  /// What was written. The last call: nothing can be written any more.
  std::string Take();

 private:
  size_t Left() const { return static_cast<size_t>(end_ - at_); }
  void Grow(size_t least);

  std::string text_;    ///< what was written, and behind it the room that is left
  char* at_ = nullptr;  ///< where the next character goes
  char* end_ = nullptr;
};

}  // namespace trillomat
