// Numbers as text and back, the one place where the program's conversions are made.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace trillomat {

/// The number at the start of `text`: blanks, a sign, digits and one decimal point; no exponent and
/// no hexadecimal. 0 when there is none; infinite when it exceeds a double.
double LeadingNumber(std::string_view text);

/// Rounds to the nearest integer, halves to even; nothing when the result does not fit.
std::optional<int16_t> RoundToInt16(double value);
std::optional<int32_t> RoundToInt32(double value);

/// Decimal text with the sign position dropped: "120" for 120 and for -120.
std::string DecimalText(int64_t value);

/// Decimal text with a blank in the sign position of a number that is not negative: " 2", "-2".
std::string SignedText(int64_t value);

/// "1 tone" or "2 tones": the number and the one word or the other.
std::string Counted(size_t count, std::string_view one, std::string_view more);

/// The shortest decimal text of a single-precision number: "0.25", "4", "-1".
std::string FloatText(float value);

}  // namespace trillomat
