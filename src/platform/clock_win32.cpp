#include "platform/clock_win32.h"

#include <array>

#include "platform/win32.h"

namespace trillomat {
namespace {

constexpr size_t kLongest = 128;
using Buffer = std::array<wchar_t, kLongest>;

// `length` counts the zero at the end; it is 0 when the system has no text.
std::string Utf8Of(const Buffer& text, int length) {
  return length <= 1 ? "" : Utf8OfWide({text.data(), static_cast<size_t>(length - 1)}).value_or("");
}

}  // namespace

std::string Win32Clock::DateText() const {
  Buffer text{};
  const int length = GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(),
                                     static_cast<int>(text.size()), nullptr);
  return Utf8Of(text, length);
}

std::string Win32Clock::TimeText() const {
  Buffer text{};
  const int length = GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, nullptr, nullptr, text.data(),
                                     static_cast<int>(text.size()));
  return TimeInCodePage(Utf8Of(text, length));
}

}  // namespace trillomat
