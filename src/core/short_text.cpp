#include "core/short_text.h"

#include <cstring>
#include <memory>
#include <string>

namespace trillomat {
namespace {

using Address = const std::string*;
constexpr size_t kAddressSize = sizeof(Address);  // NOLINT(bugprone-sizeof-expression): the address is meant

// The address stands among bytes of any alignment, so it is copied in and out.
Address TextAt(const char* bytes) {
  Address text = nullptr;
  std::memcpy(&text, bytes, kAddressSize);
  return text;
}

}  // namespace

ShortText::ShortText(std::string_view text) {
  if (text.size() > kInPlace) {
    Store(text);
  } else {
    text.copy(bytes_.data(), text.size());
    bytes_[kInPlace] = static_cast<char>(text.size());
  }
}

void ShortText::Store(std::string_view longText) {
  const Address text = std::make_unique<const std::string>(longText).release();
  std::memcpy(bytes_.data(), &text, kAddressSize);
  bytes_[kInPlace] = static_cast<char>(kElsewhere);
}

// The bytes still hold the address of the other's text, which must not be freed here if there is no memory.
void ShortText::CopyElsewhere(const ShortText& other) {
  bytes_[kInPlace] = 0;
  Store(other.View());
}

std::string_view ShortText::ViewElsewhere() const { return *TextAt(bytes_.data()); }

void ShortText::Free() { const std::unique_ptr<const std::string> text(TextAt(bytes_.data())); }

}  // namespace trillomat
