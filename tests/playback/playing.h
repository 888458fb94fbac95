// A player over fakes: a sound device and a view that remember, and melodies written as tokens.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "playback/play_controls.h"
#include "playback/play_trace.h"
#include "playback/player.h"
#include "support/fake_sound.h"

namespace trillomat {

/// The little-endian number of `size` bytes.
inline uint32_t NumberAt(std::span<const uint8_t> bytes, size_t at, size_t size) {
  uint32_t value = 0;
  for (size_t i = 0; i < size; ++i) value |= uint32_t{bytes[at + i]} << (8 * i);
  return value;
}

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
  int32_t lBeatDuration() override { return 600; }
  std::vector<std::string> calls;

 private:
  const Melody& melody_;
};

/// Everything that playing takes; beeps, since they show frequency and length.
struct Playing : FakeWorkspace {
  explicit Playing(const std::string& tokens = {}) {
    player.outputType = OutputType::Beep;
    Load(tokens);
  }

  /// Makes a melody of I-Melody tokens with blanks between them.
  void Load(const std::string& tokens) {
    ws.melody.Assign(NotesOf(tokens));
    log.lines.clear();
  }

  void Click(Control control) { controls.cmdControl_Click(static_cast<int>(control)); }

  FakeSound sound{&clock};
  FakeView view;
  Player player{ws, clock, sound, view};
  FakeHost host{ws.melody};
  PlaySettings settings;
  PlayControls controls{ws, player, settings, host};
};

}  // namespace trillomat
