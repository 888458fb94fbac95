#include "cli/terminal_buffer.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "core/terminal_text.h"

namespace trillomat {
namespace {

// How much of `text` means the same whatever follows it: not the beginning of a character, nor of a line end.
size_t WholeSize(std::string_view text) {
  if (text.ends_with('\r')) return text.size() - 1;
  constexpr size_t kLongestBeginning = 3;
  for (size_t back = 1; back <= std::min(text.size(), kLongestBeginning); ++back) {
    const auto byte = static_cast<unsigned char>(text[text.size() - back]);
    if ((byte & 0xC0U) == 0x80U) continue;
    const bool isBeginning = byte >= (back == 1 ? 0xC0 : back == 2 ? 0xE0 : 0xF0);
    return isBeginning ? text.size() - back : text.size();
  }
  return text.size();
}

}  // namespace

TerminalBuffer::TerminalBuffer(std::ostream& stream, std::function<void()> beforeShown)
    : stream_(stream), terminal_(*stream.rdbuf(this)), beforeShown_(std::move(beforeShown)) {}

TerminalBuffer::~TerminalBuffer() {
  Show(waiting_.size());
  stream_.rdbuf(&terminal_);
}

bool TerminalBuffer::Show(size_t size) {
  const std::string shown = EscapedForTerminal(std::string_view(waiting_).substr(0, size));
  waiting_.erase(0, size);
  if (shown.empty()) return true;
  endsLine_ = shown.back() == '\n';
  beforeShown_();
  return terminal_.sputn(shown.data(), static_cast<std::streamsize>(shown.size())) ==
         static_cast<std::streamsize>(shown.size());
}

TerminalBuffer::int_type TerminalBuffer::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
  const char byte = traits_type::to_char_type(character);
  return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
}

std::streamsize TerminalBuffer::xsputn(const char* text, std::streamsize size) {
  constexpr size_t kMostWaiting = 4096;
  waiting_.append(text, static_cast<size_t>(size));
  return waiting_.size() < kMostWaiting || Show(WholeSize(waiting_)) ? size : 0;
}

int TerminalBuffer::sync() { return Show(WholeSize(waiting_)) ? terminal_.pubsync() : -1; }

}  // namespace trillomat
