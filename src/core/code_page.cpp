#include "core/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace trillomat {
namespace {

// The characters of bytes 0x80 to 0x9F; all other bytes are their own code point.
constexpr std::array<char32_t, 32> kHighControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t CodePointOf(unsigned char byte) {
  return byte >= 0x80 && byte <= 0x9F ? kHighControls.at(byte - 0x80U) : byte;
}

std::optional<char> ByteOf(char32_t codePoint) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) return static_cast<char>(codePoint);
  const auto* const found = std::find(kHighControls.begin(), kHighControls.end(), codePoint);
  if (found == kHighControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + (found - kHighControls.begin()));
}

// What the first byte of a character in UTF-8 tells.
struct Sequence {
  size_t length;    // bytes in all
  char32_t lowest;  // code point; anything below is an overlong form
  char32_t bits;    // of the code point, those that the first byte carries
};

std::optional<Sequence> SequenceOf(unsigned char lead) {
  if (lead < 0x80) return Sequence{1, 0, lead};
  if (lead >= 0xC2 && lead < 0xE0) return Sequence{2, 0x80, lead & 0x1FU};
  if (lead >= 0xE0 && lead < 0xF0) return Sequence{3, 0x800, lead & 0x0FU};
  if (lead >= 0xF0 && lead < 0xF5) return Sequence{4, 0x10000, lead & 0x07U};
  return std::nullopt;
}

}  // namespace

std::string ToUtf8(std::string_view codePageText) {
  std::string result;
  result.reserve(codePageText.size());
  for (const char c : codePageText) AppendUtf8(result, CodePointOf(static_cast<unsigned char>(c)));
  return result;
}

std::optional<std::string> FromUtf8(std::string_view utf8) {
  std::string result;
  result.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto codePoint = TakeCharacter(utf8);
    if (!codePoint) return std::nullopt;
    result += ByteOf(*codePoint).value_or('?');
  }
  return result;
}

void AppendUtf8(std::string& out, char32_t codePoint) {
  if (codePoint < 0x80) {
    out += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    out += static_cast<char>(0xC0 | (codePoint >> 6U));
    out += static_cast<char>(0x80 | (codePoint & 0x3FU));
  } else {
    out += static_cast<char>(0xE0 | (codePoint >> 12U));
    out += static_cast<char>(0x80 | ((codePoint >> 6U) & 0x3FU));
    out += static_cast<char>(0x80 | (codePoint & 0x3FU));
  }
}

std::optional<char32_t> TakeCharacter(std::string_view& utf8) {
  const auto sequence = SequenceOf(static_cast<unsigned char>(utf8.front()));
  if (!sequence || utf8.size() < sequence->length) return std::nullopt;
  char32_t codePoint = sequence->bits;
  for (const char c : utf8.substr(1, sequence->length - 1)) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0U) != 0x80U) return std::nullopt;
    codePoint = (codePoint << 6U) | (byte & 0x3FU);
  }
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (codePoint < sequence->lowest || codePoint > 0x10FFFF || surrogate) return std::nullopt;
  utf8.remove_prefix(sequence->length);
  return codePoint;
}

bool CodePageHas(char32_t codePoint) { return ByteOf(codePoint).has_value(); }

}  // namespace trillomat
