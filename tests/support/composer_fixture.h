// A composer over fakes: what was sounded and shown is remembered, time passes by hand.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "composer/composer.h"
#include "support/fake_sound.h"
#include "support/sample_notes.h"

namespace trillomat {

class FakeComposerView : public ComposerView {
 public:
  void ShowMelody(const MelodyText& text) override { melody = text; }
  void ShowComposer() override {}
  void ShowFilesOfMode() override { ++fileLists; }

  MelodyText melody;
  int fileLists = 0;
};

/// A composer and what it works on. It beeps, but only where a test lets it.
struct Composing {
  Composing(const Services& services, FakeClock& clock)
      : sound(&clock),
        player(document, {services, clock, sound, phone}),
        composer(document, record, player, play, settings, view, services),
        play(document, player, settings, composer, services) {
    player.outputType = OutputType::Beep;
  }

  /// The composed melody in I-Melody tokens, the cursor as "|" behind the element it is on.
  std::string Tokens() const {
    const auto cursor = document.Elements().begin() + document.Cursor() + 1;
    const std::string left = TokensOf({document.Elements().begin(), cursor}, " ");
    return left + (left.empty() ? "|" : "| ") + TokensOf({cursor, document.Elements().end()}, " ");
  }

  void Compose(const std::string& tokens, int32_t cursor) {
    document.Apply({.removed = document.Size(), .inserted = ElementsOf(tokens), .cursor = cursor});
  }

  Document document;
  ReadRecord record;
  FakeSound sound;
  FakePlayerView phone;
  Player player;
  PlaySettings settings{.autoPlay = false, .playComposing = false, .playMoving = false};
  FakeComposerView view;
  Composer composer;
  PlayControls play;
};

class ComposerTest : public testing::Test, public FakeServices, public Composing {
 protected:
  ComposerTest() : Composing(FakeServices::services, clock) {}
};

}  // namespace trillomat
