// A player over fakes: a sound device and a view that remember, and melodies written as tokens.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "playback/play_controls.h"
#include "playback/play_trace.h"
#include "playback/player.h"
#include "support/fakes.h"

namespace trillomat {

/// Remembers what sounded when, in ms of the fake clock; a beep moves that clock.
class FakeSound : public SoundDevice {
 public:
  explicit FakeSound(FakeClock& clock) : clock_(clock) {}

  bool StartWave(std::span<const uint8_t> image) override {
    lines.push_back("start " + std::to_string(image.size()) + Now());
    return works;
  }
  void StopWave() override { lines.push_back("stop" + Now()); }
  void Beep(int32_t hertz, int32_t milliseconds) override {
    lines.push_back(std::to_string(hertz) + " " + std::to_string(milliseconds));
    clock_.seconds += milliseconds / 1000.0;
  }

  bool works = true;
  std::vector<std::string> lines;

 private:
  std::string Now() const { return " at " + std::to_string(std::lround(clock_.seconds * 1000)); }

  FakeClock& clock_;
};

/// What the view was told, in one list.
class FakeView : public PlayerView {
 public:
  void ShowFrequency(std::string_view text) override { calls.push_back("Hz " + std::string(text)); }
  void ShowPicture(int picture) override { calls.push_back("picture " + std::to_string(picture)); }
  void EnableTimer(int timer) override { calls.push_back("timer on " + std::to_string(timer)); }
  void DisableTimer(int timer) override { calls.push_back("timer off " + std::to_string(timer)); }
  std::vector<std::string> calls;
};

/// Remembers what the controls told the window, refreshes as the cursor's place.
class FakeHost : public PlayHost {
 public:
  explicit FakeHost(const Melody& melody) : melody_(melody) {}
  void EnableComposer(bool enable) override { calls.emplace_back(enable ? "unlock" : "lock"); }
  void SetPlayCaption(std::string_view caption) override { calls.emplace_back(caption); }
  void RefreshMelodyView() override { calls.push_back(std::to_string(melody_.lCurrentIndex)); }
  void ClearMelodyView() override { calls.emplace_back("clear"); }
  int32_t lBeatDuration() override { return beat; }
  int32_t beat = 600;
  std::vector<std::string> calls;

 private:
  const Melody& melody_;
};

/// Everything that playing takes; beeps, since they show frequency and length.
struct Playing : FakeWorkspace {
  explicit Playing(std::string_view tokens = {}) {
    player.outputType = OutputType::Beep;
    Load(tokens);
  }

  /// Makes a melody of I-Melody tokens with blanks between them.
  void Load(std::string_view tokens) {
    MelodyList notes;
    std::istringstream in{std::string(tokens)};
    for (std::string token; in >> token;) {
      notes.push_back(ws.codec.DecodeNote(token, FormatMode::IMelody));
    }
    ws.melody.Assign(std::move(notes));
    log.lines.clear();
  }

  void Click(Control control) { controls.cmdControl_Click(static_cast<int>(control)); }

  FakeSound sound{clock};
  FakeView view;
  Player player{ws, clock, sound, view};
  FakeHost host{ws.melody};
  PlaySettings settings;
  PlayControls controls{ws, player, settings, host};
};

}  // namespace trillomat
