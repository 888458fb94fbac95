// A player and its controls over fakes, and melodies written as tokens.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "playback/play_controls.h"
#include "playback/play_trace.h"
#include "playback/player.h"
#include "support/fake_sound.h"
#include "support/sample_notes.h"

namespace trillomat {

/// Remembers what the controls told the window, a refresh as the cursor's place.
class FakeHost : public PlayHost {
 public:
  FakeHost(const Document& document, const PlayControls& controls)
      : document_(document), controls_(controls) {}
  void PlayStateChanged() override {
    constexpr std::array<const char*, 3> kTexts{"stopped", "playing", "paused"};
    calls.emplace_back(kTexts.at(static_cast<size_t>(controls_.State())));
  }
  void RefreshMelodyView() override { calls.push_back(std::to_string(document_.Cursor())); }
  std::vector<std::string> calls;

 private:
  const Document& document_;
  const PlayControls& controls_;
};

/// Everything that playing takes; beeps, since they show frequency and length.
struct Playing : FakeServices {
  explicit Playing(const std::string& tokens = {}, FormatMode mode = FormatMode::IMelody)
      : document({ElementsOf(tokens), {}}, mode) {
    player.outputType = OutputType::Beep;
  }

  void Load(ElementList elements) {
    document.Apply({.removed = document.Size(), .inserted = std::move(elements), .cursor = -1});
    log.lines.clear();
    sound.lines.clear();
  }
  void Load(const std::string& tokens) { Load(ElementsOf(tokens)); }

  void SetTempo(int32_t bpm) {
    SongInfo info = document.Info();
    info.bpm = bpm;
    document.Apply({.info = info});
  }

  void PlayAll() {
    for (int32_t i = 0; i <= document.LastIndex(); ++i) player.PlayElement(document.At(i), i);
  }

  Document document;
  FakeSound sound{&clock};
  FakePlayerView view;
  Player player{document, {services, clock, sound, view}};
  FakeHost host{document, controls};
  PlaySettings settings;
  PlayControls controls{document, player, settings, host, services};
};

}  // namespace trillomat
