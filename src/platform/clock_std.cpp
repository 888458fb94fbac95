#include "platform/clock_std.h"

#include <cmath>
#include <ctime>
#include <iomanip>
#include <sstream>
#include <stdexcept>

#include "core/code_page.h"

namespace trillomat {
namespace {

using std::chrono::steady_clock;
using std::chrono::system_clock;

std::tm LocalTime(system_clock::time_point time) {
  const std::time_t seconds = system_clock::to_time_t(time);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &seconds);
#else
  localtime_r(&seconds, &local);
#endif
  return local;
}

double TimeOfDay(system_clock::time_point time) {
  const auto second = std::chrono::floor<std::chrono::seconds>(time);
  const std::tm local = LocalTime(second);
  const std::chrono::duration<double> fraction = time - second;
  return local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec + fraction.count();
}

std::locale UserLocale() {
  try {
    return std::locale("");
  } catch (const std::runtime_error&) {  // a locale is named that the system does not have
    return std::locale::classic();
  }
}

std::string NowAs(const char* format, const std::locale& locale) {
  const std::tm local = LocalTime(system_clock::now());
  std::ostringstream text;
  text.imbue(locale);
  text << std::put_time(&local, format);
  return text.str();
}

}  // namespace

StdClock::StdClock() : StdClock(UserLocale(), system_clock::now()) {}

StdClock::StdClock(const std::locale& locale, system_clock::time_point start)
    : locale_(locale), start_(TimeOfDay(start)) {}

double StdClock::SecondsSinceMidnight() const {
  const std::chrono::duration<double> since = steady_clock::now() - begin_;
  return std::fmod(start_ + since.count(), 24 * 3600);
}

// Most locales write UTF-8; the bytes of any other count as Windows-1252.
std::string StdClock::DateText() const {
  const std::string text = NowAs("%x", locale_);
  return FromUtf8(text) ? text : ToUtf8(text);
}

std::string StdClock::TimeText() const { return TimeInCodePage(NowAs("%X", locale_)); }

std::string StdClock::TimeInCodePage(const std::string& utf8) {
  const std::string text = FromUtf8(utf8).value_or(utf8);
  const bool whole = text == utf8 || ToUtf8(text) == utf8;
  return whole ? text : NowAs("%H:%M:%S", std::locale::classic());
}

}  // namespace trillomat
