// How long an entered tone takes to be in the text view, for melodies of different lengths. The tone is
// entered at the end, so that no records have to be moved, and erased again.
#include <benchmark/benchmark.h>

#include "composer/composer.h"
#include "support/silent_workspace.h"

namespace trillomat {
namespace {

class IdleClock : public Clock {
 public:
  double SecondsSinceMidnight() const override { return 0; }
  std::string DateText() const override { return {}; }
  std::string TimeText() const override { return {}; }
};

class NoView : public ComposerView {
 public:
  void ShowMelody(const MelodyViewText& text) override { benchmark::DoNotOptimize(text.txtLeft.data()); }
  void ShowComposer() override {}
  void UpdateListFiles() override {}
};

void EnterTone(benchmark::State& state) {
  SilentWorkspace silent;
  Workspace& ws = silent.ws;
  ws.iNoteMode = static_cast<FormatMode>(state.range(0));
  MelodyNote tone = ws.codec.DecodeNote("*4#c3", FormatMode::IMelody);
  ws.melody.Assign(MelodyList(static_cast<size_t>(state.range(1)), tone));
  ws.melody.lCurrentIndex = ws.melody.UpperBound();
  const IdleClock clock;
  NullSoundDevice sound;
  NullPlayerView playerView;
  Player player(ws, clock, sound, playerView);
  const PlaySettings settings{.bAutoPlay = false, .bPlayComposing = false, .bPlayMoving = false};
  NoView view;
  Composer composer(ws, player, settings, view);
  for (auto _ : state) {
    composer.cmdTone_Click(0);
    composer.cmdEraseLeft_Click();
  }
}

BENCHMARK(EnterTone)->ArgNames({"mode", "elements"})->ArgsProduct({{0, 1, 2, 3}, {100, 10000, 100000}});

}  // namespace
}  // namespace trillomat
