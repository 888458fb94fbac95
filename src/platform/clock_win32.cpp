#include "platform/clock_win32.h"

#include <algorithm>
#include <array>

#include "core/code_page.h"
#include "platform/win32.h"

namespace trillomat {
namespace {

constexpr size_t kLongest = 128;
using Buffer = std::array<wchar_t, kLongest>;

// Letters that the code page lacks are left out: "?", which stands for them elsewhere, cannot be in the
// name of the log file.
std::string CodePageText(const Buffer& text, int length) {
  if (length <= 1) return {};
  const auto utf8 = Utf8OfWide({text.data(), static_cast<size_t>(length - 1)});
  std::string known = FromUtf8(utf8.value_or("")).value_or("");
  std::erase(known, '?');
  return known;
}

}  // namespace

std::string Win32Clock::DateText() const {
  Buffer text{};
  const int length = GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(),
                                     static_cast<int>(text.size()), nullptr);
  return CodePageText(text, length);
}

std::string Win32Clock::TimeText() const {
  Buffer text{};
  const int length = GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, nullptr, nullptr, text.data(),
                                     static_cast<int>(text.size()));
  return CodePageText(text, length);
}

}  // namespace trillomat
