#include "platform/tone_mixer.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <utility>

namespace trillomat {
namespace {

constexpr int64_t kBuffer = 1024;
constexpr int64_t kLatency = 1536;
constexpr int16_t kHigh = 1000;
constexpr int16_t kLow = -1000;

/// A tone of one level from `begin` to `end`, so that its samples show its place and its ramps.
struct Event {
  int64_t begin;
  int64_t end;
  int16_t level = kHigh;
};

/// A sound card that asks at the given times, with the program starting and stopping tones meanwhile.
class Card {
 public:
  explicit Card(std::vector<Event> events) : events_(std::move(events)) {}

  void Ask(int64_t now) {
    for (; next_ < 2 * events_.size(); ++next_) {
      const Event& event = events_[next_ / 2];
      const bool start = next_ % 2 == 0;
      if ((start ? event.begin : event.end) > now) break;
      if (start) {
        mixer.Start({event.level}, event.begin);
      } else {
        mixer.Stop(event.end);
      }
    }
    const size_t size = out.size();
    out.resize(size + kBuffer);
    mixer.Render(std::span(out).subspan(size), now);
  }

  void AskRegularly(int64_t from, int64_t to) {
    for (int64_t now = from; now < to; now += kBuffer) Ask(now);
  }

  /// When the card asks next, if it asks regularly.
  int64_t Asked() const { return static_cast<int64_t>(out.size()); }

  /// The lengths of the stretches of one sign: positive above, negative below, with silence as "0".
  std::vector<std::pair<int, int64_t>> Runs() const {
    std::vector<std::pair<int, int64_t>> runs;
    for (const int16_t sample : out) {
      const int sign = (sample > 0 ? 1 : 0) - (sample < 0 ? 1 : 0);
      if (runs.empty() || runs.back().first != sign) runs.emplace_back(sign, 0);
      ++runs.back().second;
    }
    return runs;
  }

  ToneMixer mixer{kLatency};
  std::vector<int16_t> out;

 private:
  std::vector<Event> events_;
  size_t next_ = 0;  // two steps an event
};

// Random tones and gaps of 10 to 200 ms, beginning at 10000.
std::vector<Event> RandomEvents(std::mt19937& random, int count) {
  std::uniform_int_distribution<int64_t> length(441, 8820);
  std::vector<Event> events;
  int64_t at = 10000;
  for (int i = 0; i < count; ++i) {
    const int64_t end = at + length(random);
    events.push_back({at, end, i % 2 == 0 ? kHigh : kLow});
    at = end + (i % 3 == 0 ? length(random) : 0);
  }
  return events;
}

// Tones, their order and the gaps between them have to be as exact as if there were no buffers.
void ExpectExact(const Card& card, const std::vector<Event>& events) {
  std::vector<std::pair<int, int64_t>> expected;
  for (size_t i = 0; i < events.size(); ++i) {
    if (i > 0 && events[i].begin > events[i - 1].end)
      expected.emplace_back(0, events[i].begin - events[i - 1].end);
    expected.emplace_back(events[i].level > 0 ? 1 : -1, events[i].end - events[i].begin);
  }
  auto runs = card.Runs();
  ASSERT_GE(runs.size(), 2U);
  runs.erase(runs.begin());
  runs.pop_back();
  EXPECT_EQ(runs, expected);
}

TEST(ToneMixer, KeepsLengthsAndGapsHoweverTheCardAsks) {
  std::mt19937 random(1);
  const auto events = RandomEvents(random, 60);
  for (const int jitter : {0, 100, 250}) {
    std::uniform_int_distribution<int64_t> shift(-jitter, jitter);
    Card card(events);
    for (int64_t now = 0; now < events.back().end + 5000; now += kBuffer) card.Ask(now + shift(random));
    ExpectExact(card, events);
    EXPECT_TRUE(card.mixer.IsDrained());
    EXPECT_NEAR(static_cast<double>(card.Runs().front().second), 10000 + kLatency, 2 * jitter);
  }
}

TEST(ToneMixer, AToneGoesOnWhenTheCardRunsAheadAndTheRestMoves) {
  const std::vector<Event> events{{3000, 9000}, {11000, 15000, kLow}, {15500, 16000}};
  Card card(events);
  card.AskRegularly(0, 6000);
  for (int i = 0; i < 5; ++i) card.Ask(6000);  // a burst: nobody knows yet when the tone ends
  card.AskRegularly(7000, 40000);
  const auto runs = card.Runs();
  ASSERT_EQ(runs.size(), 7U);
  EXPECT_GT(runs[1].second, 6000);
  EXPECT_LT(runs[1].second, 6000 + 5 * kBuffer);
  EXPECT_GE(runs[2].second, 2000);  // silence makes up for the latency that the burst has eaten
  EXPECT_LT(runs[2].second, 2000 + kBuffer);
  EXPECT_EQ(runs[3].second, 4000);
  EXPECT_EQ(runs[4].second, 500);
  EXPECT_EQ(runs[5].second, 500);
}

TEST(ToneMixer, EqualTonesInARowAreSeparatedWithoutAClick) {
  Card card({{3000, 9000}, {9000, 15000}});
  card.AskRegularly(0, 30000);
  const auto border = card.out.begin() + 9000 + kLatency;
  EXPECT_EQ(*std::min_element(border - 500, border + 500), *border);
  EXPECT_LT(*border, kHigh / 50);
  EXPECT_EQ(*(border - ToneMixer::kRamp - 1), kHigh);
  EXPECT_EQ(*(border + ToneMixer::kRamp), kHigh);
  for (size_t i = 1; i < card.out.size(); ++i) EXPECT_LE(std::abs(card.out[i] - card.out[i - 1]), 8) << i;
}

TEST(ToneMixer, TheVolumeChangesInATonesMiddleWithoutAClickAndAtItsStartAtOnce) {
  Card card({{3000, 30000}, {40000, 50000}});
  card.AskRegularly(0, 20000);
  card.mixer.SetVolume(0.25);
  card.AskRegularly(card.Asked(), 35000);
  card.mixer.SetVolume(0.5);
  card.AskRegularly(card.Asked(), 70000);
  EXPECT_EQ(card.out[15000], kHigh);
  EXPECT_EQ(card.out[25000], kHigh / 4);
  EXPECT_EQ(card.out[40000 + kLatency + ToneMixer::kRamp], kHigh / 2);
  for (size_t i = 1; i < card.out.size(); ++i) EXPECT_LE(std::abs(card.out[i] - card.out[i - 1]), 8) << i;
}

}  // namespace
}  // namespace trillomat
