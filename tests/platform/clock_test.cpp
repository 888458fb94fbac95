#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <thread>

#include "platform/clock_std.h"

namespace trillomat {
namespace {

using std::chrono::milliseconds;
using std::chrono::system_clock;

/// A locale that writes every date and time as `text`.
class AnyTime : public std::time_put<char> {
 public:
  explicit AnyTime(std::string text) : text_(std::move(text)) {}

 private:
  iter_type do_put(iter_type out, std::ios_base& /*stream*/, char_type /*fill*/, const std::tm* /*time*/,
                   char /*format*/, char /*modifier*/) const override {
    return std::copy(text_.begin(), text_.end(), out);
  }
  std::string text_;
};

TEST(StdClock, GoesOnFromItsStartAndBeginsAnewAtMidnight) {
  std::time_t now = system_clock::to_time_t(system_clock::now());
  std::tm day = *std::localtime(&now);
  day.tm_hour = 23;
  day.tm_min = day.tm_sec = 59;
  day.tm_isdst = -1;
  // Another time than the system's, so that a clock that asks the system again is noticed.
  const StdClock clock(std::locale::classic(),
                       system_clock::from_time_t(std::mktime(&day)) + milliseconds(900));
  EXPECT_NEAR(clock.SecondsSinceMidnight(), 86399.9, 0.09);
  std::this_thread::sleep_for(milliseconds(120));
  EXPECT_NEAR(clock.SecondsSinceMidnight(), 0.02, 0.9);
}

TEST(StdClock, WritesDatesInUtf8AndTimesInTheCodePage) {
  struct Case {
    const char* text;
    const char* date;
    const char* time;  // a pattern
  };
  const char* const plain = "^..:..:..$";
  for (const Case& c :
       {Case{"14.05.2002", "14.05.2002", "^14.05.2002$"}, Case{"5 \u00e9 ?", "5 \u00e9 ?", "^5 \xe9 \\?$"},
        Case{"\u06f2\u06f6/\u06f1", "\u06f2\u06f6/\u06f1", plain}, Case{"5\u202fPM", "5\u202fPM", plain},
        Case{"5 \xe9", "5 \u00e9", "^5 \xe9$"}}) {
    const StdClock clock(std::locale(std::locale::classic(), new AnyTime(c.text)), system_clock::now());
    EXPECT_EQ(clock.DateText(), c.date);
    EXPECT_THAT(clock.TimeText(), testing::ContainsRegex(c.time)) << c.text;
  }
}

}  // namespace
}  // namespace trillomat
