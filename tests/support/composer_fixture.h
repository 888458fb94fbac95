// A composer over fakes: what was sounded and shown is remembered, time passes by hand.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "composer/composer.h"
#include "playback/player.h"
#include "support/fakes.h"

namespace trillomat {

/// Remembers the tones that were beeped, in Hz.
class FakeSound : public SoundDevice {
 public:
  bool StartWave(std::span<const uint8_t> /*image*/) override { return true; }
  void StopWave() override {}
  void Beep(int32_t hertz, int32_t /*milliseconds*/) override {
    beeps.push_back(hertz);
    if (onBeep) onBeep();
  }
  std::vector<int32_t> beeps;
  std::function<void()> onBeep;
};

class FakeComposerView : public ComposerView {
 public:
  void ShowMelody(const MelodyViewText& text) override { melody = text; }
  void ShowComposer() override {}
  void UpdateListFiles() override { ++fileLists; }

  MelodyViewText melody;
  int fileLists = 0;
};

class ComposerTest : public testing::Test, public FakeWorkspace {
 protected:
  ComposerTest() { player.outputType = OutputType::Beep; }

  /// The composed melody in I-Melody tokens, the cursor as "|" behind the element it is on.
  std::string Tokens() {
    std::string text = ws.melody.lCurrentIndex < 0 ? "|" : "";
    for (int32_t i = 0; i <= ws.melody.UpperBound(); ++i) {
      MelodyNote note = ws.melody.At(i);
      text +=
          ws.codec.EncodeNote(note, FormatMode::IMelody) + (i == ws.melody.lCurrentIndex ? "|" : "") + " ";
    }
    return text;
  }

  /// Replaces the melody by I-Melody tokens separated by blanks, the cursor at `cursor`.
  void Compose(const std::string& tokens, int32_t cursor) {
    MelodyList list;
    for (size_t start = 0; start < tokens.size();) {
      const size_t end = std::min(tokens.find(' ', start), tokens.size());
      list.push_back(ws.codec.DecodeNote(tokens.substr(start, end - start), FormatMode::IMelody));
      start = end + 1;
    }
    ws.melody.Assign(list);
    ws.melody.lCurrentIndex = cursor;
  }

  FakeSound sound;
  NullPlayerView playerView;
  Player player{ws, clock, sound, playerView};
  PlaySettings settings{.bAutoPlay = false, .bPlayComposing = false, .bPlayMoving = false};
  FakeComposerView view;
  Composer composer{ws, player, settings, view};
};

}  // namespace trillomat
