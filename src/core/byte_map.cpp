#include "core/byte_map.h"

namespace trillomat {

// Every byte is written, and overwritten by the next one if it does not stay: so there is no branch for the
// processor to guess wrong.
std::string ByteMap::operator()(std::string_view text) const {
  std::string result(text.size(), '\0');
  size_t size = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    result[size] = replacements_[byte];
    size += stays_[byte] ? 1 : 0;
  }
  result.resize(size);
  return result;
}

}  // namespace trillomat
