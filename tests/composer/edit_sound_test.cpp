// What is heard while the song is edited, and when: keys that come faster than their tones.
#include <deque>
#include <stdexcept>
#include <utility>

#include "support/composer_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;

// A window system's queue: events wait for their time, and for a loop that lets them run.
class EventQueue : public EventPump {
 public:
  explicit EventQueue(FakeClock& clock) : clock_(clock) {}

  void Add(double seconds, std::function<void()> event) { events_.push_back({seconds, std::move(event)}); }
  /// The program's own loop, until nothing is left.
  void Run() {
    while (!events_.empty()) {
      clock_.seconds = std::max(clock_.seconds, events_.front().seconds);
      PumpEvents();
    }
  }

  bool PumpEvents() override {
    while (!events_.empty() && events_.front().seconds <= clock_.seconds) {
      const auto event = std::move(events_.front().run);
      events_.pop_front();
      event();
    }
    return true;
  }
  bool WaitForEvents(double milliseconds) override {
    const double end = clock_.seconds + milliseconds / 1000;
    const double next = events_.empty() ? end : std::max(clock_.seconds, events_.front().seconds);
    clock_.seconds = std::min(end, next);
    return PumpEvents();
  }

 private:
  struct Event {
    double seconds;
    std::function<void()> run;
  };
  FakeClock& clock_;
  std::deque<Event> events_;
};

struct Seams {
  FakeLog log;
  FakeClock clock;
  EventQueue queue{clock};
};

class EditSoundTest : public testing::TestWithParam<OutputType>, public Seams, public Composing {
 protected:
  EditSoundTest() : Composing({log, queue}, clock) {
    player.outputType = GetParam();
    settings.playComposing = settings.playMoving = true;
    composer.SelectDuration(3);  // 300 ms
    phone.onFrequency = [this] {
      starts.push_back(clock.seconds);
      lengths.push_back(document.Size());
    };
  }

  std::vector<double> starts;   ///< of the tones
  std::vector<size_t> lengths;  ///< of the song by then
};

INSTANTIATE_TEST_SUITE_P(Outputs, EditSoundTest, testing::Values(OutputType::Wave, OutputType::Beep));

TEST_P(EditSoundTest, FourteenLettersFasterThanTheirTonesAreAllEnteredAndNoneIsLate) {
  for (int i = 0; i < 14; ++i) queue.Add(i * 0.2, [this, i] { composer.TypeTone(i % 12); });
  queue.Run();
  EXPECT_EQ(Tokens(), "*4c3 *4#c3 *4d3 *4#d3 *4e3 *4f3 *4#f3 *4g3 *4#g3 *4a3 *4#a3 *4b3 *4c3 *4#c3| ");
  double before = 0;
  for (size_t i = 0; i < starts.size(); ++i) {
    EXPECT_EQ(lengths[i], 1 + static_cast<size_t>(starts[i] / 0.2 + 1e-6)) << "typed by " << starts[i];
    EXPECT_LE(starts[i] - std::exchange(before, starts[i]), 0.302);
  }
  EXPECT_EQ(lengths.back(), 14U) << "the newest is heard";
  if (GetParam() == OutputType::Wave) {
    EXPECT_EQ(starts.size(), 14U);
    EXPECT_NEAR(clock.seconds, 13 * 0.2 + 0.3, 0.01);
  }
  EXPECT_FALSE(composer.Sounds());
}

TEST_P(EditSoundTest, LettersKeepTheirOrderAmongOtherCommands) {
  Compose("*3b3", -1);
  composer.SetOctave(3);
  queue.Add(0, [this] { composer.TypeTone(0); });
  queue.Add(0.1, [this] { composer.TypeTone(2); });
  queue.Add(0.1, [this] { composer.EnterPause(); });
  queue.Add(0.1, [this] { composer.MoveLeft(); });
  queue.Add(0.1, [this] { composer.TypeTone(4); });
  queue.Add(0.1, [this] { composer.EraseRight(); });
  queue.Add(0.1, [this] { composer.TypeTone(5); });
  queue.Add(0.1, [this] { composer.TypeTone(7); });
  queue.Add(0.1, [this] { composer.EraseLeft(); });  // what was to sound next is gone
  queue.Run();
  EXPECT_EQ(Tokens(), "*3c3 *3d3 *3e3 *3f3| *3b3");
  EXPECT_THAT(phone.calls, ElementsAre("Hz 264"));
}

TEST_P(EditSoundTest, PianoButtonsAreDroppedWhileAnEnteredToneSoundsAndHeldKeysCanWait) {
  Compose("*3c3 *3d3", 1);
  const auto press = [this] {
    EXPECT_TRUE(composer.Sounds());
    composer.EnterTone(9);
  };
  queue.Add(0, [this] { composer.EnterTone(0); });
  queue.Add(0.0001, press);
  queue.Add(1, [this] { composer.MoveLeft(); });
  queue.Add(1.0001, press);  // a tone that is passed does not make the piano deaf
  queue.Run();
  EXPECT_EQ(Tokens(), "*3c3 *3d3 *4a3| *4c3");
}

TEST_P(EditSoundTest, PlayingEndsWhatEditingLeftToSound) {
  queue.Add(0, [this] { composer.TypeTone(0); });
  queue.Add(0.0001, [this] { composer.TypeTone(2); });
  queue.Add(0.0001, [this] { play.Press(Control::Play); });
  queue.Run();
  EXPECT_EQ(phone.calls.size(), GetParam() == OutputType::Wave ? 3U : 2U);  // the first letter, and the song
}

TEST_P(EditSoundTest, AFaultInAToneLeavesThePianoAlive) {
  const auto fault = [] { throw std::runtime_error("device lost"); };
  sound.onBeep = fault;
  if (GetParam() == OutputType::Wave) queue.Add(0.1, fault);
  EXPECT_THROW(composer.EnterTone(0), std::runtime_error);
  EXPECT_FALSE(composer.Sounds());
  sound.onBeep = nullptr;
  composer.EnterTone(2);
  EXPECT_EQ(Tokens(), "*4c3 *4d3| ");
  EXPECT_EQ(starts.size(), 2U);
}

TEST_P(EditSoundTest, WhatACommandChangedIsShownBeforeItsToneButForArrowRight) {
  Compose("*4d2 *4e2", 0);
  std::string seen;
  phone.onFrequency = [&] { seen = view.melody.left; };
  composer.StepDuration();
  EXPECT_EQ(seen, "   *4d3");
  composer.StepAccidental();
  EXPECT_EQ(seen, "   *4#d3");
  composer.TypeTone(9);
  EXPECT_EQ(seen, "   *4#d3   *4a3");
  composer.MoveLeft();
  EXPECT_EQ(seen, "   *4#d3");
  composer.MoveRight();
  EXPECT_EQ(seen, GetParam() == OutputType::Wave ? "   *4#d3" : "   *4#d3   *4a3");
  EXPECT_EQ(view.melody.left, "   *4#d3   *4a3");
}

}  // namespace
}  // namespace trillomat
