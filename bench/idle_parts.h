// Parts of the program around a composer that do nothing, and take no time for it.
#pragma once

#include <benchmark/benchmark.h>

#include "composer/composer.h"

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

}  // namespace trillomat
