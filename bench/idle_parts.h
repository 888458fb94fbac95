// A composer, with parts of the program around it that do nothing and take no time.
#pragma once

#include <benchmark/benchmark.h>

#include "composer/composer.h"
#include "core/silent_services.h"

namespace trillomat {

class IdleClock : public Clock {
 public:
  double SecondsSinceMidnight() const override { return 0; }
  std::string DateText() const override { return {}; }
  std::string TimeText() const override { return {}; }
};

class NoView : public ComposerView {
 public:
  void ShowMelody(const MelodyText& text) override { benchmark::DoNotOptimize(text.left.data()); }
  void ShowComposer() override {}
  void ShowFilesOfMode() override {}
};

/// A composer with a song. Nothing plays.
struct IdleComposer {
  IdleComposer(Song song, FormatMode mode) : document(std::move(song), mode) {}

  SilentServices silent;
  IdleClock clock;
  NullSoundDevice sound;
  NullPlayerView playerView;
  NoView view;
  const PlaySettings settings{.autoPlay = false, .playComposing = false, .playMoving = false};
  Document document;
  ReadRecord record;
  Player player{document, {silent.services, clock, sound, playerView}};
  NullPlayHost host;
  PlayControls play{document, player, settings, host, silent.services};
  Composer composer{document, record, player, play, settings, view, silent.services};
};

}  // namespace trillomat
