#include "files/output_buffer.h"

namespace trillomat {

int OutputBuffer::overflow(int c) {
  if (sync() != 0) return traits_type::eof();
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  return sputc(traits_type::to_char_type(c));
}

int OutputBuffer::sync() {
  const std::string_view collected(pbase(), static_cast<size_t>(pptr() - pbase()));
  setp(block_.data(), block_.data() + block_.size());
  return file_.Write(collected) ? 0 : -1;
}

}  // namespace trillomat
