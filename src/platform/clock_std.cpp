#include "platform/clock_std.h"

#include <chrono>
#include <ctime>
#include <iomanip>
#include <sstream>
#include <stdexcept>

#include "core/code_page.h"

namespace trillomat {
namespace {

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

std::locale UserLocale() {
  try {
    return std::locale("");
  } catch (const std::runtime_error&) {  // a locale is named that the system does not have
    return std::locale::classic();
  }
}

}  // namespace

StdClock::StdClock() : locale_(UserLocale()) {}

double StdClock::SecondsSinceMidnight() const {
  const auto now = system_clock::now();
  const std::tm local = LocalTime(std::chrono::floor<std::chrono::seconds>(now));
  const std::chrono::duration<double> fraction = now - std::chrono::floor<std::chrono::seconds>(now);
  return local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec + fraction.count();
}

std::string StdClock::DateText() const { return NowAs("%x"); }

std::string StdClock::TimeText() const { return NowAs("%X"); }

std::string StdClock::NowAs(const char* format) const {
  const std::tm local = LocalTime(system_clock::now());
  std::ostringstream text;
  text.imbue(locale_);
  text << std::put_time(&local, format);
  // Most locales write UTF-8; the bytes of any other stay as they are.
  return FromUtf8(text.str()).value_or(text.str());
}

}  // namespace trillomat
