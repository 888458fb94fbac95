// A text that is nearly always short: up to 12 characters stand in place, longer ones on the heap.
//
//   byte 0 ... 11   12          the text, its length
//   byte 0 ... 7    12 = 255    the address of the text
//
// So records that hold one are copied and moved nearly as quickly as plain bytes.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace trillomat {

class ShortText {
 public:
  /// The longest text that needs no heap.
  static constexpr size_t kInPlace = 12;

  ShortText() = default;
  explicit ShortText(std::string_view text);
  ShortText(const ShortText& other) : bytes_(other.bytes_) {
    if (other.IsElsewhere()) CopyElsewhere(other);
  }
  ShortText(ShortText&& other) noexcept : bytes_(other.bytes_) { other.bytes_[kInPlace] = 0; }
  ShortText& operator=(const ShortText& other) {
    if (this != &other) *this = ShortText(other);
    return *this;
  }
  ShortText& operator=(ShortText&& other) noexcept {
    if (this == &other) return *this;
    if (IsElsewhere()) Free();
    bytes_ = other.bytes_;
    other.bytes_[kInPlace] = 0;
    return *this;
  }
  ~ShortText() {
    if (IsElsewhere()) Free();
  }

  std::string_view View() const {
    return IsElsewhere() ? ViewElsewhere() : std::string_view(bytes_.data(), Length());
  }
  bool IsInPlace() const { return !IsElsewhere(); }

  bool operator==(const ShortText& other) const { return View() == other.View(); }

 private:
  static constexpr unsigned char kElsewhere = 255;

  unsigned char Length() const { return static_cast<unsigned char>(bytes_[kInPlace]); }
  bool IsElsewhere() const { return Length() == kElsewhere; }
  void Store(std::string_view longText);
  void CopyElsewhere(const ShortText& other);
  std::string_view ViewElsewhere() const;
  void Free();

  std::array<char, kInPlace + 1> bytes_{};
};

}  // namespace trillomat
