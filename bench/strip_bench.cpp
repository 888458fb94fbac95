// What the note strip costs for a short and for a long melody: painting it, an edit in the middle of the
// melody with all that follows from it up to the painted strip, taking that back, and selecting everything.
#include <QApplication>
#include <QImage>

#include "bench/idle_parts.h"
#include "bench/workload.h"
#include "ui/main_window_fixture.h"
#include "ui/note_strip.h"

namespace trillomat {
namespace {

/// A strip of the size that it has in a window, with the cursor in the middle of its melody.
struct Bench : IdleComposer {
  explicit Bench(int64_t elements)
      : IdleComposer({RandomElements(static_cast<size_t>(elements), LimitsOf(FormatMode::IMelody)), {}},
                     FormatMode::IMelody) {
    strip.resize(1200, 160);
    strip.show();
    document.Apply({.cursor = document.LastIndex() / 2});
    Paint();
  }

  void Paint() { strip.viewport()->render(&image); }

  NoteStrip strip{document, composer, nullptr};
  QImage image{1200, 160, QImage::Format_ARGB32_Premultiplied};
};

void Repaint(benchmark::State& state) {
  Bench bench(state.range(0));
  for (auto _ : state) bench.Paint();
}

// A tone is entered, and erased again.
void Edit(benchmark::State& state) {
  Bench bench(state.range(0));
  for (auto _ : state) {
    bench.composer.TypeTone(0);
    bench.Paint();
    bench.composer.EraseLeft();
    bench.Paint();
  }
}

void UndoAndRedo(benchmark::State& state) {
  Bench bench(state.range(0));
  bench.composer.TypeTone(0);
  for (auto _ : state) {
    bench.composer.Undo();
    bench.Paint();
    bench.composer.Redo();
    bench.Paint();
  }
}

void SelectAll(benchmark::State& state) {
  Bench bench(state.range(0));
  for (auto _ : state) {
    bench.composer.SelectAll();
    bench.Paint();
    bench.composer.MoveTo(bench.document.LastIndex() / 2);
    bench.Paint();
  }
}

// All tones an octave up, and down again.
void MoveScale(benchmark::State& state) {
  Bench bench(state.range(0));
  bench.document.Apply(
      {.octaves = std::vector<int16_t>(bench.document.Size(), LimitsOf(FormatMode::IMelody).lowestOctave)});
  for (auto _ : state) {
    bench.composer.MoveScale(1);
    bench.Paint();
    bench.composer.MoveScale(-1);
    bench.Paint();
  }
}

// Edit without painting, which takes most of the time.
void EditUnseen(benchmark::State& state) {
  Bench bench(state.range(0));
  for (auto _ : state) {
    bench.composer.TypeTone(0);
    bench.composer.EraseLeft();
  }
}

// The same as the user does it, by two keys, up to all that the window paints of it. `part` is where the
// cursor is: at the front for 0, in the middle for 1, at the end for 2.
void EditInWindow(benchmark::State& state) {
  Parts parts;
  MainWindow window(parts.ForWindow());
  window.Load();
  window.resize(1100, 820);
  window.show();
  for (const char* sounds : {"mnuSettingPlayComposing", "mnuSettingPlayMoving"})
    Find<QAction>(window, sounds).trigger();
  const auto elements = RandomElements(static_cast<size_t>(state.range(0)), LimitsOf(FormatMode::IMelody));
  parts.document.Apply({.inserted = elements, .cursor = -1});
  parts.document.Apply({.cursor = static_cast<int32_t>(state.range(0) * state.range(1) / 2) - 1});
  QTest::qWait(100);
  for (auto _ : state) {
    for (const Qt::Key key : {Qt::Key_Z, Qt::Key_Backspace}) {
      QTest::keyClick(window.focusWidget(), key);
      QCoreApplication::processEvents();
    }
  }
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->ArgName("elements")->Arg(100)->Arg(100000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(Repaint)->Apply(Sizes);
BENCHMARK(Edit)->Apply(Sizes);
BENCHMARK(UndoAndRedo)->Apply(Sizes);
BENCHMARK(SelectAll)->Apply(Sizes);
BENCHMARK(MoveScale)->Apply(Sizes);
BENCHMARK(EditUnseen)->Apply(Sizes);
BENCHMARK(EditInWindow)
    ->ArgNames({"elements", "part"})
    ->ArgsProduct({{100, 100000}, {0, 1, 2}})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace trillomat

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
