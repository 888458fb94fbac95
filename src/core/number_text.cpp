#include "core/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "core/ascii.h"

namespace trillomat {
namespace {

// The digits and the point of the number at the start of `text`.
std::string_view NumberPart(std::string_view text) {
  size_t end = 0;
  bool point = false;
  while (end < text.size() && (IsDigit(text[end]) || (text[end] == '.' && !point))) {
    point = point || text[end] == '.';
    ++end;
  }
  return text.substr(0, end);
}

// The whole number that `text` is and nothing else, if it is exact as a double: most are, and need no
// conversion of decimals.
std::optional<double> WholeNumber(std::string_view text) {
  constexpr size_t kExactDigits = 15;
  if (text.empty() || text.size() > kExactDigits) return std::nullopt;
  int64_t value = 0;
  for (const char c : text) {
    if (!IsDigit(c)) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return static_cast<double>(value);
}

template <typename Int>
std::optional<Int> RoundTo(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<Int>::min() && rounded <= std::numeric_limits<Int>::max())) {
    return std::nullopt;
  }
  return static_cast<Int>(rounded);
}

}  // namespace

double LeadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const std::string_view part = NumberPart(text);
  if (const auto whole = WholeNumber(part)) return negative ? -*whole : *whole;
  double value = 0;
  const auto result =
      std::from_chars(part.data(), part.data() + part.size(), value, std::chars_format::fixed);
  if (result.ec == std::errc::result_out_of_range) {
    // Too large and too small share one error code; a number below 1 has no digit but 0 before its point.
    const bool large = part.substr(0, part.find('.')).find_first_not_of('0') != std::string_view::npos;
    value = large ? std::numeric_limits<double>::infinity() : 0;
  }
  return negative ? -value : value;
}

std::optional<int16_t> RoundToInt16(double value) { return RoundTo<int16_t>(value); }

std::optional<int32_t> RoundToInt32(double value) { return RoundTo<int32_t>(value); }

std::string DecimalText(int64_t value) {
  std::string text = std::to_string(value);
  if (value < 0) text.erase(0, 1);
  return text;
}

std::string SignedText(int64_t value) { return (value < 0 ? "" : " ") + std::to_string(value); }

std::string Counted(size_t count, std::string_view one, std::string_view more) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : more);
}

std::string FloatText(float value) {
  std::array<char, 64> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), result.ptr};
}

}  // namespace trillomat
