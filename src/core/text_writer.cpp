#include "core/text_writer.h"

#include <utility>

namespace trillomat {

// By a block of limited size, so that what resize clears is still in the processor's cache when it is
// written.
void TextWriter::Grow(size_t least) {
  constexpr size_t kFewest = 256;
  constexpr size_t kMost = 32768;
  const size_t size = Size();
  text_.resize(size + std::max(least, std::clamp(size, kFewest, kMost)));
  at_ = text_.data() + size;
  end_ = text_.data() + text_.size();
}

void TextWriter::Add(std::string_view piece) {
  if (Left() < piece.size()) Grow(piece.size());
  at_ = std::copy(piece.begin(), piece.end(), at_);
}

void TextWriter::AddAgain(size_t begin, size_t size) {
  if (Left() < size) Grow(size);
  at_ = std::copy_n(text_.data() + begin, size, at_);
}

std::string TextWriter::Take() {
  text_.resize(Size());
  at_ = end_ = nullptr;
  return std::move(text_);
}

}  // namespace trillomat
